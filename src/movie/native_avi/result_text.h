// The result codes in words.
#pragma once

#include <windows.h>

#include <cstddef>

// Copies the English text for a result code to `buffer`, cut to `size` - 1 characters and a
// terminating zero; without a buffer or with size 0 nothing is copied. Returns the length of the
// full text.
std::size_t AviResultText(HRESULT code, char* buffer, std::size_t size);
