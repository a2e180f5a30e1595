#include <gmock/gmock.h>

#include <ctime>
#include <regex>
#include <sstream>
#include <string>

#include "log/diagnostic_log.h"
#include "log/working_folders.h"
#include "platform/files.h"
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

TEST_F(LogFixture, PathWithoutFolderIsTakenFromTheCurrentOne) {
  const std::string before = platform::CurrentFolder();
  ASSERT_TRUE(platform::EnterFolder(temp_.Path()));
  InitLog("here.txt", true);
  WriteLog("line");
  platform::EnterFolder(before);
  EXPECT_THAT(LogMessages(temp_.Read("here.txt")), ElementsAre("line"));
}

TEST_F(LogFixture, InexactPathLiesInTheDatedFolderUnderTheTempRoot) {
  SetVariable("TESSARA_TEMP_PATH", temp_.Path().c_str());
  CString dated;
  do {  // The second may pass between the calls.
    dated = GetDatedFolderName(temp_.Path());
    InitLog("inexact.txt", false);
  } while (!(GetDatedFolderName(temp_.Path()) == dated));
  const std::string name = dated.Mid(static_cast<int>(temp_.Path().size()) + 1);
  EXPECT_TRUE(
      std::regex_match(name, std::regex(R"(Orbitane-20\d\d-[1-9]\d?-[1-9]\d?(-(0|[1-9]\d?)){3})")));
  WriteLog("lost, since the folder is not made by the log");
  temp_.MakeFolder(name);
  WriteLog("line");
  EXPECT_THAT(LogMessages(temp_.Read(name + "/inexact.txt")), ElementsAre("line"));
}

TEST_F(LogFixture, TempRootComesFromTheFirstVariableThatIsSet) {
  const std::string root = temp_.Path();
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
  ASSERT_TRUE(platform::EnterFolder(root));
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
