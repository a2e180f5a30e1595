// Wide texts for the system, and UTF-8 for the rest of the program.
#pragma once

#include <string>

namespace platform {

// Bytes that are no UTF-8, and parts that are no Unicode, become the replacement character.
std::wstring WideFromUtf8(const std::string& text);
std::string Utf8FromWide(const std::wstring& text);

}  // namespace platform
