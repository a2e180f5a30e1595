// Running the converter as TessaraAnimate does it: watched while it works, and never left behind.
// (The console program's way, which is its contract, is in process.h.)
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/result.h"

namespace platform {

struct ProcessEnd {
  // Whether it was stopped because of an interruption (see NoteInterruptions).
  bool interrupted = false;
  // How it ended by itself: "status 3", or what killed it; empty for status 0.
  std::string failure;
};

// Runs `program` with `arguments` (its own name is put in front; UTF-8 on Windows, elsewhere bytes)
// in the folder `folder` to its end, without a window and with its input empty: at its end at once,
// or, with `holdInput`, when that has returned, which is called once it is started, on a thread of
// its own. This returns, or throws, no earlier than that. What it writes to its standard output
// goes to `output`, piece by piece, as it comes. Each line of its standard error goes to
// `errorLine` as soon as it is complete, without its line end; parts of a line that the program
// rewrites are lines too. When an interruption is noted the program is killed. What it has started
// ends with it, and all of that with this process, however that ends. An exception from one of the
// functions kills it and is passed on. Fails when the program cannot be started; a start that the
// system refuses because it is short of something for a moment is tried again within a second.
Result<ProcessEnd> RunWatched(const std::filesystem::path& program,
                              const std::vector<std::string>& arguments,
                              const std::filesystem::path& folder,
                              const std::function<void(std::string_view)>& output,
                              const std::function<void(const std::string&)>& errorLine,
                              const std::function<void()>& holdInput = nullptr);

}  // namespace platform
