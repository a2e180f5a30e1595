// Another program that is watched while it works.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace platform {

struct ProcessEnd {
  // Why the program could not be started, in the system's words; empty when it was.
  std::string startFailure;
  // Whether it was stopped because of an interruption (see NoteInterruptions).
  bool interrupted = false;
  // How it ended by itself: "status 3", or what killed it; empty for status 0.
  std::string failure;
};

// Runs `program` with `arguments` (its own name is put in front; UTF-8 on Windows, elsewhere bytes)
// in the folder `folder` to its end, without a window and with its input at its end. Each line of
// its standard output and of its standard error goes to the function of that name as soon as it is
// complete, without its line end; parts of a line that the program rewrites are lines too. When an
// interruption is noted the program is killed. It does not outlive this process either, however
// that ends. An exception from one of the functions kills it and is passed on.
ProcessEnd RunWatched(const std::filesystem::path& program,
                      const std::vector<std::string>& arguments,
                      const std::filesystem::path& folder,
                      const std::function<void(const std::string&)>& outputLine,
                      const std::function<void(const std::string&)>& errorLine);

}  // namespace platform
