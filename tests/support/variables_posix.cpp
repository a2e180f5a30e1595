#include <cstdlib>

#include "tests/support/run_program.h"

void SetProcessVariable(const std::string& name, const char* value) {
  if (value == nullptr) {
    unsetenv(name.c_str());
  } else {
    setenv(name.c_str(), value, 1);
  }
}
