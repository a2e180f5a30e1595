#include "platform/paths.h"

#include "platform/windows/filled_text.h"
#include "platform/windows/system_path.h"
#include "platform/windows/utf8.h"

namespace platform {
namespace fs = std::filesystem;
namespace {

// Old parts of the system stop at 260 characters, and at 248 for a folder that is to hold files.
constexpr std::size_t kLongestPlainPath = 240;

}  // namespace

fs::path PathFromText(const std::string& text) {
  return WideFromUtf8(text);
}

std::string TextOfPath(const fs::path& path) {
  return Utf8FromWide(path.native());
}

fs::path FullPath(const fs::path& path) {
  fs::path full = FilledText<wchar_t>([&](wchar_t* text, DWORD size) {
    return GetFullPathNameW(path.c_str(), size, text, nullptr);
  });
  return full.has_filename() || !full.has_relative_path() ? full : full.parent_path();
}

std::string ArgumentOfPath(const fs::path& path) {
  return Utf8FromWide(SystemPath(path));
}

std::wstring SystemPath(const fs::path& path) {
  if (path.native().size() <= kLongestPlainPath || path.native().rfind(LR"(\\?\)", 0) == 0) {
    return path.native();
  }
  const std::wstring full = FullPath(path).native();
  return full.rfind(LR"(\\)", 0) == 0 ? LR"(\\?\UNC)" + full.substr(1) : LR"(\\?\)" + full;
}

}  // namespace platform
