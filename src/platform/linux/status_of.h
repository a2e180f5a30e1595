// The system's record of a file in this program's terms.
#pragma once

#include <sys/stat.h>

#include "platform/file_status.h"

namespace platform {

FileStatus StatusOf(const struct stat& found);

}  // namespace platform
