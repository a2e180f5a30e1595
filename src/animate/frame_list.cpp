#include "animate/frame_list.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <fstream>
#include <iostream>

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
  // Not the file reader of frames: the list may be a pipe.
  std::ifstream file;
  if (!path.empty()) {
    file.open(path, std::ios::binary);
  }
  std::istream& list = path.empty() ? std::cin : file;
  std::string content;
  for (char piece[4096]; list.good();) {
    list.read(&piece[0], sizeof(piece));
    content.append(&piece[0], static_cast<std::size_t>(list.gcount()));
  }
  if (list.bad() || !list.eof() || (path.empty() && std::ferror(stdin) != 0)) {
    throw Failure("the list " + (path.empty() ? "on standard input" : Quoted(path)) +
                  " cannot be read");
  }
  return content;
}

}  // namespace animate
