#include "platform/private_folder.h"

#include <cstdlib>
#include <system_error>
#include <utility>

#include "platform/folders.h"
#include "platform/linux/last_error.h"
#include "platform/paths.h"
#include "platform/program_search.h"

namespace platform {
namespace fs = std::filesystem;

TemporaryPlace FindTemporaryPlace() {
  const char* const variable = "TMPDIR";
  return {FullPath(SystemTempFolder()), PathVariable(variable).empty() ? "" : variable};
}

Result<PrivateFolder> PrivateFolder::Make() {
  std::string name = FindTemporaryPlace().folder / "TessaraAnimate-XXXXXX";
  if (mkdtemp(name.data()) == nullptr) {
    return LastError();
  }
  return PrivateFolder(name);
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
