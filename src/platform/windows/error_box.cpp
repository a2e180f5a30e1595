#include "platform/error_box.h"

#include <windows.h>

namespace platform {

void ShowErrorBox(const std::string& text, const std::string& caption) {
  MessageBoxA(nullptr, text.c_str(), caption.c_str(), MB_OK | MB_ICONSTOP);
}

}  // namespace platform
