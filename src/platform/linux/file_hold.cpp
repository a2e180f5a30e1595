#include "platform/file_hold.h"

namespace platform {

FileHold::FileHold(const std::string& /*path*/) {}

void FileHold::HandleCloser::operator()(void* /*handle*/) const {}

}  // namespace platform
