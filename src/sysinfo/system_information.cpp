#include "sysinfo/system_information.h"

#include <algorithm>
#include <array>
#include <cwchar>
#include <locale>
#include <optional>
#include <string>
#include <variant>

#include "log/diagnostic_log.h"
#include "platform/memory_counters.h"
#include "platform/program.h"
#include "platform/system_version.h"
#include "sysinfo/describe_system.h"

void LogVersionInfo() {
  WriteLog("TessaraAnimationConsole: Version: " TESSARA_VERSION);
  WriteLog(platform::ApplicationLine());
}

void LogOSVersion() {
  std::array<wchar_t, 1024> description = {};
  GetVersionString(description.data(), description.size());
  const auto& characters = std::use_facet<std::ctype<wchar_t>>(std::locale());
  std::string narrow(std::wcslen(description.data()), '\0');
  characters.narrow(description.data(), description.data() + narrow.size(), '?', narrow.data());
  WriteLog("TessaraAnimationConsole: OS Version: " + CString(narrow));
}

bool GetVersionString(wchar_t* text, std::size_t capacity) {
  const std::optional<platform::SystemVersion> version = platform::QuerySystemVersion();
  if (!version || capacity == 0) {
    return false;
  }
  const std::optional<std::string> description =
      std::visit([](const auto& known) { return DescribeSystem(known); }, *version);
  if (!description) {
    return false;
  }
  *std::copy_n(description->begin(), std::min(description->size(), capacity - 1), text) = L'\0';
  return true;
}

CString LogPeakMemoryUsage() {
  const std::optional<platform::MemoryCounters> counters = platform::QueryMemoryCounters();
  if (!counters) {
    return "";
  }
  return std::to_string(counters->workingSetBytes >> 10) + " Kb\t\t" +
         "Peak Memory Usage :" + std::to_string(counters->peakWorkingSetBytes >> 10) + " Kb\t";
}
