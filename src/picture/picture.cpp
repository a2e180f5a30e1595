#include "picture/picture.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>

#include "film/image_type.h"
#include "picture/bmp.h"
#include "picture/gif.h"
#include "picture/jpeg.h"
#include "picture/png.h"
#include "picture/pnm.h"
#include "picture/tga.h"
#include "picture/tiff.h"
#include "picture/webp.h"
#include "platform/input_file.h"

namespace animate {
namespace {

struct PictureType {
  // As ImageType has it, and for people.
  const char* extension;
  const char* name;
  // What its files begin with.
  std::string start;
  // Nothing for a file that is cut.
  std::optional<PictureFacts> (*read)(Bytes& bytes);
};

const PictureType* TypeOf(Bytes& content, const std::string& named) {
  static const PictureType kTypes[] = {{"png", "PNG", "\x89PNG\r\n\x1A\n", ReadPng},
                                       {"jpg", "JPEG", "\xFF\xD8\xFF", ReadJpeg},
                                       {"gif", "GIF", "GIF87a", ReadGif},
                                       {"gif", "GIF", "GIF89a", ReadGif},
                                       {"bmp", "BMP", "BM", ReadBmp},
                                       {"tif", "TIFF", {"II*\0", 4}, ReadTiff},
                                       {"tif", "TIFF", {"MM\0*", 4}, ReadTiff},
                                       {"tif", "TIFF", {"II+\0", 4}, ReadBigTiff},
                                       {"tif", "TIFF", {"MM\0+", 4}, ReadBigTiff},
                                       {"webp", "WebP", "RIFF", ReadWebp},
                                       {"pnm", "PBM", "P1", ReadPnm},
                                       {"pnm", "PGM", "P2", ReadPnm},
                                       {"pnm", "PPM", "P3", ReadPnm},
                                       {"pnm", "PBM", "P4", ReadPnm},
                                       {"pnm", "PGM", "P5", ReadPnm},
                                       {"pnm", "PPM", "P6", ReadPnm}};
  static const PictureType kTga = {"tga", "TGA", "", ReadTga};
  const std::string start = content.Text(0, 8);
  const auto* const type = std::find_if(
      std::begin(kTypes), std::end(kTypes),
      [&](const PictureType& candidate) { return start.starts_with(candidate.start); });
  if (type != std::end(kTypes)) {
    return type;
  }
  // That type has no start of its own.
  return named == kTga.extension && IsTga(content) ? &kTga : nullptr;
}

platform::SystemError Refused(const std::string& reason) {
  return {reason};
}

}  // namespace

platform::Result<Picture> LookAtPicture(const std::filesystem::path& path) {
  // Looked at before it is opened, which for a pipe would wait for a writer.
  const platform::FileKind kind = platform::QueryStatus(path).kind;
  if (kind != platform::FileKind::kFile) {
    return Refused(kind == platform::FileKind::kFolder    ? "is a folder"
                   : kind == platform::FileKind::kMissing ? "cannot be found, or leads nowhere"
                                                          : "is no file");
  }
  const platform::Result<platform::InputFile> file = platform::InputFile::Open(path);
  if (!file) {
    return Refused("cannot be read: " + file.Reason());
  }
  Bytes content(*file);
  const platform::Result<PictureFacts> facts = LookAtContent(content, path.filename());
  return facts ? platform::Result<Picture>({*facts, file->Status()}) : Refused(facts.Reason());
}

platform::Result<PictureFacts> LookAtContent(Bytes& content, const std::filesystem::path& name) {
  if (content.Size() == 0) {
    return Refused("is empty");
  }
  const std::string named = ImageType(name);
  const PictureType* const type = TypeOf(content, named);
  if (type == nullptr) {
    return Refused("is no picture");
  }
  if (named != type->extension) {
    return Refused(std::string("is a ") + type->name + " picture, not what its name says");
  }
  const std::optional<PictureFacts> facts = type->read(content);
  if (!facts) {
    return Refused("is cut, its end is missing");
  }
  if (facts->size.width <= 0 || facts->size.height <= 0) {
    return Refused("is damaged");
  }
  if (!facts->fault.empty()) {
    return Refused(facts->fault);
  }
  return *facts;
}

}  // namespace animate
