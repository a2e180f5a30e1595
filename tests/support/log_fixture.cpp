#include "tests/support/log_fixture.h"

#include <sstream>

#include "frames/own_images.h"
#include "log/diagnostic_log.h"
#include "log/working_folders.h"

std::vector<std::string> LinesAfter(const std::string& start, const std::string& text) {
  std::vector<std::string> found;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (const std::size_t at = line.find(start); at != std::string::npos) {
      found.push_back(line.substr(at + start.size()));
    }
  }
  return found;
}

LogFixture::LogFixture() {
  g_tempRoot = temp_.Path();
  InitLog(g_tempRoot + "\\log.txt", true);
}

LogFixture::~LogFixture() {
  g_tempRoot = "";
  g_ownImages = false;
}
