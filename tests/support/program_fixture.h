// A test that runs the whole program in folders of its own.
#pragma once

#include <string>
#include <vector>

#include "tests/support/log_fixture.h"
#include "tests/support/run_program.h"
#include "tests/support/temp_folder.h"

class ProgramFixture : public LogFixture {
 protected:
  // A copy of the program in a folder without a converter, and an empty input folder.
  ProgramFixture();

  // Puts the recording stand-in beside the program; it will end with `exitCode`.
  void UseRecordingConverter(int exitCode = 0);

  // Lets the program find the real converter.
  void UseRealConverter();

  // Runs the program in the output folder.
  ProgramResult Run(const std::vector<std::string>& arguments) const;

  // What the log holds of all runs.
  std::vector<std::string> Log() const;

  // What the recording converter noted of all its runs.
  std::vector<std::string> Record() const;

  TempFolder home_;
  TempFolder frames_;
  TempFolder output_;
};
