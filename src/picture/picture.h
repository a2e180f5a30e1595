// What the file of a picture says of itself, without decoding it.
#pragma once

#include <filesystem>

#include "picture/bytes.h"
#include "picture/facts.h"
#include "platform/file_status.h"
#include "platform/result.h"

namespace animate {

struct Picture {
  PictureFacts facts;
  // Of the file that was looked at.
  platform::FileStatus status;
};

// Looks at the picture in the image file at `path`. Fails when it is no file or cannot be read, is
// empty, is no picture or one of another type than its name says, or is cut: converters take some
// cut files for whole ones. The reason is what the file's name is to be followed by: "is empty".
platform::Result<Picture> LookAtPicture(const std::filesystem::path& path);

// The same for the content of a file with the name `name`.
platform::Result<PictureFacts> LookAtContent(Bytes& content, const std::filesystem::path& name);

}  // namespace animate
