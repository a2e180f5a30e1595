// Feeds arbitrary names, one a line, to the ordering of frames and compares it with the literal
// rules.
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "frames/get_cae_data.h"
#include "log/diagnostic_log.h"
#include "tests/reference/literal_ordering.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  // Lines that go nowhere cost the least.
  InitLog("missing folder\\log.txt", true);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::istringstream lines(std::string(data, data + size));
  k3dGetCAEData frames;
  std::vector<std::string> names;
  for (std::string name; std::getline(lines, name);) {
    // No file name holds these.
    if (!name.empty() && name.find('\\') == std::string::npos &&
        name.find('\0') == std::string::npos) {
      names.push_back(name);
      frames.m_saFileNames.Add(name);
    }
  }
  if (names.empty()) {
    return 0;
  }
  LiteralResult expected = OrderLiterally(names);
  frames.GetCommonFileName();
  frames.GetCAEData();
  std::vector<std::string> paths;
  for (const std::string& name : expected.frames) {
    paths.push_back("\\" + name);
  }
  const std::vector<std::string> made(frames.m_saImageFiles.begin(), frames.m_saImageFiles.end());
  if (frames.m_sCommonStr.GetString() != expected.commonPart || made != paths) {
    std::abort();
  }
  return 0;
}
