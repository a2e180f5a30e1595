#include <gmock/gmock.h>

#include <ctime>
#include <iomanip>
#include <regex>
#include <sstream>
#include <string>

#include "log/diagnostic_log.h"
#include "log/working_folders.h"
#include "platform/folders.h"
#include "tests/support/log_fixture.h"

namespace {

using namespace testing;

TEST_F(LogFixture, LinesCarryTheLocalTimeAndFollowThoseOfEarlierRuns) {
  const std::time_t before = std::time(nullptr);
  WriteLog("first");
  InitLog(temp_ / "log.txt", true);
  WriteLog("");
  WriteLog("two\nlines");
  const std::string text = temp_.Read("log.txt");
  const std::regex form(
      R"(\[(\d+:\d+:\d+, \d+-\d+-\d{4})\] first\n\[[^\]]*\] \n\[[^\]]*\] two\nlines\n)");
  std::smatch parts;
  ASSERT_TRUE(std::regex_match(text, parts, form)) << text;
  std::tm local = {};
  std::istringstream(parts[1]) >> std::get_time(&local, "%H:%M:%S, %d-%m-%Y");
  local.tm_isdst = -1;
  EXPECT_GE(std::mktime(&local), before);
  EXPECT_LE(std::mktime(&local), std::time(nullptr));
  EXPECT_FALSE(std::regex_search(text, std::regex(R"([\[:\- ]0\d)"))) << "no leading zeros";
}

TEST_F(LogFixture, InexactPathLiesInTheDatedFolderUnderTheTempRoot) {
  SetVariable("TESSARA_TEMP_PATH", temp_.Path().c_str());
  const std::time_t before = std::time(nullptr);
  InitLog("inexact.txt", false);
  const std::time_t after = std::time(nullptr);
  for (std::time_t second = before; second <= after; ++second) {
    std::ostringstream name;
    name << std::put_time(std::localtime(&second), "Orbitane-%Y-%m-%d-%H-%M-%S");
    temp_.Write(std::regex_replace(name.str(), std::regex("-0"), "-") + "/inexact.txt", "");
  }
  WriteLog("line");
  std::string text;
  for (const std::string& name : temp_.Names()) {
    text += temp_.Read(name + "/inexact.txt");
  }
  EXPECT_THAT(LinesAfter("] ", text), ElementsAre("line"));
}

TEST_F(LogFixture, TempRootComesFromTheFirstVariableThatIsSet) {
  temp_.WriteAll({"special/Tessara", "plain/other"});
  const struct {
    const char *chosen, *temp, *expected;
  } kCases[] = {
      {"chosen", "plain", "chosen"},
      {"missing\\chosen", "plain", "missing\\chosen"},
      {nullptr, "plain", "plain\\Tessara"},
      {nullptr, "plain", "plain\\Tessara"},
      {nullptr, "special", "special"},
      {nullptr, "missing", "missing"},
      {nullptr, nullptr, "tmp"},
  };
  const std::string before = platform::CurrentFolder();
  ASSERT_TRUE(platform::EnterFolder(temp_.Path()));
  SetVariable("TMP", "tmp");
  for (const auto& c : kCases) {
    SetVariable("TESSARA_TEMP_PATH", c.chosen);
    SetVariable("TEMP", c.temp);
    EXPECT_EQ(GetTempRootFolder(), c.expected);
  }
  SetVariable("TMP", nullptr);
  SetVariable("TMPDIR", "plain");
  EXPECT_EQ(GetTempRootFolder().Right(8), "\\Tessara");
  EXPECT_TRUE(std::filesystem::is_directory("plain/Tessara"));
  platform::EnterFolder(before);
  EXPECT_THAT(temp_.Names(), ElementsAre("chosen", "plain", "special"));
}

}  // namespace
