#include "tests/support/program_fixture.h"

#include <filesystem>
#include <sstream>

#include "platform/program.h"

namespace fs = std::filesystem;

ProgramFixture::ProgramFixture() {
  fs::copy_file(TESSARA_PROGRAM, fs::path(home_.Path()) / platform::ExecutableFileName("program"));
  SetVariable("TESSARA_TEMP_PATH", temp_.Path().c_str());
  SetVariable("TESSARA_DIR", nullptr);
}

void ProgramFixture::UseRecordingConverter(int exitCode) {
  fs::copy_file(TESSARA_RECORDING_CONVERTER,
                fs::path(home_.Path()) / platform::ExecutableFileName("ffmpeg"),
                fs::copy_options::overwrite_existing);
  SetVariable("TESSARA_RECORD", (home_.Path() + "/record").c_str());
  SetVariable("TESSARA_RECORD_FOLDER", frames_.Path().c_str());
  SetVariable("TESSARA_RECORD_EXIT", std::to_string(exitCode).c_str());
}

void ProgramFixture::UseRealConverter() {
  SetVariable("TESSARA_DIR", TESSARA_INSTALLATION);
}

ProgramResult ProgramFixture::Run(const std::vector<std::string>& arguments) const {
  return RunProgram((fs::path(home_.Path()) / platform::ExecutableFileName("program")).string(),
                    arguments, output_.Path());
}

std::vector<std::string> ProgramFixture::Log() const {
  return LogMessages(temp_.Read("TessaraMovieConsole_Log.txt"));
}

std::vector<std::string> ProgramFixture::Record() const {
  std::vector<std::string> lines;
  std::istringstream record(home_.Read("record"));
  for (std::string line; std::getline(record, line);) {
    lines.push_back(line);
  }
  return lines;
}
