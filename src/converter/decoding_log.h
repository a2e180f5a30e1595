// What the converter says while it decodes frames.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace animate {

// Finds the bad frames in the converter's messages: those of their decoding, each with its level in
// brackets, and between them one for each frame that came out, with its place.
class DecodingLog {
 public:
  struct Fault {
    // Counted from 0.
    std::size_t frame = 0;
    // The converter's first error.
    std::string error;
  };

  // Of the decoding of `count` frames.
  explicit DecodingLog(std::size_t count) : count_(count) {}

  // Takes the next line.
  void Take(const std::string& line);

  // After the last line, the frames that came out with an error or, with one, not at all, in their
  // order. One that is missing without a word is not the frame's fault.
  std::vector<Fault> Faults() const;

 private:
  // A frame came out, as the place `frame` of all.
  void TakeFrame(std::size_t frame);

  // Adds the frames from the next one on that were given up before the frame `end`.
  void AddLost(std::size_t end, std::vector<Fault>& faults) const;

  std::size_t count_ = 0;
  std::vector<Fault> faults_;
  std::size_t next_ = 0;
  // The first errors of the frames that were given up since the last that came out, and that of the
  // one after them.
  std::vector<std::string> givenUp_;
  std::string error_;
};

}  // namespace animate
