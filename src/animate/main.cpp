// The entry of TessaraAnimate.
#include <algorithm>
#include <exception>

#include "animate/json_report.h"
#include "animate/options.h"
#include "animate/report.h"
#include "animate/run.h"
#include "film/failure.h"
#include "platform/user.h"

namespace {

animate::ExitStatus RunGuarded(const std::vector<std::string>& arguments) {
  const auto fail = [&](const animate::Failure& failure) {
    animate::PrintFailure(failure.what());
    // Where the command line is wrong it is not known what its words are.
    if (std::find(arguments.begin(), arguments.end(), "--json") != arguments.end()) {
      animate::PrintClosing(animate::JsonOf({}, &failure));
    }
    return failure.Status();
  };
  try {
    const animate::Options options = animate::ReadOptions(arguments);
    if (options.textToShow.empty()) {
      return animate::Run(options);
    }
    animate::PrintText(options.textToShow);
    return animate::ExitStatus::kSuccess;
  } catch (const animate::Failure& failure) {
    return fail(failure);
  } catch (const std::exception& error) {
    return fail(animate::Failure(error.what()));
  }
}

}  // namespace

int main(int argc, char** argv) {
  platform::FillStandardStreams();
  platform::NoteInterruptions();
  platform::UseUtf8Console();
  const animate::ExitStatus status = RunGuarded(platform::ProgramArguments(argc, argv));
  platform::WaitBeforeConsoleGoes();
  return static_cast<int>(status);
}
