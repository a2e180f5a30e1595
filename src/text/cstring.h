// CString: the narrow text type of the whole program, with the few operations that it uses.
#pragma once

#include <string>
#include <utility>

class CString {
 public:
  CString() = default;
  CString(const char* text) : text_(text) {}
  CString(std::string text) : text_(std::move(text)) {}

  // Every service below takes standard strings; a CString passes as one without a copy.
  operator const std::string&() const { return text_; }
  const char* GetString() const { return text_.c_str(); }

  int GetLength() const { return static_cast<int>(text_.size()); }
  bool IsEmpty() const { return text_.empty(); }

  // The first, the last, or all characters from an index on. A count or index outside the text is
  // brought to its nearest end, so a negative count gives an empty text.
  CString Left(int count) const;
  CString Right(int count) const;
  CString Mid(int first) const;

  // Index of the first occurrence of a text, or of the last one of a character; -1 when absent.
  int Find(const CString& wanted) const;
  int ReverseFind(char wanted) const;

  // Whether both texts are equal when the case of ASCII letters is ignored.
  bool EqualsNoCase(const CString& other) const;

  // Replaces the text by the printf-style result of `format` and the values after it.
  [[gnu::format(printf, 2, 3)]] void Format(const char* format, ...);

  CString& operator+=(const CString& tail) {
    text_ += tail.text_;
    return *this;
  }
  CString& operator+=(char tail) {
    text_ += tail;
    return *this;
  }
  friend CString operator+(CString left, const CString& right) { return left += right; }
  friend bool operator==(const CString& left, const CString& right) {
    return left.text_ == right.text_;
  }

 private:
  std::string text_;
};
