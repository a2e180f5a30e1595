#include "platform/error_box.h"

#include <unistd.h>

#include <iostream>
#include <limits>

namespace platform {

void ShowErrorBox(const std::string& text, const std::string& caption) {
  std::cerr << caption << ": " << text << std::endl;
  if (isatty(STDIN_FILENO) != 0) {
    std::cin.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
  }
}

}  // namespace platform
