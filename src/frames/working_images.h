// Working images: what the viewer, the movie creator and the GIF creator write for a run and do not
// need after it. Their names carry markers by which they are found again.
#pragma once

#include "text/cstring.h"

// The GIF creator's temporary picture, named as a frame copy without a number.
inline constexpr char kTemporaryGifName[] = "_console_qmbImgTemp_.gif";

// Whether a bare name follows the pattern of the frames that the product's own viewer writes.
bool IsViewerImage(const CString& name);

// Deletes every image file of `folder` whose name marks it as a working image (it contains
// "qmbImg"), sub-folders excepted. Silent: a folder that cannot be searched and a file that cannot
// be deleted are passed over. An empty `folder` is not searched: joined with a file name it would
// mean the root of the drive.
void CleanTrails(const CString& folder);
