// The GIF that a frame is read from, with the copying of what has been read.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

#include "platform/files.h"

// Reads one file byte by byte through a buffer of its own. While copying is on, every byte that is
// read also goes to the output, in long runs instead of one at a time: what lies in the buffer
// between the two marks is written when the buffer is refilled or copying ends.
class GifInput {
 public:
  // Opens the file at `path`, in place of the one that was open. Returns false when it cannot be
  // opened.
  bool Open(const std::string& path);

  // Reads `file`, which has to stay where it is, as the content of a file, in place of the one that
  // was open.
  void OpenBytes(std::string_view file);

  // Closes the file. From then on reading finds its end; closing again does nothing.
  void Close();

  // The next byte, 0 to 255, or EOF at the end of the file.
  int ReadByte() {
    if (next_ == end_ && !Refill()) {
      return EOF;
    }
    return buffer_[next_++];
  }

  // Bytes of the file that lie next to each other in memory.
  struct Run {
    const std::uint8_t* next = nullptr;
    const std::uint8_t* end = nullptr;
  };

  // Reads up to `most` bytes (1 or more) at once, as many as are at hand; none only at the end of
  // the file. The run is good until the next call of any other operation but PutBack.
  Run ReadRun(std::size_t most);

  // Makes the rest of the last run unread again.
  void PutBack(const Run& rest) { next_ -= static_cast<std::size_t>(rest.end - rest.next); }

  // Begins copying to `output` with the next byte that is read; ends it, with all bytes that were
  // read meanwhile written. What the output refuses is lost silently.
  void StartCopying(std::FILE* output);
  void StopCopying();

 private:
  bool Refill();
  void WriteCopy();

  platform::OwnedFile file_;
  // The content where there is no file: what has not yet been fetched.
  std::string_view bytes_;
  // How much of the file is still to be fetched.
  std::uint64_t unread_ = 0;
  // Where copied bytes go; null while copying is off.
  std::FILE* copyOutput_ = nullptr;
  // Marks in the buffer: the first byte not yet copied, the next one to read, the end.
  std::size_t uncopied_ = 0;
  std::size_t next_ = 0;
  std::size_t end_ = 0;
  std::array<std::uint8_t, 65536> buffer_ = {};
};
