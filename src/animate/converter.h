// The external converter: finding it, and having it make the animation.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "animate/plan.h"
#include "animate/staging.h"

namespace animate {

// What a run of the converter came to.
struct ConverterResult {
  // How it failed in words: how it ended, or the first error it reported; empty when it did
  // neither.
  std::string failure;
  // How many frames it says that it has written.
  std::size_t frames = 0;
};

class Converter {
 public:
  // Chooses the program at `wanted`, or else looks beside this program, under TESSARA_DIR and in
  // PATH. Throws a Failure when there is none.
  explicit Converter(const std::filesystem::path& wanted);

  // Throws a Failure when the converter lacks the encoder for `format`. Costs a start of it, so it
  // is called only to explain why something failed.
  void CheckEncoder(const Format& format) const;

  // Runs it with `arguments` in `folder`. `outputLine` gets the lines of its standard output; only
  // without it `progress`, if any, gets the number of frames done, and the result has one. Throws
  // the Failure of an interruption, or of a converter that cannot be started.
  ConverterResult Run(const std::vector<std::string>& arguments,
                      const std::filesystem::path& folder,
                      const std::function<void(const std::string&)>& outputLine = nullptr,
                      const std::function<void(std::size_t)>& progress = nullptr) const;

 private:
  std::filesystem::path program_;
};

// Makes the animation of the plan as the file `target`, which is there and empty. `progress` gets
// the number of frames done. Throws a Failure when the converter reports any error; it names the
// frame when it was a frame's fault.
void MakeAnimation(const Converter& converter, const Plan& plan, const Staging& staging,
                   const std::filesystem::path& target,
                   const std::function<void(std::size_t)>& progress);

// The same for the contact sheet, a PNG.
void MakeContactSheet(const Converter& converter, const Plan& plan, const Staging& staging,
                      const std::filesystem::path& target);

// Throws the Failure `reason`; when a frame cannot be decoded, the failure names it instead.
[[noreturn]] void FailForFrames(const Converter& converter, const Plan& plan,
                                const Staging& staging, const std::string& reason);

}  // namespace animate
