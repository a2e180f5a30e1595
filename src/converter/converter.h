// Running the external converter.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>

#include "converter/words.h"
#include "platform/result.h"
#include "platform/watched_process.h"

namespace animate {

// A result's reason is a sentence about the converter: how it ended, or the first error that it
// reported. All operations throw the Failure of an interruption, and of a converter that cannot be
// started.
class Converter {
 public:
  // The converter is the program at `program`.
  explicit Converter(std::filesystem::path program) : program_(std::move(program)) {}

  // Has it make pictures, with `arguments` in `folder`. `progress` gets the number of those that
  // are done. Returns how many it says that it has made.
  platform::Result<std::size_t> MakePictures(
      const Words& arguments, const std::filesystem::path& folder,
      const std::function<void(std::size_t)>& progress) const;

  // Runs it with `arguments` in `folder`; `outputLine` gets what it writes to its standard output,
  // line by line.
  platform::Result<platform::Done> ReadOutput(
      const Words& arguments, const std::filesystem::path& folder,
      const std::function<void(const std::string&)>& outputLine) const;

  // Runs it with `arguments` in `folder`; `message` gets what it writes to its error output, line
  // by line, and how it ends does not matter.
  void ReadMessages(const Words& arguments, const std::filesystem::path& folder,
                    const std::function<void(const std::string&)>& message) const;

  // Throws a Failure when the converter lacks the encoder for `codec`, with which a file with the
  // extension `extension` was to be made. Costs a start of it, so it is called only to explain why
  // something failed.
  void CheckEncoder(const std::string& codec, const std::string& extension) const;

 private:
  platform::ProcessEnd Run(const Words& arguments, const std::filesystem::path& folder,
                           const std::function<void(const std::string&)>& outputLine,
                           const std::function<void(const std::string&)>& errorLine) const;

  std::filesystem::path program_;
};

}  // namespace animate
