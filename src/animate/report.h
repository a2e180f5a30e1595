// Everything that the user is told, but for the line of progress: what was found and left out, what
// is being made, and how it ended. Nothing else in the program prints.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "animate/plan.h"
#include "film/measurement.h"
#include "sequence/findings.h"

namespace animate {

// Prints one line on standard error.
void PrintNote(const std::string& line);

// Prints why the run failed, on standard error.
void PrintFailure(const std::string& reason);

// Prints a text as it is on standard output.
void PrintText(const std::string& text);

// Prints, in a few notes, which frames were found, what is missing, twice, or left out.
void PrintFindings(const Findings& found);

// Prints the paths of the frames of `folder` as they are `shown`, one a line, on standard output.
void PrintList(const std::filesystem::path& folder, const std::vector<FoundFrame>& frames,
               const std::vector<std::size_t>& shown);

// Prints what is going to be made, as notes.
void PrintPlan(const Plan& plan);

// Prints the closing line on standard output; the animation has `bytes` bytes.
void PrintResult(const Plan& plan, const Measurement& measured, std::uint64_t bytes);

// Throws a Failure when what went to standard output did not all get there.
void FinishOutput();

}  // namespace animate
