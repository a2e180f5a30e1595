// The blocking error box.
#pragma once

#include <string>

namespace platform {

// Shows a modal box with a stop icon, one OK button and no owner window, and returns when the user
// has closed it. A system without windows prints "CAPTION: TEXT" as one line on standard error
// and, when standard input is a terminal, waits for Enter.
void ShowErrorBox(const std::string& text, const std::string& caption);

}  // namespace platform
