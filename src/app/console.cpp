#include "app/console.h"

#include <cstdarg>
#include <cstdio>

void ConsolePrint(const char* format, ...) {
  std::va_list values;
  va_start(values, format);
  std::vprintf(format, values);
  va_end(values);
}
