#include <gmock/gmock.h>

#include <array>
#include <ctime>
#include <regex>
#include <string>

#include "log/diagnostic_log.h"
#include "log/working_folders.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "tests/support/log_fixture.h"

namespace {

using testing::ElementsAre;

// The local time in a text; `groups` says which groups of `parts` hold the year, the month, the
// day, the hour, the minute and the second.
std::time_t TimeIn(const std::smatch& parts, const std::array<std::size_t, 6>& groups) {
  const auto part = [&](std::size_t index) { return std::stoi(parts[groups[index]]); };
  std::tm written = {};
  written.tm_year = part(0) - 1900;
  written.tm_mon = part(1) - 1;
  written.tm_mday = part(2);
  written.tm_hour = part(3);
  written.tm_min = part(4);
  written.tm_sec = part(5);
  written.tm_isdst = -1;
  return std::mktime(&written);
}

TEST_F(LogFixture, LinesCarryTheLocalTimeAndFollowThoseOfEarlierRuns) {
  const std::time_t before = std::time(nullptr);
  WriteLog("first");
  InitLog(temp_ / "log.txt", true);
  WriteLog("");
  WriteLog("two\nlines");
  const std::string text = temp_.Read("log.txt");
  const std::regex form(
      R"(\[(\d+):(\d+):(\d+), (\d+)-(\d+)-(\d{4})\] first\n\[[^\]]*\] \n\[[^\]]*\] two\nlines\n)");
  std::smatch parts;
  ASSERT_TRUE(std::regex_match(text, parts, form));
  const std::time_t written = TimeIn(parts, {6, 5, 4, 1, 2, 3});
  EXPECT_GE(written, before);
  EXPECT_LE(written, std::time(nullptr));
  EXPECT_FALSE(std::regex_search(text, std::regex(R"([\[:\- ]0\d)"))) << "no leading zeros";
}

TEST_F(LogFixture, InexactPathLiesInTheDatedFolderUnderTheTempRoot) {
  SetVariable("TESSARA_TEMP_PATH", temp_.Path().c_str());
  const std::time_t before = std::time(nullptr);
  CString dated;
  do {  // The second may pass between the calls.
    dated = GetDatedFolderName(temp_.Path());
    InitLog("inexact.txt", false);
  } while (!(GetDatedFolderName(temp_.Path()) == dated));
  const std::string name = dated.Mid(static_cast<int>(temp_.Path().size()) + 1);
  const std::regex form(
      R"(Orbitane-(\d{4})-([1-9]\d?)-([1-9]\d?)-(0|[1-9]\d?)-(0|[1-9]\d?)-(0|[1-9]\d?))");
  std::smatch parts;
  ASSERT_TRUE(std::regex_match(name, parts, form)) << name;
  EXPECT_GE(TimeIn(parts, {1, 2, 3, 4, 5, 6}), before);
  EXPECT_LE(TimeIn(parts, {1, 2, 3, 4, 5, 6}), std::time(nullptr));
  WriteLog("lost, since the folder is not made by the log");
  temp_.MakeFolder(name);
  WriteLog("line");
  EXPECT_THAT(LogMessages(temp_.Read(name + "/inexact.txt")), ElementsAre("line"));
}

TEST_F(LogFixture, TempRootComesFromTheFirstVariableThatIsSet) {
  temp_.MakeFolder("special");
  temp_.Write("special/Tessara");
  temp_.MakeFolder("plain");
  const struct {
    const char *chosen, *temp, *tmp;
    std::string expected;
    const char* created;
  } kCases[] = {
      {"chosen", "plain", "tmp", "chosen", "chosen"},
      {"missing\\chosen", "plain", "tmp", "missing\\chosen", nullptr},
      {nullptr, "plain", "tmp", "plain\\Tessara", "plain/Tessara"},
      {nullptr, "plain", "tmp", "plain\\Tessara", "plain/Tessara"},
      {nullptr, "special", "tmp", "special", nullptr},
      {nullptr, "missing", "tmp", "missing", nullptr},
      {nullptr, nullptr, "tmp", "tmp", nullptr},
  };
  const std::string before = platform::CurrentFolder();
  ASSERT_TRUE(platform::EnterFolder(temp_.Path()));
  for (const auto& c : kCases) {
    SetVariable("TESSARA_TEMP_PATH", c.chosen);
    SetVariable("TEMP", c.temp);
    SetVariable("TMP", c.tmp);
    EXPECT_EQ(GetTempRootFolder(), c.expected);
    if (c.created != nullptr) {
      EXPECT_EQ(platform::QueryAttributes(c.created), platform::kFolderAttribute) << c.created;
    }
  }
  SetVariable("TMP", nullptr);
  SetVariable("TMPDIR", "plain");
  EXPECT_EQ(GetTempRootFolder().Right(8), "\\Tessara");
  platform::EnterFolder(before);
}

}  // namespace
