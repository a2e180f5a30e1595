// Why a run ends without its animation.
#pragma once

#include <stdexcept>
#include <string>

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

// Throws the Failure of an interrupted run when the user wishes to stop. Called between the steps
// of all work that takes its time.
void StopIfInterrupted();

}  // namespace animate
