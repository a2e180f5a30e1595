#include "tests/support/program_fixture.h"

using platform::ExecutableFileName;

ProgramFixture::ProgramFixture() {
  std::filesystem::copy_file(TESSARA_PROGRAM, home_.File(ExecutableFileName("program")));
  SetVariable("TESSARA_TEMP_PATH", temp_.Path().c_str());
  SetVariable("TESSARA_DIR", nullptr);
}

void ProgramFixture::UseRecordingConverter() {
  std::filesystem::copy_file(TESSARA_RECORDING_CONVERTER, home_.File(ExecutableFileName("ffmpeg")));
  SetVariable("TESSARA_RECORD", home_.File("record").string().c_str());
  SetVariable("TESSARA_RECORD_FOLDER", frames_.Path().c_str());
}

ProgramResult ProgramFixture::Run(const std::vector<std::string>& arguments) const {
  ProgramResult result =
      RunProgram(home_.File(ExecutableFileName("program")).string(), arguments, output_.Path());
  EXPECT_EQ(result.exitStatus, 0);
  return result;
}

std::vector<std::string> ProgramFixture::Log(const std::string& start) const {
  return LinesAfter("] " + start, temp_.Read("TessaraMovieConsole_Log.txt"));
}

std::vector<std::string> ProgramFixture::Record(const std::string& start) const {
  return LinesAfter(start, home_.Read("record"));
}
