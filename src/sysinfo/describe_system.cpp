#include "sysinfo/describe_system.h"

#include <cstdint>
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

std::wstring ServerEdition(const WindowsVersion& version) {
  switch (version.architecture) {
    case kItanium:
      return Has(version, kDatacenter)   ? L"Datacenter Edition for Itanium-based Systems"
             : Has(version, kEnterprise) ? L"Enterprise Edition for Itanium-based Systems"
                                         : L"";
    case kX64:
      return Has(version, kDatacenter)   ? L"Datacenter x64 Edition"
             : Has(version, kEnterprise) ? L"Enterprise x64 Edition"
                                         : L"Standard x64 Edition";
    default:
      return Has(version, kComputeServer) ? L"Compute Cluster Edition"
             : Has(version, kDatacenter)  ? L"Datacenter Edition"
             : Has(version, kEnterprise)  ? L"Enterprise Edition"
             : Has(version, kBlade)       ? L"Web Edition"
                                          : L"Standard Edition";
  }
}

std::wstring Name52(const WindowsVersion& version) {
  const bool workstation = version.productType == kWorkstation;
  std::wstring name = Has(version, kStorageServer) ? L"Windows Storage Server 2003"
                      : Has(version, kHomeServer)  ? L"Windows Home Server"
                      : workstation && version.architecture == kX64
                          ? L"Windows XP Professional x64 Edition"
                          : L"Windows Server 2003, ";
  return workstation ? name : name + ServerEdition(version);
}

std::wstring Name50(const WindowsVersion& version) {
  const std::wstring edition = version.productType == kWorkstation ? L"Professional"
                               : Has(version, kDatacenter)         ? L"Datacenter Server"
                               : Has(version, kEnterprise)         ? L"Advanced Server"
                                                                   : L"Server";
  return L"Windows 2000 " + edition;
}

// The name and edition; empty for a version that the table does not know.
std::wstring Name(const WindowsVersion& version) {
  const bool workstation = version.productType == kWorkstation;
  const auto is = [&version](std::uint32_t major, std::uint32_t minor) {
    return version.major == major && version.minor == minor;
  };
  if (is(6, 0)) {
    return workstation ? L"Windows Vista " : L"Windows Server 2008 ";
  }
  if (is(6, 1)) {
    return workstation ? L"Windows 7 " : L"Windows Server 2008 R2 ";
  }
  if (is(5, 2)) {
    return Name52(version);
  }
  if (is(5, 1)) {
    const std::wstring edition = Has(version, kPersonal) ? L"Home Edition" : L"Professional";
    return L"Windows XP " + edition;
  }
  if (is(5, 0)) {
    return Name50(version);
  }
  return L"";
}

std::wstring Widened(std::string_view text) {
  return {text.begin(), text.end()};
}

}  // namespace

std::optional<std::wstring> DescribeSystem(const WindowsVersion& version) {
  if (version.platformId != kNtFamily || version.major < 5) {
    return std::nullopt;
  }
  std::wstring text = L"Microsoft " + Name(version);
  if (!version.servicePack.empty()) {
    text += L" " + Widened(version.servicePack);
  }
  text += L" (build " + std::to_wstring(version.build) + L")";
  if (version.architecture == kX64) {
    text += L", 64-bit";
  } else if (version.architecture == kX86) {
    text += L", 32-bit";
  }
  return text;
}

std::optional<std::wstring> DescribeSystem(const platform::UnixVersion& version) {
  return Widened(version.name + " " + version.release) + L", " + std::to_wstring(version.bits) +
         L"-bit";
}
