#include "converter/converter.h"

#include <cstdlib>

#include "converter/message.h"
#include "film/failure.h"
#include "film/interruption.h"
#include "film/quoted.h"
#include "platform/line_splitter.h"
#include "platform/program_search.h"

namespace animate {
namespace {

// Whether a line of the converter's list of encoders is about the one for `codec`.
bool IsEncoder(const std::string& line, const std::string& codec) {
  return line.find(" " + codec + " ") != std::string::npos ||
         line.find("(codec " + codec + ")") != std::string::npos;
}

}  // namespace

void Converter::MakePictures(const Words& arguments, const std::filesystem::path& folder,
                             const std::function<void(std::size_t)>& progress) const {
  const platform::Result<platform::Done> result = ReadLines(
      Joined(Words{"-progress", "pipe:1"}, arguments), folder, [&](const std::string& line) {
        constexpr char kFrames[] = "frame=";
        if (line.rfind(&kFrames[0], 0) == 0) {
          progress(std::strtoull(line.c_str() + sizeof(kFrames) - 1, nullptr, 10));
        }
      });
  if (!result) {
    throw Failure(result.Reason());
  }
}

platform::Result<platform::Done> Converter::ReadBytes(
    const Words& arguments, const std::filesystem::path& folder,
    const std::function<void(std::string_view)>& output,
    const std::function<void()>& holdInput) const {
  std::string firstLine;
  std::string firstError;
  const auto errorLine = [&](const std::string& line) {
    firstLine = firstLine.empty() ? line : firstLine;
    firstError = firstError.empty() ? ErrorIn(line) : firstError;
  };
  const platform::ProcessEnd end = Run(arguments, folder, output, errorLine, holdInput);
  if (end.failure.empty() && firstError.empty()) {
    return platform::Done();
  }
  const std::string& said = firstError.empty() ? firstLine : firstError;
  return platform::SystemError{"the converter " + Quoted(program_) + " " +
                               (end.failure.empty() ? "failed" : "ended with " + end.failure) +
                               (said.empty() ? "" : ": " + said)};
}

platform::Result<platform::Done> Converter::ReadLines(
    const Words& arguments, const std::filesystem::path& folder,
    const std::function<void(const std::string&)>& outputLine) const {
  platform::LineSplitter lines(outputLine);
  auto result = ReadBytes(arguments, folder, [&](std::string_view piece) { lines.Take(piece); });
  lines.Finish();
  return result;
}

void Converter::ReadMessages(const Words& arguments, const std::filesystem::path& folder,
                             const std::function<void(const std::string&)>& message) const {
  Run(
      arguments, folder, [](std::string_view) {}, message);
}

platform::ProcessEnd Converter::Run(const Words& arguments, const std::filesystem::path& folder,
                                    const std::function<void(std::string_view)>& output,
                                    const std::function<void(const std::string&)>& errorLine,
                                    const std::function<void()>& holdInput) const {
  const std::string count = std::to_string(threads_);
  const Words filters =
      threads_ == 0 ? Words() : Words{"-filter_threads", count, "-filter_complex_threads", count};
  const Words common =
      Joined(Words{"-hide_banner", "-nostdin", "-v", "level+error", "-y"}, filters);
  platform::ProcessEnd end = OrFail(platform::RunWatched(program_, Joined(common, arguments),
                                                         folder, output, errorLine, holdInput),
                                    "the converter " + Quoted(program_) + " cannot be started");
  if (end.interrupted) {
    StopIfInterrupted();
  }
  return end;
}

std::optional<bool> Converter::HasEncoder(const std::string& codec) const {
  bool hasEncoder = false;
  const auto result = ReadLines(
      {"-encoders"}, platform::ProgramFolder(),
      [&](const std::string& line) { hasEncoder = hasEncoder || IsEncoder(line, codec); });
  return result ? std::optional(hasEncoder) : std::nullopt;
}

}  // namespace animate
