// Which operating system the program runs on.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

namespace platform {

// The extended version record of Windows, with the processor architecture beside it.
struct WindowsVersion {
  std::uint32_t major = 0;
  std::uint32_t minor = 0;
  std::uint32_t build = 0;
  std::uint32_t platformId = 0;
  std::string servicePack;
  std::uint16_t suiteMask = 0;
  std::uint8_t productType = 0;
  std::uint16_t architecture = 0;
};

// Name and release of a Unix kernel, and the width of the machine in bits.
struct UnixVersion {
  std::string name;
  std::string release;
  int bits = 0;
};

using SystemVersion = std::variant<WindowsVersion, UnixVersion>;

// Asks the system for its version; nothing when it does not give one.
std::optional<SystemVersion> QuerySystemVersion();

}  // namespace platform
