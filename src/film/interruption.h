// The user's wish to stop.
#pragma once

namespace animate {

// Throws the Failure of an interrupted run when the user wishes to stop. Called between the steps
// of all work that takes its time.
void StopIfInterrupted();

}  // namespace animate
