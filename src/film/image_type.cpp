#include "film/image_type.h"

#include <algorithm>
#include <array>

#include "platform/paths.h"
#include "text/lower_case.h"

namespace animate {

std::string ImageType(std::string_view name) {
  static constexpr std::array<const char*, 5> kTypes = {"gif", "bmp", "jpg", "tif", "png"};
  const std::size_t dot = name.rfind('.');
  std::string type = dot == std::string_view::npos ? "" : LowerCase(name.substr(dot + 1));
  type = type == "jpeg" ? "jpg" : type == "tiff" ? "tif" : type;
  return std::find(kTypes.begin(), kTypes.end(), type) != kTypes.end() ? type : "";
}

std::string ImageType(const std::filesystem::path& name) {
  return ImageType(std::string_view(platform::TextOfPath(name)));
}

}  // namespace animate
