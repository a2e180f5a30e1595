// Feeds arbitrary lines to the command-line splitter, as they are and as quoted arguments, which
// have to come back unchanged.
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "platform/linux/command_line_splitter.h"

namespace {

std::string Quoted(const std::string& argument) {
  std::string quoted = "\"";
  std::size_t backslashes = 0;
  for (const char c : argument) {
    if (c == '"') {
      quoted.append(backslashes + 1, '\\');
    }
    backslashes = c == '\\' ? backslashes + 1 : 0;
    quoted += c;
  }
  return quoted.append(backslashes, '\\') + '"';
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  const std::vector<std::string> split = platform::SplitCommandLine(text);
  if (split.front() != text.substr(0, text.find_first_of(" \t"))) {
    std::abort();
  }
  std::vector<std::string> arguments = {"program"};
  std::string line = arguments.front();
  std::istringstream lines(text);
  for (std::string argument; std::getline(lines, argument);) {
    line += "\t" + Quoted(argument) + " ";
    arguments.push_back(argument);
  }
  if (platform::SplitCommandLine(line) != arguments) {
    std::abort();
  }
  return 0;
}
