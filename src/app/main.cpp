// The console entry.
#include "app/run_sequence.h"
#include "app/win_app.h"

namespace {

// Exists so that the framework can be started in a console program.
class CGIFAnimApp : public CWinApp {};

const CGIFAnimApp theApp;

}  // namespace

int main(int argc, char** argv, char** envp) {
  return RunConsole(argc, argv, envp);
}
