#include "sequence/name_group.h"

#include <unordered_map>

#include "film/image_type.h"

namespace animate {

std::vector<NameGroup> GroupNames(const std::vector<std::string>& texts) {
  std::vector<NameGroup> groups;
  std::unordered_map<std::string, std::size_t> indices;
  NameCutter cutter;
  std::vector<Piece> pieces;
  for (std::size_t index = 0; index < texts.size(); ++index) {
    const std::string extension = ImageType(std::string_view(texts[index]));
    if (extension.empty()) {
      continue;
    }
    pieces.clear();
    const std::string& pattern = cutter.Cut(texts[index], extension, pieces);
    const auto [place, isNew] =
        indices.try_emplace(pieces.empty() ? texts[index] : pattern, groups.size());
    if (isNew) {
      groups.push_back({pattern, {}, {}, pieces.size(), &texts});
    }
    NameGroup& group = groups[place->second];
    group.names.push_back(static_cast<std::uint32_t>(index));
    group.pieces.insert(group.pieces.end(), pieces.begin(), pieces.end());
  }
  return groups;
}

}  // namespace animate
