#include "converter/message.h"

namespace animate {

std::string ErrorIn(const std::string& line) {
  for (const char* level : {"[error] ", "[fatal] ", "[panic] "}) {
    if (const std::size_t found = line.find(level); found != std::string::npos) {
      return line.substr(found + std::char_traits<char>::length(level));
    }
  }
  return "";
}

}  // namespace animate
