// The rules of names carried out word for word, at any price: the reference that the program's own,
// faster reading is compared with.
#pragma once

#include <string>
#include <vector>

// The images among `names` that are the film, in their order; empty when a folder of them is
// refused. `marks` is 'd' to read all marks as decimals, 'w' as counters, else ' '.
std::vector<std::string> OrderLiterally(const std::vector<std::string>& names, char marks);

// Names that belong together, or nearly, made of the random bytes: signs, decimals, exponents,
// several counters, dates and times.
std::vector<std::string> NamesOfBytes(const std::string& bytes);
