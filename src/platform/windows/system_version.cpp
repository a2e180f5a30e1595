#include "platform/system_version.h"

#include <windows.h>

namespace platform {
namespace {

std::uint16_t ProcessorArchitecture() {
  // Absent from the oldest systems that the version table knows, hence the look-up.
  using InfoQuery = void(WINAPI*)(SYSTEM_INFO*);
  InfoQuery query = GetSystemInfo;
  if (const HMODULE kernel = GetModuleHandleA("kernel32.dll"); kernel != nullptr) {
    if (const FARPROC native = GetProcAddress(kernel, "GetNativeSystemInfo"); native != nullptr) {
      query = reinterpret_cast<InfoQuery>(reinterpret_cast<void*>(native));
    }
  }
  SYSTEM_INFO info = {};
  query(&info);
  return info.wProcessorArchitecture;
}

}  // namespace

std::optional<SystemVersion> QuerySystemVersion() {
  OSVERSIONINFOEXA record = {};
  static_assert(sizeof(record) == 156);
  record.dwOSVersionInfoSize = sizeof(record);
  if (GetVersionExA(reinterpret_cast<OSVERSIONINFOA*>(&record)) == 0) {
    return std::nullopt;
  }
  return WindowsVersion{.major = record.dwMajorVersion,
                        .minor = record.dwMinorVersion,
                        .build = record.dwBuildNumber,
                        .platformId = record.dwPlatformId,
                        .servicePack = &record.szCSDVersion[0],
                        .suiteMask = record.wSuiteMask,
                        .productType = record.wProductType,
                        .architecture = ProcessorArchitecture()};
}

}  // namespace platform
