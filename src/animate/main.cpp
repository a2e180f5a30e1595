// The entry of TessaraAnimate.
#include <exception>

#include "animate/options.h"
#include "animate/report.h"
#include "animate/run.h"
#include "film/failure.h"
#include "platform/user.h"

namespace {

animate::ExitStatus RunGuarded(int argc, char** argv) {
  try {
    const animate::Options options = animate::ReadOptions(platform::ProgramArguments(argc, argv));
    if (!options.textToShow.empty()) {
      animate::PrintText(options.textToShow);
    } else {
      animate::Run(options);
    }
    // Whoever reads the output has to get it whole, a list of frames above all.
    animate::FinishOutput();
    return animate::ExitStatus::kSuccess;
  } catch (const animate::Failure& failure) {
    animate::PrintFailure(failure.what());
    return failure.Status();
  } catch (const std::exception& error) {
    animate::PrintFailure(error.what());
    return animate::ExitStatus::kFailure;
  }
}

}  // namespace

int main(int argc, char** argv) {
  platform::NoteInterruptions();
  platform::UseUtf8Console();
  const animate::ExitStatus status = RunGuarded(argc, argv);
  platform::WaitBeforeConsoleGoes();
  return static_cast<int>(status);
}
