#include <gmock/gmock.h>

#include <ctime>
#include <regex>

#include "log/diagnostic_log.h"
#include "log/working_folders.h"
#include "platform/folders.h"
#include "tests/support/log_fixture.h"
#include "tests/support/run_program.h"

namespace {

using testing::ElementsAre;

TEST_F(LogFixture, LinesCarryTheLocalTimeAndFollowThoseOfEarlierRuns) {
  const std::time_t before = std::time(nullptr);
  WriteLog("first");
  InitLog(g_tempRoot + "\\log.txt", true);
  WriteLog("");
  WriteLog("two\nlines");
  const std::string text = temp_.Read("log.txt");
  std::smatch parts;
  ASSERT_TRUE(std::regex_match(text, parts,
                               std::regex(R"(\[(\d+):(\d+):(\d+), (\d+)-(\d+)-(\d{4})\] first\n)"
                                          R"(\[[^\]]*\] \n\[[^\]]*\] two\nlines\n)")));
  std::tm written = {};
  written.tm_hour = std::stoi(parts[1]);
  written.tm_min = std::stoi(parts[2]);
  written.tm_sec = std::stoi(parts[3]);
  written.tm_mday = std::stoi(parts[4]);
  written.tm_mon = std::stoi(parts[5]) - 1;
  written.tm_year = std::stoi(parts[6]) - 1900;
  written.tm_isdst = -1;
  EXPECT_GE(std::mktime(&written), before);
  EXPECT_LE(std::mktime(&written), std::time(nullptr));
  EXPECT_FALSE(std::regex_search(text, std::regex(R"([\[:\- ]0\d)"))) << "no leading zeros";
}

}  // namespace
