// A test that works with a temp root and a diagnostic log of its own.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "log/diagnostic_log.h"
#include "log/working_folders.h"
#include "tests/support/temp_folder.h"

// The messages of a log's text, without their time stamps.
std::vector<std::string> LogMessages(const std::string& log);

class LogFixture : public testing::Test {
 protected:
  LogFixture() {
    g_tempRoot = temp_.Path();
    InitLog(g_tempRoot + "\\log.txt", true);
  }

  // The messages logged so far, without their time stamps.
  std::vector<std::string> Log() const { return LogMessages(temp_.Read("log.txt")); }

  // The temp root.
  TempFolder temp_;
};
