// Owning a handle.
#pragma once

#include <windows.h>

#include "platform/owned.h"

namespace platform {

// A handle that is closed when its owner goes; null, and not INVALID_HANDLE_VALUE, when empty.
using OwnedHandle = Owned<HANDLE, CloseHandle>;

}  // namespace platform
