#include <gmock/gmock.h>
#include <poll.h>

#include <filesystem>
#include <string>
#include <vector>

#include "platform/folder_listing.h"
#include "platform/linux/command_line_splitter.h"
#include "platform/linux/guarded_group.h"
#include "platform/paths.h"
#include "platform/program_search.h"
#include "tests/support/program_fixture.h"
#include "tests/support/variables.h"

namespace {

using namespace testing;
namespace fs = std::filesystem;

TEST(ProgramSearch, TakesEachPartOfThePathTheEmptyOnesToo) {
  Variables here;
  here.Set("PATH", "/a::/b:");
  EXPECT_THAT(platform::ProgramSearchFolders(), ElementsAre("/a", "", "/b", ""));
}

TEST(CommandLineSplitter, FollowsTheQuotingRules) {
  const struct {
    std::string line;
    std::vector<std::string> words;
  } kCases[] = {
      {"", {""}},
      {" a  b\tc ", {"", "a", "b", "c"}},
      {R"( "a b" c"d e"f "")", {"", "a b", "cd ef", ""}},
      {R"( "a\b" \\x\)", {"", R"(a\b)", R"(\\x\)"}},
      {R"( "a\"b" "c\\" d\\"e f" g\\\"h)", {"", R"(a"b)", R"(c\)", R"(d\e f)", R"(g\"h)"}},
      {R"( "a""b c" d)", {"", R"(a"b c)", "d"}},
      {R"(na"me "never closed )", {R"(na"me)", "never closed "}},
      {R"( "closed"")", {"", R"(closed")"}},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(platform::SplitCommandLine(c.line), c.words) << c.line;
  }
}

class LinuxTest : public ProgramFixture {};

TEST(GuardedGroup, KeepsNoOthersPipeOpen) {
  platform::Pipe pipe = platform::MakePipe();
  // Its own are between these.
  platform::Descriptor last(fcntl(pipe.writing.Get(), F_DUPFD_CLOEXEC, 100));
  const platform::GuardedGroup group;
  pipe.writing.Close();
  last.Close();
  pollfd end = {pipe.reading.Get(), POLLIN, 0};
  EXPECT_EQ(poll(&end, 1, 5000), 1);
}

TEST_F(LinuxTest, ListingIsSortedAndLeavesOutNamesThatNoPathCanName) {
  frames_.WriteAll({"b", "B", "a10", "a2", "_", "Z", "back\\slash", "-"});
  EXPECT_THAT(platform::ListFolder(frames_.Path()).value(),
              ElementsAre(".", "..", "-", "_", "a10", "a2", "B", "b", "Z"));
}

TEST_F(LinuxTest, TheFolderAboveALinkIsThatOfItsTarget) {
  const fs::path root = fs::canonical(frames_.Path());
  frames_.Write("real/sub/file");
  fs::create_directory_symlink("real/sub", root / "link");
  const struct {
    const char *path, *full;
  } kCases[] = {
      {"link/..//./x.mp4", "real/x.mp4"},
      {"real/sub/..", "real"},
      {"none/../x", "none/../x"},
      {"link/", "link"},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(platform::FullPath(root / c.path).native(), (root / c.full).native());
  }
}

// Loading it takes several times as long as the rest of a run.
TEST_F(LinuxTest, AMovieDoesNotLoadTheImageLibrary) {
  UseRecordingConverter();
  frames_.WriteAll({"a1.png", "a2.png"});
  SetVariable("LD_DEBUG", "files");
  const std::string loaded = Run({frames_.Path(), "out.gif"}).errors;
  EXPECT_THAT(loaded, HasSubstr("libc.so"));
  EXPECT_THAT(loaded, Not(HasSubstr("libgdiplus")));
}

}  // namespace
