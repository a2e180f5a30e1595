// Running the external converter.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "converter/words.h"
#include "platform/result.h"
#include "platform/watched_process.h"

namespace animate {

// A result's reason is a sentence about the converter: how it ended, or the first error that it
// reported. All operations throw the Failure of an interruption, and of a converter that cannot be
// started.
class Converter {
 public:
  // The converter is the program at `program`; it decodes, filters and encodes with `threads`
  // threads each, or with 0 with as many as it likes.
  Converter(std::filesystem::path program, int threads)
      : program_(std::move(program)), threads_(threads) {}

  // The words in front of an input or an output that limit its threads.
  Words Threads() const {
    return threads_ == 0 ? Words() : Words{"-threads", std::to_string(threads_)};
  }

  // Has it make pictures, with `arguments` in `folder`. `progress` gets the number of those that
  // are done. Throws a Failure when it reports any error.
  void MakePictures(
      const Words& arguments, const std::filesystem::path& folder,
      const std::function<void(std::size_t)>& progress = [](std::size_t) {}) const;

  // Runs it with `arguments` in `folder`; `output` gets what it writes to its standard output,
  // piece by piece. Its input is held as RunWatched has it.
  platform::Result<platform::Done> ReadBytes(
      const Words& arguments, const std::filesystem::path& folder,
      const std::function<void(std::string_view)>& output,
      const std::function<void()>& holdInput = nullptr) const;

  // The same for text, line by line.
  platform::Result<platform::Done> ReadLines(
      const Words& arguments, const std::filesystem::path& folder,
      const std::function<void(const std::string&)>& outputLine) const;

  // Runs it with `arguments` in `folder`; `message` gets what it writes to its error output, line
  // by line, and how it ends does not matter.
  void ReadMessages(const Words& arguments, const std::filesystem::path& folder,
                    const std::function<void(const std::string&)>& message) const;

  // Whether it has the encoder `codec`; nothing where it does not say. Costs a start of it, so it
  // is asked only when something has failed.
  std::optional<bool> HasEncoder(const std::string& codec) const;

  const std::filesystem::path& Program() const { return program_; }

 private:
  platform::ProcessEnd Run(const Words& arguments, const std::filesystem::path& folder,
                           const std::function<void(std::string_view)>& output,
                           const std::function<void(const std::string&)>& errorLine,
                           const std::function<void()>& holdInput = nullptr) const;

  std::filesystem::path program_;
  int threads_;
};

}  // namespace animate
