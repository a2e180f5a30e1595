#include "animate/frame_list.h"

#include <fstream>
#include <iostream>
#include <sstream>

#include "film/failure.h"
#include "film/quoted.h"
#include "platform/paths.h"

namespace animate {

namespace fs = std::filesystem;

std::vector<fs::path> ListedPaths(std::string_view content) {
  if (content.starts_with("\xFF\xFE") || content.starts_with("\xFE\xFF")) {
    throw Failure("the list is UTF-16; save it as UTF-8");
  }
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  content.remove_prefix(content.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0);
  std::vector<fs::path> paths;
  while (!content.empty()) {
    std::string_view line = content.substr(0, content.find('\n'));
    content.remove_prefix(std::min(line.size() + 1, content.size()));
    line.remove_suffix(line.ends_with('\r') ? 1 : 0);
    if (!line.empty()) {
      paths.push_back(platform::PathFromText(std::string(line)));
    }
  }
  return paths;
}

std::string ReadList(const fs::path& path) {
  std::ostringstream content;
  bool isRead = false;
  if (path.empty()) {
    content << std::cin.rdbuf();
    isRead = !std::cin.bad();
  } else {
    // Not the file reader of frames: the list may be a pipe.
    std::ifstream file(path, std::ios::binary);
    isRead = file.is_open();
    content << file.rdbuf();
    isRead = isRead && !file.bad();
  }
  if (!isRead) {
    throw Failure("the list " + (path.empty() ? "on standard input" : Quoted(path)) +
                  " cannot be read");
  }
  return content.str();
}

}  // namespace animate
