// The system's words for what just failed.
#pragma once

#include <cerrno>
#include <cstring>

#include "platform/result.h"

namespace platform {

inline SystemError ErrorOf(int number) {
  return {std::strerror(number)};
}

// Of the last call of the system. Nothing may come between the two.
inline SystemError LastError() {
  return ErrorOf(errno);
}

}  // namespace platform
