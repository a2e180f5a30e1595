// Protecting files from deletion.
#pragma once

#include <memory>
#include <string>

namespace platform {

// Keeps the file at a path from being deleted as long as it lives; others may still read and write
// it. A file that cannot be opened is not held. On a system where an open file can be deleted it
// does nothing.
class FileHold {
 public:
  explicit FileHold(const std::string& path);

 private:
  struct HandleCloser {
    void operator()(void* handle) const;
  };
  std::unique_ptr<void, HandleCloser> handle_;
};

}  // namespace platform
