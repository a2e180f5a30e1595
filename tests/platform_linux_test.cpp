#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "platform/folder_listing.h"
#include "platform/linux/command_line_splitter.h"
#include "tests/support/program_fixture.h"

namespace {

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

TEST_F(LinuxTest, ListingIsSortedAndLeavesOutNamesThatNoPathCanName) {
  frames_.WriteAll({"b", "B", "a10", "a2", "_", "Z", "back\\slash", "-"});
  EXPECT_THAT(platform::ListFolder(frames_.Path()).value(),
              ElementsAre(".", "..", "-", "_", "a10", "a2", "B", "b", "Z"));
}

// Loading it takes several times as long as the rest of a run.
TEST_F(LinuxTest, AMovieDoesNotLoadTheImageLibrary) {
  UseRecordingConverter();
  frames_.WriteAll({"a1.png", "a2.png"});
  SetVariable("LD_DEBUG", "files");
  const ProgramResult result = Run({frames_.Path(), "out.gif"});
  EXPECT_FALSE(Record().empty());
  EXPECT_THAT(result.errors, HasSubstr("libc.so"));
  EXPECT_THAT(result.errors, Not(HasSubstr("libgdiplus")));
}

}  // namespace
