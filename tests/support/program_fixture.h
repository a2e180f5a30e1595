// A test that runs the console program in folders of its own.
#pragma once

#include "tests/support/log_fixture.h"
#include "tests/support/run_program.h"

class ProgramFixture : public LogFixture {
 protected:
  // A copy of the program in a folder without a converter, and an empty input folder.
  ProgramFixture();

  // Puts the recording stand-in, which always fails, beside the program.
  void UseRecordingConverter();

  // Runs the program, which always ends with 0, in the output folder.
  ProgramResult Run(const std::vector<std::string>& arguments) const;

  // What follows `start` in the messages that all runs have logged, and in what the recording
  // converter noted of all its runs.
  std::vector<std::string> Log(const std::string& start = "") const;
  std::vector<std::string> Record(const std::string& start) const;

  TempFolder home_;
  TempFolder frames_;
  TempFolder output_;
};
