// Taking paths and file names apart.
#pragma once

#include "text/cstring.h"

// The text after the last "." of a path, or the whole text when it has none.
CString GetFileExtension(const CString& path);

// The text before the last `mark`, or the whole text when it has none.
CString CutBeforeLast(const CString& text, char mark);

// The text after the last backslash, or the whole text when it has none.
CString GetBareName(const CString& path);

// Whether an extension (as GetFileExtension gives it) is one of the image types that frames and
// working images have: gif, bmp, jpg, jpeg, tif, tiff, png, in any case.
bool IsImageExtension(const CString& extension);
