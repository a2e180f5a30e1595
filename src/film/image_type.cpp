#include "film/image_type.h"

#include <algorithm>
#include <array>

#include "platform/paths.h"
#include "text/lower_case.h"

namespace animate {

std::string ImageType(const std::filesystem::path& name) {
  static constexpr std::array<const char*, 5> kTypes = {"gif", "bmp", "jpg", "tif", "png"};
  const std::string text = platform::TextOfPath(name);
  const std::size_t dot = text.rfind('.');
  std::string type = dot == std::string::npos ? "" : LowerCase(text.substr(dot + 1));
  type = type == "jpeg" ? "jpg" : type == "tiff" ? "tif" : type;
  return std::find(kTypes.begin(), kTypes.end(), type) != kTypes.end() ? type : "";
}

}  // namespace animate
