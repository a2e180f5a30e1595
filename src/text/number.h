// Numbers: read from text, written to it, and made even.
#pragma once

#include "text/cstring.h"

// The whole number at the start of a text, read as leniently as the C library does: leading white
// space, an optional sign, digits up to the first other character; 0 when there is no digit.
// Numbers beyond 32 bits become the nearest 32-bit limit.
int ReadInteger(const CString& text);

// The decimal number at the start of a text, with or without fraction and exponent, read as
// leniently; 0 when there is no digit.
// Numbers beyond the range of a float become infinite.
float ReadFloat(const CString& text);

// The decimal text of a number, without padding or leading zeros.
CString IntToString(int number);

// `number`, or the even number after it when it is odd: many encoders refuse odd sizes. The largest
// number has none after it and stays.
int RaisedToEven(int number);
