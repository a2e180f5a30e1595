// Everything that the user is told, but for the line of progress: what was found and left out, what
// is being made, and how it ended. Nothing else in the program prints.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "animate/account.h"
#include "animate/options.h"
#include "animate/plan.h"
#include "sequence/findings.h"

namespace animate {

// Prints one line on standard error.
void PrintNote(const std::string& line);

// Prints why the run failed, on standard error.
void PrintFailure(const std::string& reason);

// Prints a text, the one thing that the run was for, as it is on standard output. A reader that has
// gone has seen enough; throws a Failure when it does not get there for another reason.
void PrintText(const std::string& text);

// Prints the last line of a run on standard output, where its loss is no more than a note: the
// exit status says what matters.
void PrintClosing(const std::string& line);

// Prints, in a few notes, which frames were found, what is missing, twice, or left out.
void PrintFindings(const Findings& found);
void PrintLeftOut(const std::vector<std::string>& texts);

// Notes how many frames are never shown.
void PrintUnseen(std::size_t count, const Rate& rate);

// Names the bad frames of the plan and what is done about them, which it is in the film already.
void PrintBad(const Plan& plan, BadFrames how);

// Prints what is going to be made, as notes.
void PrintPlan(const Plan& plan);

// Notes between which values the colours of the frames are spread.
void PrintLevels(const Levels& levels);

// Notes that the frames use less than a quarter of the values that they could have, if so.
void PrintIfDim(const Levels& levels, bool isDeep);

// The closing line of an animation that is in its place.
std::string ResultText(const Account& account, const Options& options);

// Names frames that were not deleted, each with the reason, of `count` that were to be.
void PrintKept(const std::vector<std::string>& kept, std::size_t count);

}  // namespace animate
