#include "sequence/unread_images.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <string_view>

#include "platform/paths.h"
#include "text/lower_case.h"

namespace animate {
namespace {

// What cameras, renderers and viewers write besides the types that are read.
constexpr std::string_view kUnread[] = {
    "arw", "avif", "cin",  "cr2", "cr3", "dds", "dng", "dpx", "emf", "eps", "exr", "fits",
    "hdr", "heic", "heif", "ico", "j2k", "jp2", "jxl", "nef", "orf", "pam", "pcx", "pdf",
    "ps",  "psd",  "qoi",  "raf", "rgb", "rw2", "sgi", "svg", "wmf", "xbm", "xpm"};

}  // namespace

std::vector<std::string> UnreadImages(const std::vector<std::filesystem::path>& names) {
  std::map<std::string, std::size_t> counts;
  for (const std::filesystem::path& name : names) {
    const std::string extension = LowerCase(platform::TextOfPath(name.extension()));
    if (!extension.empty() &&
        std::binary_search(std::begin(kUnread), std::end(kUnread), extension.substr(1))) {
      ++counts[extension];
    }
  }
  std::vector<std::string> texts;
  texts.reserve(counts.size());
  for (const auto& [extension, count] : counts) {
    texts.push_back(std::to_string(count) + " " + extension);
  }
  return texts;
}

}  // namespace animate
