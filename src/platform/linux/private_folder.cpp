#include "platform/private_folder.h"

#include <cstdlib>
#include <system_error>
#include <utility>

#include "platform/folders.h"
#include "platform/linux/last_error.h"
#include "platform/paths.h"

namespace platform {
namespace fs = std::filesystem;

Result<PrivateFolder> PrivateFolder::Make() {
  std::string name = SystemTempFolder() + "/TessaraAnimate-XXXXXX";
  if (mkdtemp(name.data()) == nullptr) {
    return LastError();
  }
  return PrivateFolder(FullPath(name));
}

PrivateFolder::~PrivateFolder() {
  std::error_code ignored;
  if (!path_.empty()) {
    fs::remove_all(path_, ignored);
  }
}

PrivateFolder::PrivateFolder(PrivateFolder&& other) noexcept
    : path_(std::exchange(other.path_, {})) {}

}  // namespace platform
