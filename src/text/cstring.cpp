#include "text/cstring.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>

#include "text/lower_case.h"

CString CString::Left(int count) const {
  return text_.substr(0, static_cast<std::size_t>(std::clamp(count, 0, GetLength())));
}

CString CString::Right(int count) const {
  return Mid(GetLength() - std::max(count, 0));
}

CString CString::Mid(int first) const {
  return text_.substr(static_cast<std::size_t>(std::clamp(first, 0, GetLength())));
}

int CString::Find(const CString& wanted) const {
  const std::size_t position = text_.find(wanted.text_);
  return position == std::string::npos ? -1 : static_cast<int>(position);
}

int CString::ReverseFind(char wanted) const {
  const std::size_t position = text_.rfind(wanted);
  return position == std::string::npos ? -1 : static_cast<int>(position);
}

bool CString::EqualsNoCase(const CString& other) const {
  return LowerCase(text_) == LowerCase(other.text_);
}

void CString::Format(const char* format, ...) {
  std::va_list values;
  va_start(values, format);
  std::va_list again;
  va_copy(again, values);
  const int length = std::vsnprintf(nullptr, 0, format, values);
  va_end(values);
  std::string formatted(static_cast<std::size_t>(std::max(length, 0)), '\0');
  std::vsnprintf(formatted.data(), formatted.size() + 1, format, again);
  va_end(again);
  text_ = std::move(formatted);
}
