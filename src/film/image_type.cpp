#include "film/image_type.h"

#include <map>

#include "platform/paths.h"
#include "text/lower_case.h"

namespace animate {

std::string ImageType(std::string_view name) {
  static const std::map<std::string, std::string> kTypes = {
      {"gif", "gif"},  {"bmp", "bmp"}, {"jpg", "jpg"}, {"jpeg", "jpg"},  {"tif", "tif"},
      {"tiff", "tif"}, {"png", "png"}, {"tga", "tga"}, {"webp", "webp"}, {"pbm", "pnm"},
      {"pgm", "pnm"},  {"pnm", "pnm"}, {"ppm", "pnm"}};
  const std::size_t dot = name.rfind('.');
  const auto type =
      kTypes.find(dot == std::string_view::npos ? "" : LowerCase(name.substr(dot + 1)));
  return type == kTypes.end() ? "" : type->second;
}

std::string ImageType(const std::filesystem::path& name) {
  return ImageType(std::string_view(platform::TextOfPath(name)));
}

}  // namespace animate
