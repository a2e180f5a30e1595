#include "platform/input_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "platform/linux/descriptor.h"
#include "platform/linux/last_error.h"
#include "platform/linux/status_of.h"

namespace platform {

Result<InputFile> InputFile::Open(const std::filesystem::path& path) {
  const int handle = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (handle < 0) {
    return LastError();
  }
  InputFile file(handle, {});
  struct stat found = {};
  if (fstat(handle, &found) != 0) {
    return LastError();
  }
  file.status_ = StatusOf(found);
  return file;
}

InputFile::~InputFile() {
  const Descriptor closed(static_cast<int>(handle_));
}

InputFile::InputFile(InputFile&& other) noexcept
    : handle_(std::exchange(other.handle_, -1)), status_(std::move(other.status_)) {}

std::string InputFile::Read(std::uint64_t offset, std::size_t count) const {
  std::string data(count, '\0');
  std::size_t done = 0;
  while (done < count) {
    const ssize_t got = pread(static_cast<int>(handle_), data.data() + done, count - done,
                              static_cast<off_t>(offset + done));
    if (got <= 0 && !(got < 0 && errno == EINTR)) {
      break;
    }
    done += got > 0 ? static_cast<std::size_t>(got) : 0;
  }
  data.resize(done);
  return data;
}

}  // namespace platform
