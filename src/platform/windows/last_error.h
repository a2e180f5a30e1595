// The system's words for what just failed.
#pragma once

#include <windows.h>

#include "platform/result.h"

namespace platform {

// The words for one of the system's error numbers, without a line end or a full stop.
SystemError ErrorOf(DWORD number);

// Of the last call of the system. Nothing may come between the two.
inline SystemError LastError() {
  return ErrorOf(GetLastError());
}

}  // namespace platform
