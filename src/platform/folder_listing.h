// The entries of one folder as the console program takes them: folders too, in the system's own
// order, on which the order of its frames can hang. (ListEntries in file_system.h gives them in no
// order, with what they are.)
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace platform {

// Lists every entry of `folder`, sub-folders and the "." and ".." entries included, as bare names.
// The order is the one the system's own listing returns on Windows. Elsewhere names are sorted
// without regard to ASCII case, ties by bytes, after "." and ".."; names that hold a backslash,
// which no path of this program can name, are left out.
// Returns nothing when the folder cannot be listed.
std::optional<std::vector<std::string>> ListFolder(const std::string& folder);

}  // namespace platform
