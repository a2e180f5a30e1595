#include "film/listed.h"

#include <algorithm>

namespace animate {

std::string Listed(const std::vector<std::string>& items, const std::string& separator,
                   std::size_t most) {
  std::string text;
  for (std::size_t index = 0; index < std::min(items.size(), most); ++index) {
    text += (index == 0 ? "" : separator) + items[index];
  }
  return items.size() > most ? text + " and " + std::to_string(items.size() - most) + " more"
                             : text;
}

}  // namespace animate
