#include "platform/system_version.h"

#include <sys/utsname.h>

#include <climits>

namespace platform {

std::optional<SystemVersion> QuerySystemVersion() {
  utsname system = {};
  if (uname(&system) != 0) {
    return std::nullopt;
  }
  const int bits = static_cast<int>(sizeof(void*)) * CHAR_BIT;
  return UnixVersion{.name = &system.sysname[0], .release = &system.release[0], .bits = bits};
}

}  // namespace platform
