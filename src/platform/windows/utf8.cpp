#include "platform/windows/utf8.h"

#include <windows.h>

namespace platform {

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

}  // namespace platform
