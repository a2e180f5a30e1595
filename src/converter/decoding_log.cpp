#include "converter/decoding_log.h"

#include <cstdlib>
#include <string_view>

#include "converter/message.h"

namespace animate {
namespace {

// The line with which the decoder of any version gives a frame up.
bool GivesUp(const std::string& error) {
  return error.starts_with("Error while decoding stream") ||
         error.starts_with("Error submitting packet to decoder");
}

}  // namespace

void DecodingLog::Take(const std::string& line) {
  constexpr std::string_view kPlace = " pts:";
  const std::size_t place = line.find(kPlace);
  if (place != std::string::npos && line.find("showinfo") != std::string::npos) {
    TakeFrame(std::strtoull(line.c_str() + place + kPlace.size(), nullptr, 10));
    return;
  }
  const std::string error = ErrorIn(line);
  if (error_.empty()) {
    error_ = error;
  }
  if (GivesUp(error)) {
    givenUp_.push_back(error_);
    error_.clear();
  }
}

void DecodingLog::TakeFrame(std::size_t frame) {
  if (frame < next_ || frame >= count_) {
    return;
  }
  AddLost(frame, faults_);
  // What is left over is this frame's.
  const std::size_t lost = frame - next_;
  const std::string& own = error_.empty() && givenUp_.size() > lost ? givenUp_[lost] : error_;
  if (!own.empty()) {
    faults_.push_back({frame, own});
  }
  next_ = frame + 1;
  givenUp_.clear();
  error_.clear();
}

void DecodingLog::AddLost(std::size_t end, std::vector<Fault>& faults) const {
  for (std::size_t index = 0; index < end - next_; ++index) {
    const std::string& error = index < givenUp_.size() ? givenUp_[index] : error_;
    if (!error.empty()) {
      faults.push_back({next_ + index, error});
    }
  }
}

std::vector<DecodingLog::Fault> DecodingLog::Faults() const {
  std::vector<Fault> faults = faults_;
  AddLost(count_, faults);
  return faults;
}

}  // namespace animate
