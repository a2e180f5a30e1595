// A test that works with a temp root and a diagnostic log of its own.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/temp_folder.h"
#include "tests/support/variables.h"

// What follows `start` in each line of `text` that holds it.
std::vector<std::string> LinesAfter(const std::string& start, const std::string& text);

class LogFixture : public testing::Test {
 protected:
  LogFixture();
  ~LogFixture() override;

  // Sets an environment variable of this process, or removes it when `value` is null, for the rest
  // of the test.
  void SetVariable(const std::string& name, const char* value) { variables_.Set(name, value); }

  // The messages logged so far, without their time stamps.
  std::vector<std::string> Log() const { return LinesAfter("] ", temp_.Read("log.txt")); }

  // The temp root.
  TempFolder temp_;

 private:
  Variables variables_;
};
