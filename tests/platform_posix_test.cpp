#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "platform/files.h"
#include "platform/folder_listing.h"
#include "platform/posix/command_line_splitter.h"
#include "tests/support/program_fixture.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using Words = std::vector<std::string>;

TEST(CommandLineSplitter, FollowsTheQuotingRules) {
  const struct {
    std::string line;
    Words words;
  } kCases[] = {
      {"", {""}},
      {"name", {"name"}},
      {" a  b\tc ", {"", "a", "b", "c"}},
      {R"( "a b" c"d e"f "")", {"", "a b", "cd ef", ""}},
      {R"( "a\b" \\x\)", {"", R"(a\b)", R"(\\x\)"}},
      {R"( "a\"b" "c\\" d\\"e f" g\\\"h)", {"", R"(a"b)", R"(c\)", R"(d\e f)", R"(g\"h)"}},
      {R"( "a""b c" d)", {"", R"(a"b c)", "d"}},
      {R"( "never closed )", {"", "never closed "}},
      {R"(na"me x" y)", {R"(na"me)", "x y"}},
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

TEST_F(PosixTest, QuotesInNamesBreakTheParametersAndNothingElse) {
  UseRecordingConverter();
  frames_.WriteAll({"a\"1.png", "a\"2.png", "it's \"3.png", "kept.txt"});
  const ProgramResult result = Run({frames_.Path(), "o\"ut.gif"});
  EXPECT_EQ(result.output, kSuccess);
  EXPECT_THAT(frames_.Names(), ElementsAre("it's \"3.png", "kept.txt"));
}

TEST_F(PosixTest, LongPathsWork) {
  UseRecordingConverter();
  std::string folder = "sub";
  for (int depth = 0; depth < 12; ++depth) {
    frames_.MakeFolder(folder);
    folder += "/" + std::string(100, 'd');
  }
  frames_.MakeFolder(folder);
  frames_.WriteAll({folder + "/a1.png", folder + "/a2.png"});
  EXPECT_EQ(Run({frames_ / folder, "out.mp4"}).output, kSuccess);
  EXPECT_EQ(frames_.Read(folder + "/a1.png"), "") << "used and deleted";
}

TEST_F(PosixTest, BoxIsALineOnStandardError) {
  frames_.Write("a1.png");
  EXPECT_EQ(Run({frames_.Path(), "out.mp4"}).errors,
            "Tessara: Input folder doesn't have sufficient image files to create movie!!!\n");
}

TEST_F(PosixTest, RealConverterKeepsAnExistingMovie) {
  UseRealConverter();
  output_.Write("out.mp4", "old");
  frames_.WriteAll({"a1.png", "a2.png"});
  EXPECT_EQ(Run({frames_.Path(), "out.mp4"}).output, kSuccess);
  EXPECT_EQ(output_.Read("out.mp4"), "old");
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
    const ProgramResult result = RunProgram(
        "/usr/bin/setpriv",
        {"--reuid=65534", "--clear-groups", home_.Path() + "/program", frames_.Path(), "o.gif"},
        "/");
    EXPECT_EQ(result.errors, "");
    EXPECT_THAT(frames_.Names(), ElementsAre("a1.png", "a2.png"));
    return result.output;
  };
  EXPECT_EQ(run(0311, 0777), "\n\nFailed to create AVI\n\n") << "cannot be listed";
  EXPECT_THAT(Log(), Not(Contains(HasSubstr("No of Image Files"))));
  EXPECT_EQ(run(0555, 0777), kSuccess) << "cannot be written to";
  EXPECT_THAT(
      Log(),
      Contains(
          "TessaraAnimationConsole::k3dAviCreator::CreateAVI():no temp image files are created for ffmpeg"));
  const std::size_t logged = Log().size();
  chmod((temp_.Path() + "/TessaraMovieConsole_Log.txt").c_str(), 0444);
  EXPECT_EQ(run(0555, 0555), kSuccess) << "the log cannot be written";
  EXPECT_EQ(Log().size(), logged);
}

}  // namespace
