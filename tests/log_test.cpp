#include <gmock/gmock.h>

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
  std::tm local = {};
  int* const fields[] = {&local.tm_hour, &local.tm_min, &local.tm_sec,
                         &local.tm_mday, &local.tm_mon, &local.tm_year};
  for (std::size_t k = 0; k < 6; ++k) {
    *fields[k] = std::stoi(parts[k + 1]);
  }
  local.tm_mon -= 1;
  local.tm_year -= 1900;
  local.tm_isdst = -1;
  const std::time_t written = std::mktime(&local);
  EXPECT_GE(written, before);
  EXPECT_LE(written, std::time(nullptr));
  EXPECT_FALSE(std::regex_search(text, std::regex(R"([\[:\- ]0\d)"))) << "no leading zeros";
}

TEST_F(LogFixture, InexactPathLiesInTheDatedFolderUnderTheTempRoot) {
  SetVariable("TESSARA_TEMP_PATH", temp_.Path().c_str());
  const std::time_t before = std::time(nullptr);
  InitLog("inexact.txt", false);
  const std::time_t after = std::time(nullptr);
  const std::string start = "Orbitane-";
  for (std::time_t second = before; second <= after; ++second) {
    const std::tm local = *std::localtime(&second);
    CString name;
    name.Format("%d-%d-%d-%d-%d-%d", local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
                local.tm_hour, local.tm_min, local.tm_sec);
    temp_.MakeFolder(start + name.GetString());
  }
  WriteLog("line");
  std::string text;
  for (const std::string& name : temp_.Names()) {
    text += temp_.Read(name + "/inexact.txt");
  }
  EXPECT_THAT(LogMessages(text), ElementsAre("line"));
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
