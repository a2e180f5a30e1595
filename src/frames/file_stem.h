// The part of a frame's name before its extension.
#pragma once

#include "text/cstring.h"

// The length of a bare name less its last "." and what follows. A name without a "." loses its
// last character instead, as if the missing dot had stood there.
inline int StemLength(const CString& name) {
  const int dot = name.ReverseFind('.');
  return dot < 0 ? name.GetLength() - 1 : dot;
}

inline CString Stem(const CString& name) {
  return name.Left(StemLength(name));
}
