#include "text/file_name.h"

#include <algorithm>
#include <array>

CString GetFileExtension(const CString& path) {
  return path.Mid(path.ReverseFind('.') + 1);
}

CString CutBeforeLast(const CString& text, char mark) {
  const int position = text.ReverseFind(mark);
  return position < 0 ? text : text.Left(position);
}

CString GetBareName(const CString& path) {
  return path.Mid(path.ReverseFind('\\') + 1);
}

bool IsImageExtension(const CString& extension) {
  static const std::array<CString, 7> kImageExtensions = {"gif", "bmp",  "jpg", "jpeg",
                                                          "tif", "tiff", "png"};
  return std::any_of(kImageExtensions.begin(), kImageExtensions.end(),
                     [&](const CString& known) { return extension.EqualsNoCase(known); });
}
