#include "platform/linux/command_line_splitter.h"

#include <cstddef>
#include <utility>

namespace platform {
namespace {

bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}

// Reads one argument that starts at `position`, which ends up after it.
std::string ReadArgument(const std::string& line, std::size_t& position) {
  std::string argument;
  bool quoted = false;
  while (position < line.size() && (quoted || !IsBlank(line[position]))) {
    std::size_t backslashes = 0;
    while (position < line.size() && line[position] == '\\') {
      ++backslashes;
      ++position;
    }
    if (position == line.size() || line[position] != '"') {
      argument.append(backslashes, '\\');
      if (backslashes == 0) {
        argument += line[position++];
      }
      continue;
    }
    argument.append(backslashes / 2, '\\');
    if (backslashes % 2 != 0) {
      argument += '"';
    } else if (quoted && position + 1 < line.size() && line[position + 1] == '"') {
      argument += '"';
      ++position;
    } else {
      quoted = !quoted;
    }
    ++position;
  }
  return argument;
}

}  // namespace

std::vector<std::string> SplitCommandLine(const std::string& commandLine) {
  std::size_t position = commandLine.find_first_of(" \t");
  std::vector<std::string> arguments = {commandLine.substr(0, position)};
  while ((position = commandLine.find_first_not_of(" \t", position)) != std::string::npos) {
    arguments.push_back(ReadArgument(commandLine, position));
  }
  return arguments;
}

}  // namespace platform
