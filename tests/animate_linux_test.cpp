// TessaraAnimate with converters that misbehave, which scripts play here.
#include <gmock/gmock.h>

#include <csignal>
#include <filesystem>

#include "tests/support/run_program.h"
#include "tests/support/temp_folder.h"
#include "tests/support/variables.h"

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using Words = std::vector<std::string>;

// Starts a process that would go on, and notes its number.
const std::string kBusy = "sleep 100 & echo $! > ${0%/*}/pid; ";
const std::string kGood = R"(exec /usr/bin/ffmpeg "$@")";

class AnimateLinuxTest : public testing::Test {
 protected:
  AnimateLinuxTest() {
    RunProgram(
        "/usr/bin/ffmpeg",
        {"-v", "error", "-f", "lavfi", "-i", "testsrc2=s=128x96:r=2", "-frames:v", "12", "%d.png"},
        frames_.Path());
    output_.Write("out.avi", "old");
  }
  ~AnimateLinuxTest() override { EXPECT_THAT(temp_.Names(), IsEmpty()) << "left behind"; }

  // Runs the program, after `prefix`, with a converter that lists its encoders and reads files back
  // as a good one does, or lists `encoders`, and otherwise runs `script`.
  ProgramResult RunWith(const std::string& script, Words prefix = {}, const Words& options = {},
                        const std::string& encoders = "") {
    const std::string list = encoders.empty() ? kGood : "echo '" + encoders + "'; exit";
    converter_.Write("ffmpeg", "#!/bin/bash\ncase \"$*\" in\n  *-encoders*) " + list +
                                   " ;;\n  *framecrc*) " + readBack_ + " ;;\nesac\n" + script +
                                   "\n");
    const fs::path converter = fs::path(converter_.Path()) / "ffmpeg";
    fs::permissions(converter, fs::perms::owner_all);
    Variables here;
    here.SetTemporaryFolder(temp_.Path());
    prefix.insert(prefix.end(), {TESSARA_ANIMATE, frames_.Path(), result_, "--overwrite",
                                 "--converter", converter.string()});
    prefix.insert(prefix.end(), options.begin(), options.end());
    return RunProgram(prefix[0], {prefix.begin() + 1, prefix.end()}, output_.Path());
  }

  void ExpectNothingChanged() {
    EXPECT_THAT(output_.Names(), ElementsAre("out.avi"));
    EXPECT_EQ(output_.Read("out.avi"), "old");
    EXPECT_EQ(frames_.Names().size(), 12U);
  }

  // That of kBusy; one that is only waited for has no program any more.
  void ExpectBusyOneGone() {
    const std::string number = converter_.Read("pid");
    ASSERT_NE(number, "");
    const std::string program = "/proc/" + number.substr(0, number.find('\n')) + "/exe";
    for (int tries = 0; tries < 100 && fs::exists(program); ++tries) {
      RunProgram("/bin/sleep", {"0.02"}, "/");
    }
    EXPECT_FALSE(fs::exists(program));
  }

  // How files are read back, and what is made.
  std::string readBack_ = kGood;
  std::string result_ = "out.avi";
  TempFolder frames_;
  TempFolder output_;
  TempFolder converter_;
  TempFolder temp_;
};

TEST_F(AnimateLinuxTest, BelievesNoConverter) {
  const struct {
    const char* script;
    const char* message;
  } kCases[] = {
      {"exit 3", "status 3"},
      {"exit 0", "cannot be read back"},
      {"kill -9 $$", "signal Killed"},
      {R"(echo '[x @ 0x5] [error] Something is wrong' >&2; exec /usr/bin/ffmpeg "$@")",
       "Something is wrong"},
      // It loses a frame, plays at another rate, makes another size, or cuts the file.
      {R"(set -- "${@:1:$#-1}" -frames:v 11 "${@: -1}"; exec /usr/bin/ffmpeg "$@")",
       "does not show as many pictures"},
      {R"(exec /usr/bin/ffmpeg "${@/#16/15}")", "instead of 0.688 s"},
      {R"(exec /usr/bin/ffmpeg "${@/;\[a\]/;[a]scale=64:64,}")", "another size"},
      {R"(/usr/bin/ffmpeg "$@"; for f; do [[ $f != *.avi ]] || truncate -s -600 "$f"; done)",
       "cannot be read back"},
  };
  for (const auto& c : kCases) {
    const ProgramResult result = RunWith(c.script);
    EXPECT_EQ(result.exitStatus, 1) << c.script;
    EXPECT_THAT(result.errors, HasSubstr(c.message));
    EXPECT_THAT(result.errors, testing::Not(HasSubstr("no encoder")));
    EXPECT_EQ(result.output, "");
    ExpectNothingChanged();
  }
}

TEST_F(AnimateLinuxTest, NoticesOtherPictures) {
  const struct {
    const char* filter;
    const char* message;
  } kCases[] = {
      // All: in other colours, mirrored, shifted.
      {"negate", "another picture in place of \"1.png\""},
      {"hflip", "another picture"},
      {"lutrgb=r=val-24", "another picture"},
      {"lutrgb=g=val+24", "another picture"},
      {"colorchannelmixer=0:0:1:0:0:1:0:0:1:0:0", "another picture"},
      {"crop=112:96:16:0,pad=128:96", "another picture"},
      // One: black, or of another film.
      {"drawbox=c=black:t=fill:enable='eq(n,6)'", "another picture in place of \"7.png\""},
      {"negate=enable='eq(n,11)'", "another picture in place of \"12.png\""},
      // Two exchanged, one doubled and one lost, the last ones frozen.
      {"shuffleframes=0 1 2 4 3 5 6 7 8 9 10 11", "picture in place of \"4.png\""},
      {"shuffleframes=0 1 2 2 4 5 6 7 8 9 10 11", "picture in place of \"4.png\""},
      {"shuffleframes=0 1 2 3 4 5 6 7 8 9 9 9", "picture in place of \"11.png\""},
  };
  for (const auto& c : kCases) {
    const ProgramResult result = RunWith("lie=\"" + std::string(c.filter) +
                                         R"("; exec /usr/bin/ffmpeg "${@/;\[a\]/;[a]$lie,}")");
    EXPECT_EQ(result.exitStatus, 1) << c.filter;
    EXPECT_THAT(result.errors, HasSubstr(c.message));
    ExpectNothingChanged();
  }
}

TEST_F(AnimateLinuxTest, NamesAnEncoderThatIsMissing) {
  const ProgramResult result = RunWith("exit 1", {}, {}, " V..... msmpeg4  MPEG-4");
  EXPECT_THAT(result.errors, HasSubstr("has no encoder for mpeg4, which a .avi file needs"));
}

TEST_F(AnimateLinuxTest, TakesAnotherConverterOrEncoderForH264) {
  // The first in PATH has not what is needed, the second has all.
  const auto run = [&](const std::string& encoder, const std::string& path) {
    converter_.Write("ffmpeg", "#!/bin/bash\nif [[ $* = *-encoders* ]]; then echo ' V....D " +
                                   encoder +
                                   " '; exit; fi\n[[ $* != *libx264* ]] || exit 1\n"
                                   "exec /usr/bin/ffmpeg \"${@/libopenh264/libx264}\"\n");
    fs::permissions(converter_.File("ffmpeg"), fs::perms::owner_all);
    Variables here;
    here.SetTemporaryFolder(temp_.Path());
    here.Set("PATH", path.c_str());
    return RunProgram(TESSARA_ANIMATE, {frames_.Path(), "h264.mp4", "--overwrite"}, output_.Path());
  };
  const ProgramResult other = run("mpeg4", converter_.Path() + ":/usr/bin:/bin");
  EXPECT_THAT(other.errors, HasSubstr("no encoder for libx264; \"/usr/bin/ffmpeg\" is used"));
  EXPECT_THAT(other.output, HasSubstr("12 frames"));
  const ProgramResult second = run("libopenh264", converter_.Path());
  EXPECT_THAT(second.errors, HasSubstr("is used, with libopenh264"));
  EXPECT_THAT(second.output, HasSubstr("12 frames"));
  EXPECT_THAT(run("mpeg4", converter_.Path()).errors, HasSubstr("which a .mp4 file needs"));
}

TEST_F(AnimateLinuxTest, HasEveryPixelOfFewColours) {
  result_ = "out.gif";
  // The frames of the fixture have too many for that.
  EXPECT_THAT(RunWith(kGood).output, HasSubstr("all 12 compared, colours within"));
  RunProgram("/usr/bin/ffmpeg",
             {"-v", "error", "-y", "-f", "lavfi", "-i", "smptebars=s=128x96:r=2", "-frames:v", "12",
              "%d.png"},
             frames_.Path());
  EXPECT_THAT(RunWith(kGood).output, HasSubstr("every pixel exact"));
  // One of them comes out brighter by one.
  readBack_ = R"(for word; do [ "$word" != pipe:1 ] ||
  words+=(-vf 'format=rgba,geq=r=r(X\,Y)+eq(X\,9)*eq(Y\,9):g=g(X\,Y):b=b(X\,Y):a=255')
words+=("$word"); done; exec /usr/bin/ffmpeg "${words[@]}")";
  EXPECT_THAT(RunWith(kGood).errors, HasSubstr("has not every pixel of \"1.png\""));
}

TEST_F(AnimateLinuxTest, HasTheConverterWaitForTheFinishedGif) {
  result_ = "out.gif";
  readBack_ = R"(echo "$*" >> "${0%/*}/starts"; )" + kGood;
  EXPECT_EQ(RunWith(kGood).exitStatus, 0);
  EXPECT_THAT(converter_.Read("starts"), testing::ContainsRegex("^[^\n]*ffmetadata[^\n]*\n$"));
  // One that does not wait is started again.
  readBack_ = "[[ $* != *ffmetadata* ]] || exit 1; " + kGood;
  EXPECT_EQ(RunWith(kGood).exitStatus, 0);
  output_.Clear();
  output_.Write("out.avi", "old");
  readBack_ = "kill -INT $PPID; " + kGood;
  EXPECT_EQ(RunWith(kGood).exitStatus, 130);
  ExpectNothingChanged();
}

TEST_F(AnimateLinuxTest, ShowsItsProgressOnATerminal) {
  const Words terminal = {"/bin/sh", "-c", "exec script -qec \"stty cols 40; $*\" /dev/null", "sh"};
  EXPECT_THAT(RunWith(kGood, terminal).output, HasSubstr("[##########] 12 of 12 frames"));
  EXPECT_THAT(RunWith(kGood, terminal, {"--quiet"}).output,
              testing::Not(HasSubstr("12 of 12 frames")));
  EXPECT_THAT(RunWith(kGood).errors, testing::Not(HasSubstr("12 of 12 frames")));
}

TEST_F(AnimateLinuxTest, LimitsTheThreadsOfDecoderFiltersAndEncoder) {
  const ProgramResult result = RunWith(
      R"([[ $* = *"-filter_threads 2 "*"-threads 2 -noautorotate"*"-threads 2 -f avi"* ]] || exit 7
)" + kGood,
      {}, {"--threads", "2"});
  EXPECT_EQ(result.exitStatus, 0) << result.errors;
}

TEST_F(AnimateLinuxTest, ProvesTheSheetAndPutsTheOldOneBack) {
  output_.Write("sheet.png", "old sheet");
  // What runs behind a good converter puts a folder in the animation's way.
  const std::string blocked =
      "/usr/bin/ffmpeg \"$@\"; cd " + output_.Path() + "; rm -rf out.avi; mkdir out.avi";
  for (const auto& [script, message] :
       {std::pair<std::string, const char*>{
            R"(exec /usr/bin/ffmpeg "${@/;\[a\]tile/;[a]hflip,tile}")",
            "contact sheet shows another"},
        {blocked, "cannot take its place"}}) {
    const ProgramResult result = RunWith(script, {}, {"--contact-sheet", "sheet.png"});
    EXPECT_EQ(result.exitStatus, 1);
    EXPECT_THAT(result.errors, HasSubstr(message));
    EXPECT_EQ(output_.Read("sheet.png"), "old sheet");
    EXPECT_THAT(output_.Names(), testing::UnorderedElementsAre("out.avi", "sheet.png"));
  }
}

TEST_F(AnimateLinuxTest, NoticesAFrameThatIsChangedMeanwhile) {
  const std::string frame = frames_.Path() + "/5.png";
  // Its content and its time are what they were.
  const ProgramResult result =
      RunWith("/usr/bin/ffmpeg \"$@\"; cp -p " + frame + " kept; echo >> " + frame +
                  "; cat kept > " + frame + "; touch -r kept " + frame + "; rm kept",
              {}, {"--delete-frames"});
  EXPECT_EQ(result.exitStatus, 1);
  EXPECT_THAT(result.errors, HasSubstr("\"5.png\" was changed while"));
  ExpectNothingChanged();
}

TEST_F(AnimateLinuxTest, SaysWhichFramesCannotBeDeleted) {
  Variables here;
  here.Set("ASAN_OPTIONS", "detect_leaks=0");
  const ProgramResult result =
      RunWith(kGood,
              {"/usr/bin/strace", "-o", "/dev/null", "-P", frames_.Path() + "/5.png", "-e",
               "inject=unlink:error=EPERM"},
              {"--delete-frames"});
  EXPECT_EQ(result.exitStatus, 0) << result.errors;
  EXPECT_THAT(result.errors, HasSubstr("not deleted: 1 frame: 5.png (Operation not permitted)"));
  EXPECT_THAT(frames_.Names(), ElementsAre("5.png"));
}

TEST_F(AnimateLinuxTest, WorksWhereTheSystemLacksLinksAndRenamingWithoutReplacing) {
  Variables here;
  here.Set("ASAN_OPTIONS", "detect_leaks=0");
  for (const char* lack : {"inject=symlink:error=EPERM", "inject=link,renameat2:error=EPERM"}) {
    const ProgramResult result = RunWith(kGood, {"/usr/bin/strace", "-o", "/dev/null", "-e", lack});
    EXPECT_EQ(result.exitStatus, 0) << result.errors;
    EXPECT_THAT(result.output, HasSubstr("out.avi: 12 frames"));
    EXPECT_THAT(output_.Names(), ElementsAre("out.avi"));
  }
}

TEST_F(AnimateLinuxTest, SaysThatThereIsNoRoomForCopies) {
  // With a hole that is larger than all that is or becomes free, which no fault shall fill.
  fs::resize_file(frames_.File("7.png"), fs::space(temp_.Path()).available + (1ULL << 30U));
  Variables here;
  here.Set("ASAN_OPTIONS", "detect_leaks=0");
  const ProgramResult result = RunWith(
      "exit 3",
      {"/bin/sh", "-c",
       "ulimit -f 9999; exec strace -o /dev/null -e inject=symlink:error=EPERM \"$@\"", "sh"});
  EXPECT_EQ(result.exitStatus, 1);
  EXPECT_THAT(result.errors, HasSubstr("there is no room for copies of the frames in"));
}

TEST_F(AnimateLinuxTest, ReplacesWhatALinkLeadsToUnlessItIsReadOnly) {
  fs::rename(output_.File("out.avi"), output_.File("real"));
  fs::create_symlink("real", output_.File("out.avi"));
  EXPECT_EQ(RunWith(kGood).exitStatus, 0);
  EXPECT_TRUE(fs::is_symlink(output_.File("out.avi")));
  EXPECT_NE(output_.Read("real"), "old");
  // Before the converter could say anything.
  fs::permissions(output_.File("real"), fs::perms::owner_read);
  EXPECT_THAT(RunWith("exit 3").errors, HasSubstr("it is read-only"));
  fs::remove(output_.File("real"));
  EXPECT_THAT(RunWith("exit 3").errors, HasSubstr("it is a link that leads nowhere"));
}

TEST_F(AnimateLinuxTest, NamesTheFolderForTemporaryFilesThatIsMissing) {
  EXPECT_THAT(RunWith(kGood, {"/usr/bin/env", "TMPDIR=/none"}).errors,
              HasSubstr(R"(in "/none", the folder for temporary files that TMPDIR names: )"));
}

TEST_F(AnimateLinuxTest, WorksWithoutStandardStreams) {
  // None at all, and one whose reader has gone.
  for (const char* run : {R"("$@" <&- >&- 2>&-)", R"({ sleep 0.2; "$@" 2>&1; } | :)"}) {
    output_.Write("out.avi", "old");
    RunWith(kGood, {"/bin/sh", "-c", run, "sh"});
    EXPECT_NE(output_.Read("out.avi"), "old") << run;
  }
}

TEST_F(AnimateLinuxTest, AnInterruptedRunLeavesNothing) {
  // What a shell runs behind itself would pass over them.
  std::signal(SIGINT, SIG_DFL);
  std::signal(SIGQUIT, SIG_DFL);
  for (const std::string script :
       {"kill -INT $PPID", "kill -TERM $PPID", "kill -QUIT $PPID", "kill -XCPU $PPID",
        "kill -XFSZ $PPID", "exec >&- 2>&-; sleep 0.1; kill -TERM $PPID"}) {
    EXPECT_EQ(RunWith(kBusy + script + "; sleep 5").exitStatus, 130) << script;
    ExpectNothingChanged();
    ExpectBusyOneGone();
  }
}

TEST_F(AnimateLinuxTest, WhatTheConverterStartedEndsWithAKilledRun) {
  RunWith(kBusy + "grep -s ' '$PPID' ' /proc/[0-9]*/stat > ${0%/*}/beside; kill -KILL $PPID; wait");
  ExpectBusyOneGone();
  EXPECT_THAT(converter_.Read("beside"), HasSubstr("(converter-guard)"));
  // A killed program cannot clear up.
  temp_.Clear();
}

}  // namespace
