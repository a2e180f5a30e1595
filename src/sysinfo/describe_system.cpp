#include "sysinfo/describe_system.h"

#include <cstdint>
#include <initializer_list>
#include <string_view>

namespace {

using platform::WindowsVersion;

constexpr std::uint32_t kNtFamily = 2;
constexpr std::uint8_t kWorkstation = 1;

constexpr std::uint16_t kX86 = 0;
constexpr std::uint16_t kItanium = 6;
constexpr std::uint16_t kX64 = 9;

constexpr std::uint16_t kEnterprise = 0x0002;
constexpr std::uint16_t kDatacenter = 0x0080;
constexpr std::uint16_t kPersonal = 0x0200;
constexpr std::uint16_t kBlade = 0x0400;
constexpr std::uint16_t kStorageServer = 0x2000;
constexpr std::uint16_t kComputeServer = 0x4000;
constexpr std::uint16_t kHomeServer = 0x8000;

bool Has(const WindowsVersion& version, std::uint16_t suite) {
  return (version.suiteMask & suite) != 0;
}

struct Row {
  bool applies;
  std::string_view text;
};

// The text of the first row that applies; empty when none does.
std::string FirstMatch(std::initializer_list<Row> rows) {
  for (const Row& row : rows) {
    if (row.applies) {
      return std::string(row.text);
    }
  }
  return "";
}

std::string ServerEdition(const WindowsVersion& version) {
  const bool enterprise = Has(version, kEnterprise);
  const bool datacenter = Has(version, kDatacenter);
  switch (version.architecture) {
    case kItanium:
      return FirstMatch({
          {datacenter, "Datacenter Edition for Itanium-based Systems"},
          {enterprise, "Enterprise Edition for Itanium-based Systems"},
      });
    case kX64:
      return FirstMatch({
          {datacenter, "Datacenter x64 Edition"},
          {enterprise, "Enterprise x64 Edition"},
          {true, "Standard x64 Edition"},
      });
    default:
      return FirstMatch({
          {Has(version, kComputeServer), "Compute Cluster Edition"},
          {datacenter, "Datacenter Edition"},
          {enterprise, "Enterprise Edition"},
          {Has(version, kBlade), "Web Edition"},
          {true, "Standard Edition"},
      });
  }
}

std::string Name52(const WindowsVersion& version) {
  const bool workstation = version.productType == kWorkstation;
  const std::string name = FirstMatch({
      {Has(version, kStorageServer), "Windows Storage Server 2003"},
      {Has(version, kHomeServer), "Windows Home Server"},
      {workstation && version.architecture == kX64, "Windows XP Professional x64 Edition"},
      {true, "Windows Server 2003, "},
  });
  return workstation ? name : name + ServerEdition(version);
}

// The name and edition; empty for a version that the table does not know.
std::string Name(const WindowsVersion& version) {
  const bool workstation = version.productType == kWorkstation;
  const auto is = [&version](std::uint32_t major, std::uint32_t minor) {
    return version.major == major && version.minor == minor;
  };
  if (is(5, 2)) {
    return Name52(version);
  }
  return FirstMatch({
      {is(6, 0) && workstation, "Windows Vista "},
      {is(6, 0), "Windows Server 2008 "},
      {is(6, 1) && workstation, "Windows 7 "},
      {is(6, 1), "Windows Server 2008 R2 "},
      {is(5, 1) && Has(version, kPersonal), "Windows XP Home Edition"},
      {is(5, 1), "Windows XP Professional"},
      {is(5, 0) && workstation, "Windows 2000 Professional"},
      {is(5, 0) && Has(version, kDatacenter), "Windows 2000 Datacenter Server"},
      {is(5, 0) && Has(version, kEnterprise), "Windows 2000 Advanced Server"},
      {is(5, 0), "Windows 2000 Server"},
  });
}

}  // namespace

std::optional<std::string> DescribeSystem(const WindowsVersion& version) {
  if (version.platformId != kNtFamily || version.major < 5) {
    return std::nullopt;
  }
  std::string text = "Microsoft " + Name(version);
  if (!version.servicePack.empty()) {
    text += " " + version.servicePack;
  }
  text += " (build " + std::to_string(version.build) + ")";
  if (version.architecture == kX64) {
    text += ", 64-bit";
  } else if (version.architecture == kX86) {
    text += ", 32-bit";
  }
  return text;
}

std::optional<std::string> DescribeSystem(const platform::UnixVersion& version) {
  return version.name + " " + version.release + ", " + std::to_string(version.bits) + "-bit";
}
