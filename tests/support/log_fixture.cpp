#include "tests/support/log_fixture.h"

#include <sstream>

std::vector<std::string> LogMessages(const std::string& log) {
  std::vector<std::string> messages;
  std::istringstream lines(log);
  for (std::string line; std::getline(lines, line);) {
    messages.push_back(line.substr(line.find("] ") + 2));
  }
  return messages;
}
