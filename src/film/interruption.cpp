#include "film/interruption.h"

#include <string>

#include "film/failure.h"
#include "platform/user.h"

namespace animate {

void StopIfInterrupted() {
  if (platform::IsInterrupted()) {
    const std::string cause = platform::InterruptionCause();
    throw Failure("interrupted" + (cause.empty() ? "" : ": " + cause), ExitStatus::kInterrupted);
  }
}

}  // namespace animate
