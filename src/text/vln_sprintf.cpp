#include "vln_sprintf.h"

#include <cstdarg>
#include <cstdio>

int vln::sprintf(char* to, const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  const int written = std::vsprintf(to, format, arguments);
  va_end(arguments);
  return written;
}
