#include "platform/windows/last_error.h"

#include <string>

#include "platform/windows/utf8.h"

namespace platform {

SystemError ErrorOf(DWORD number) {
  std::wstring text(1024, L'\0');
  text.resize(FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                             number, 0, text.data(), static_cast<DWORD>(text.size()), nullptr));
  while (!text.empty() && (text.back() <= L' ' || text.back() == L'.')) {
    text.pop_back();
  }
  return {text.empty() ? "error " + std::to_string(number) : Utf8FromWide(text)};
}

}  // namespace platform
