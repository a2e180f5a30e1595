// Why a run ends without its animation.
#pragma once

#include <stdexcept>
#include <string>
#include <utility>

#include "platform/result.h"

namespace animate {

// The exit statuses of the program. Only kSuccess means that the animation is in place and proven.
enum class ExitStatus { kSuccess = 0, kFailure = 1, kWrongUse = 2, kInterrupted = 130 };

// Ends the run with one line that says why.
class Failure : public std::runtime_error {
 public:
  explicit Failure(const std::string& reason, ExitStatus status = ExitStatus::kFailure)
      : std::runtime_error(reason), status_(status) {}

  ExitStatus Status() const { return status_; }

 private:
  ExitStatus status_;
};

// Ends the run because the command line asks for what cannot be.
[[noreturn]] inline void RefuseUse(const std::string& reason) {
  throw Failure(reason, ExitStatus::kWrongUse);
}

// The value of an operation of the system. Throws the Failure "WHAT: REASON" where it has none.
template <typename Value>
Value OrFail(platform::Result<Value> result, const std::string& what) {
  if (!result) {
    throw Failure(what + ": " + result.Reason());
  }
  return std::move(*result);
}

}  // namespace animate
