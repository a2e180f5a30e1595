#include "platform/input_file.h"

#include <bit>
#include <utility>

#include "platform/windows/last_error.h"
#include "platform/windows/opened_file.h"

namespace platform {

Result<InputFile> InputFile::Open(const std::filesystem::path& path) {
  OwnedHandle file = OpenedFile(path, GENERIC_READ, OPEN_EXISTING);
  if (!file) {
    return LastError();
  }
  const FileStatus status = StatusOf(file.get());
  return InputFile(reinterpret_cast<std::intptr_t>(file.release()), status);
}

InputFile::~InputFile() {
  if (handle_ != -1) {
    CloseHandle(std::bit_cast<HANDLE>(handle_));
  }
}

InputFile::InputFile(InputFile&& other) noexcept
    : handle_(std::exchange(other.handle_, -1)), status_(std::move(other.status_)) {}

std::string InputFile::Read(std::uint64_t offset, std::size_t count) const {
  std::string data(count, '\0');
  OVERLAPPED place = {};
  place.Offset = static_cast<DWORD>(offset);
  place.OffsetHigh = static_cast<DWORD>(offset >> 32);
  DWORD got = 0;
  if (ReadFile(std::bit_cast<HANDLE>(handle_), data.data(), static_cast<DWORD>(count), &got,
               &place) == 0) {
    got = 0;
  }
  data.resize(got);
  return data;
}

}  // namespace platform
