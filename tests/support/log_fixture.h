// A test that works with a temp root and a diagnostic log of its own.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/temp_folder.h"
#include "tests/support/variables.h"

// The messages of a log's text, without their time stamps.
std::vector<std::string> LogMessages(const std::string& log);

class LogFixture : public testing::Test {
 protected:
  LogFixture();
  ~LogFixture() override;

  // Sets an environment variable of this process, or removes it when `value` is null, for the rest
  // of the test.
  void SetVariable(const std::string& name, const char* value) { variables_.Set(name, value); }

  // The messages logged so far, without their time stamps.
  std::vector<std::string> Log() const { return LogMessages(temp_.Read("log.txt")); }

  // The temp root.
  TempFolder temp_;

 private:
  Variables variables_;
};
