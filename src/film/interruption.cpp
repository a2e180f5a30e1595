#include "film/interruption.h"

#include "film/failure.h"
#include "platform/user.h"

namespace animate {

void StopIfInterrupted() {
  if (platform::IsInterrupted()) {
    throw Failure("interrupted", ExitStatus::kInterrupted);
  }
}

}  // namespace animate
