#include "platform/windows/utf8.h"

#include "platform/file_system.h"

namespace platform {
namespace {

// Old parts of the system stop at 260 characters, and at 248 for a folder that is to hold files.
constexpr std::size_t kLongestPlainPath = 240;

}  // namespace

std::wstring WideFromUtf8(const std::string& text) {
  const int length = static_cast<int>(text.size());
  std::wstring wide(text.size(), L'\0');
  wide.resize(static_cast<std::size_t>(
      MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data(), length)));
  return wide;
}

std::string Utf8FromWide(const std::wstring& text) {
  constexpr std::size_t kMostBytesPerUnit = 3;
  const int length = static_cast<int>(text.size());
  std::string narrow(text.size() * kMostBytesPerUnit, '\0');
  narrow.resize(static_cast<std::size_t>(
      WideCharToMultiByte(CP_UTF8, 0, text.data(), length, narrow.data(),
                          static_cast<int>(narrow.size()), nullptr, nullptr)));
  return narrow;
}

std::wstring SystemPath(const std::filesystem::path& path) {
  if (path.native().size() <= kLongestPlainPath || path.native().rfind(LR"(\\?\)", 0) == 0) {
    return path.native();
  }
  const std::wstring full = FullPath(path).native();
  return full.rfind(LR"(\\)", 0) == 0 ? LR"(\\?\UNC)" + full.substr(1) : LR"(\\?\)" + full;
}

std::string ErrorText(DWORD error) {
  std::wstring text(1024, L'\0');
  text.resize(FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                             error, 0, text.data(), static_cast<DWORD>(text.size()), nullptr));
  while (!text.empty() && (text.back() <= L' ' || text.back() == L'.')) {
    text.pop_back();
  }
  return text.empty() ? "error " + std::to_string(error) : Utf8FromWide(text);
}

}  // namespace platform
