#include "converter/changed_frames.h"

#include <optional>
#include <string>

#include "converter/encoding.h"
#include "converter/small_pictures.h"
#include "film/changed_frame.h"

namespace animate {

void CheckStillPlanned(const Converter& converter, const Film& film, const Staging& staging) {
  if (!staging.IsTouched(film)) {
    return;
  }
  const std::string again = "again.rgb";
  MakeSmallPictures(converter, film, staging, again);
  const std::optional<std::size_t> changed =
      FirstOther(film, staging.Folder() / kPlannedPictures, staging.Folder() / again);
  if (changed) {
    throw ChangedFrame(film.frames[film.shown[*changed]]);
  }
}

}  // namespace animate
