#include <cstdlib>

#include "tests/support/run_program.h"

void SetProcessVariable(const std::string& name, const char* value) {
  _putenv_s(name.c_str(), value == nullptr ? "" : value);
}
