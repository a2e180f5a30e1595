#include "tests/support/log_fixture.h"

#include <cstdlib>
#include <sstream>

#include "frames/own_images.h"
#include "log/diagnostic_log.h"
#include "log/working_folders.h"
#include "tests/support/run_program.h"

std::vector<std::string> LogMessages(const std::string& log) {
  std::vector<std::string> messages;
  std::istringstream lines(log);
  for (std::string line; std::getline(lines, line);) {
    messages.push_back(line.substr(line.find("] ") + 2));
  }
  return messages;
}

LogFixture::LogFixture() {
  g_tempRoot = temp_.Path();
  InitLog(g_tempRoot + "\\log.txt", true);
}

LogFixture::~LogFixture() {
  for (const auto& [name, value] : variables_) {
    SetProcessVariable(name, value ? value->c_str() : nullptr);
  }
  g_tempRoot.Empty();
  g_ownImages = false;
}

void LogFixture::SetVariable(const std::string& name, const char* value) {
  const char* const before = std::getenv(name.c_str());
  variables_.try_emplace(name,
                         before == nullptr ? std::nullopt : std::optional<std::string>(before));
  SetProcessVariable(name, value);
}
