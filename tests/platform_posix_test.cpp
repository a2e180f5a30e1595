#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "platform/folder_listing.h"
#include "platform/posix/command_line_splitter.h"
#include "tests/support/program_fixture.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using Words = std::vector<std::string>;

TEST(CommandLineSplitter, FollowsTheQuotingRules) {
  const struct {
    std::string line;
    Words words;
  } kCases[] = {
      {"", {""}},
      {" a  b\tc ", {"", "a", "b", "c"}},
      {R"( "a b" c"d e"f "")", {"", "a b", "cd ef", ""}},
      {R"( "a\b" \\x\)", {"", R"(a\b)", R"(\\x\)"}},
      {R"( "a\"b" "c\\" d\\"e f" g\\\"h)", {"", R"(a"b)", R"(c\)", R"(d\e f)", R"(g\"h)"}},
      {R"( "a""b c" d)", {"", R"(a"b c)", "d"}},
      {R"(na"me "never closed )", {R"(na"me)", "never closed "}},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(platform::SplitCommandLine(c.line), c.words) << c.line;
  }
}

constexpr char kSuccess[] = "\n\n Animation created successfully!!!\n\n";

class PosixTest : public ProgramFixture {};

TEST_F(PosixTest, ListingIsSortedAndLeavesOutNamesThatNoPathCanName) {
  frames_.WriteAll({"b", "B", "a10", "a2", "_", "Z", "back\\slash", "-"});
  EXPECT_THAT(platform::ListFolder(frames_.Path()).value(),
              ElementsAre(".", "..", "-", "_", "a10", "a2", "B", "b", "Z"));
}

// Loading it takes several times as long as the rest of a run.
TEST_F(PosixTest, AMovieDoesNotLoadTheImageLibrary) {
  UseRecordingConverter();
  frames_.WriteAll({"a1.png", "a2.png"});
  SetVariable("LD_DEBUG", "files");
  const ProgramResult result = Run({frames_.Path(), "out.gif"});
  EXPECT_EQ(result.output, kSuccess);
  EXPECT_THAT(result.errors, HasSubstr("libc.so"));
  EXPECT_THAT(result.errors, Not(HasSubstr("libgdiplus")));
}

// As an ordinary user, whom the folders' rights bind.
TEST_F(PosixTest, FoldersWithoutRights) {
  if (geteuid() != 0) {
    GTEST_SKIP() << "takes root to become an ordinary user";
  }
  UseRecordingConverter();
  frames_.WriteAll({"a1.png", "a2.png"});
  const auto run = [this](mode_t framesMode, mode_t tempMode) {
    chmod(home_.Path().c_str(), 0777);
    chmod(frames_.Path().c_str(), framesMode);
    chmod(temp_.Path().c_str(), tempMode);
    const Words arguments = {"--reuid=65534", "--clear-groups", home_.Path() + "/program",
                             frames_.Path(), "o.gif"};
    const ProgramResult result = RunProgram("/usr/bin/setpriv", arguments, "/");
    EXPECT_EQ(result.errors, "");
    EXPECT_THAT(frames_.Names(), ElementsAre("a1.png", "a2.png"));
    return result.output;
  };
  EXPECT_EQ(run(0311, 0777), "\n\nFailed to create AVI\n\n") << "cannot be listed";
  EXPECT_EQ(run(0555, 0777), kSuccess) << "cannot be written to";
  EXPECT_THAT(Log(), Contains(EndsWith("CreateAVI():no temp image files are created for ffmpeg")));
  const std::size_t logged = Log().size();
  chmod((temp_.Path() + "/TessaraMovieConsole_Log.txt").c_str(), 0444);
  EXPECT_EQ(run(0555, 0555), kSuccess) << "the log cannot be written";
  EXPECT_EQ(Log().size(), logged);
}

}  // namespace
