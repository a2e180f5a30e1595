// The operating system's description in words.
#pragma once

#include <optional>
#include <string>

#include "platform/system_version.h"

// Describes a version of Windows, for instance "Microsoft Windows 7  Service Pack 1 (build 7601),
// 64-bit"; nothing for one that is not of the NT family or is older than major version 5.
std::optional<std::string> DescribeSystem(const platform::WindowsVersion& version);

// Describes a Unix system by name, release and bitness.
std::optional<std::string> DescribeSystem(const platform::UnixVersion& version);
