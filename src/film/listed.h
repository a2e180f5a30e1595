// Lists in messages.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace animate {

// "a, b, c": the items, or the first `most` and how many more there are.
std::string Listed(const std::vector<std::string>& items, const std::string& separator = ", ",
                   std::size_t most = 8);

}  // namespace animate
