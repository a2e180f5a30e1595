// The entry of TessaraAnimate.
#include <cstdio>
#include <exception>

#include "animate/failure.h"
#include "animate/options.h"
#include "animate/run.h"
#include "platform/user.h"

namespace {

animate::ExitStatus RunGuarded(int argc, char** argv) {
  try {
    const animate::Options options = animate::ReadOptions(platform::ProgramArguments(argc, argv));
    if (!options.textToShow.empty()) {
      std::fputs(options.textToShow.c_str(), stdout);
    } else {
      animate::Run(options);
    }
    // Whoever reads the output has to get it whole, a list of frames above all.
    if (std::fflush(stdout) != 0) {
      throw animate::Failure("standard output cannot be written");
    }
    return animate::ExitStatus::kSuccess;
  } catch (const animate::Failure& failure) {
    std::fprintf(stderr, "TessaraAnimate: %s\n", failure.what());
    return failure.Status();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "TessaraAnimate: %s\n", error.what());
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
