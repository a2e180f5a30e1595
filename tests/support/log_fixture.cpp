#include "tests/support/log_fixture.h"

#include <sstream>

#include "frames/own_images.h"
#include "log/diagnostic_log.h"
#include "log/working_folders.h"

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
  g_tempRoot = "";
  g_ownImages = false;
}
