#include "tests/support/variables.h"

#include <cstdlib>

namespace {

void SetNow(const std::string& name, const char* value) {
#ifdef _WIN32
  _putenv_s(name.c_str(), value == nullptr ? "" : value);
#else
  value == nullptr ? unsetenv(name.c_str()) : setenv(name.c_str(), value, 1);
#endif
}

}  // namespace

Variables::~Variables() {
  for (const auto& [name, value] : before_) {
    SetNow(name, value ? value->c_str() : nullptr);
  }
}

void Variables::Set(const std::string& name, const char* value) {
  const char* const before = std::getenv(name.c_str());
  before_.try_emplace(name, before == nullptr ? std::nullopt : std::optional<std::string>(before));
  SetNow(name, value);
}

void Variables::SetTemporaryFolder(const std::string& path) {
  for (const char* name : {"TMPDIR", "TMP", "TEMP"}) {
    Set(name, path.c_str());
  }
}
