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
#include "picture/tiff.h"
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

const PictureType* TypeOf(const std::string& start) {
  static const PictureType kTypes[] = {{"png", "PNG", "\x89PNG\r\n\x1A\n", ReadPng},
                                       {"jpg", "JPEG", "\xFF\xD8\xFF", ReadJpeg},
                                       {"gif", "GIF", "GIF87a", ReadGif},
                                       {"gif", "GIF", "GIF89a", ReadGif},
                                       {"bmp", "BMP", "BM", ReadBmp},
                                       {"tif", "TIFF", {"II*\0", 4}, ReadTiff},
                                       {"tif", "TIFF", {"MM\0*", 4}, ReadTiff}};
  const auto* const type =
      std::find_if(std::begin(kTypes), std::end(kTypes), [&](const PictureType& candidate) {
        return start.compare(0, candidate.start.size(), candidate.start) == 0;
      });
  return type == std::end(kTypes) ? nullptr : type;
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
  const PictureType* const type = TypeOf(content.Text(0, 8));
  if (type == nullptr) {
    return Refused("is no picture");
  }
  if (ImageType(name) != type->extension) {
    return Refused(std::string("is a ") + type->name + " picture, not what its name says");
  }
  const std::optional<PictureFacts> facts = type->read(content);
  if (!facts) {
    return Refused("is cut, its end is missing");
  }
  if (facts->size.width <= 0 || facts->size.height <= 0) {
    return Refused("is damaged");
  }
  return *facts;
}

}  // namespace animate
