#include "gif/lzw_follower.h"

#include <algorithm>
#include <cstddef>

namespace {

// A larger code size would not fit the tables.
constexpr int kLargestCodeSize = 12;
constexpr int kLargestCodeWidth = 12;
constexpr int kRoot = -1;
// A string may have one byte for every code.
constexpr int kLongestString = 4101;

// Thrown where the input ends inside the data, so that no step has to ask.
struct BrokenOff {};

unsigned long Hex(int value) {
  return static_cast<unsigned long>(value);
}

}  // namespace

bool LzwFollower::CopyImageData(GifInput& input, std::FILE* output) {
  input_ = &input;
  bits_ = 0;
  bitsHeld_ = 0;
  run_ = {};
  bytesLeftInBlock_ = 0;
  input.StartCopying(output);
  bool complete = true;
  try {
    codeSize_ = input.ReadByte();
    if (codeSize_ == EOF) {
      throw BrokenOff();
    }
    if (codeSize_ > kLargestCodeSize) {
      PrintStreamError(codeSize_);
    } else {
      FollowCodes();
      PutBackUnneeded();
    }
  } catch (const BrokenOff&) {
    std::fprintf(messages, "EOF in data stream\n");
    complete = false;
  }
  input.StopCopying();
  return complete;
}

void LzwFollower::FollowCodes() {
  ClearTable();
  // The first code of all and the first one after a CLEAR are taken as they come, in the table or
  // not.
  int previous = ReadCode();
  if (previous == clear_) {
    ClearTable();
    previous = ReadCode();
  }
  OutputString(previous);
  int code = ReadCode();
  // The end is tested last: a code that ends the data right here is still taken as a string.
  do {
    if (used_[static_cast<std::size_t>(code)]) {
      OutputString(code);
      NextFreeCode();
      // Taken with this, so the next search need not look at it again.
      AddString(previous, nextFree_++);
    } else {
      // The free code does not move: the search for the next one steps over this entry.
      AddString(previous, code);
      OutputString(code);
    }
    previous = code;
    code = ReadCode();
    if (code == clear_) {
      ClearTable();
      previous = ReadCode();
      OutputString(previous);
      code = ReadCode();
    }
  } while (code != endOfInformation_);
}

// The operations that every code takes are inline: that saves a third of the time.

// The next code, 0 to kLastCode; a larger one in the data counts as the end of the information.
inline int LzwFollower::ReadCode() {
  if (bitsHeld_ < codeWidth_) {
    FillBits();
  }
  const int code = static_cast<int>(bits_ & ((1U << codeWidth_) - 1));
  bits_ >>= codeWidth_;
  bitsHeld_ -= codeWidth_;
  if (code > kLastCode) {
    PrintStreamError(code);
    std::fprintf(messages, "CLEAR=%lx INCSIZE=%lx EOI=%lx code_size=%lx \n", Hex(clear_),
                 Hex(incSize_), Hex(endOfInformation_), Hex(codeWidth_));
    return endOfInformation_;
  }
  // The width grows here and in NextFreeCode, and both are needed: this is the code that comes
  // before its entry has been made.
  if (code == incSize_) {
    if (codeWidth_ < kLargestCodeWidth) {
      ++codeWidth_;
      incSize_ = 2 * incSize_ + 1;
    } else if (debug) {
      std::fprintf(messages, "<13?>");
    }
  }
  return code;
}

// Takes at least as many bits as a code needs; more where they are at hand, which costs less than
// byte by byte. PutBackUnneeded returns what was taken too early.
inline void LzwFollower::FillBits() {
  if (run_.end - run_.next >= 4) {
    const std::uint8_t* const next = run_.next;
    const std::uint32_t bytes = next[0] | std::uint32_t{next[1]} << 8 |
                                std::uint32_t{next[2]} << 16 | std::uint32_t{next[3]} << 24;
    bits_ |= std::uint64_t{bytes} << bitsHeld_;
    bitsHeld_ += 32;
    run_.next += 4;
    return;
  }
  while (bitsHeld_ < codeWidth_) {
    bits_ |= std::uint64_t{ReadDataByte()} << bitsHeld_;
    bitsHeld_ += 8;
  }
}

// A sub-block of length zero takes the count below zero: the byte after its length still is its
// data.
std::uint8_t LzwFollower::ReadDataByte() {
  if (run_.next == run_.end) {
    if (bytesLeftInBlock_ <= 0) {
      bytesLeftInBlock_ = input_->ReadByte();
    }
    run_ = input_->ReadRun(static_cast<std::size_t>(std::max(bytesLeftInBlock_, 1)));
    if (run_.next == run_.end) {
      throw BrokenOff();
    }
    bytesLeftInBlock_ -= static_cast<int>(run_.end - run_.next);
  }
  return *run_.next++;
}

// Takes back the bytes that no code has needed yet: all but the rest of the last one.
void LzwFollower::PutBackUnneeded() {
  run_.next -= bitsHeld_ / 8;
  bitsHeld_ %= 8;
  input_->PutBack(run_);
  run_ = {};
}

// Moves the free code on to the first entry that is not in use. When there is none the input is
// closed, and the entry at kLastCode serves for this and every later string.
inline void LzwFollower::NextFreeCode() {
  while (nextFree_ < kLastCode && used_[static_cast<std::size_t>(nextFree_)]) {
    ++nextFree_;
  }
  if (nextFree_ >= kLastCode) {
    nextFree_ = kLastCode;
    std::fprintf(messages, "Error: GetNext nextab=%ld\n", long{nextFree_});
    PutBackUnneeded();
    input_->Close();
  } else if (nextFree_ == incSize_) {
    codeWidth_ = std::min(codeWidth_ + 1, kLargestCodeWidth);
    incSize_ = 2 * incSize_ + 1;
  }
}

inline void LzwFollower::AddString(int prefix, int index) {
  used_[static_cast<std::size_t>(index)] = true;
  prefix_[static_cast<std::size_t>(index)] = static_cast<std::int16_t>(prefix);
}

// The string goes nowhere, and it has an end unless its chain of prefixes runs in a circle. That
// takes an entry that was a prefix before it was made (the codes 300, 300 after a clear table make
// entry 300 its own prefix), and only the first code after a clear table, or the last entry, which
// outlives clearing, can be one: as long as no such code has come, every string ends and need not
// be followed.
inline void LzwFollower::OutputString(int code) {
  if (!used_[static_cast<std::size_t>(code)] || code == kLastCode) {
    stringsEnd_ = false;
  }
  if (!stringsEnd_) {
    FollowString(code);
  }
}

// Follows a string to its root, and gives up where no string without a circle can reach. Whole
// rounds of a circle are left out, since they end where they began.
void LzwFollower::FollowString(int code) const {
  int length = 0;
  int lookedFor = code;
  int lookedForSince = 0;
  int mostSteps = 1;
  while (code != kRoot && length < kLongestString) {
    code = prefix_[static_cast<std::size_t>(code)];
    ++length;
    if (code == lookedFor) {
      const int round = length - lookedForSince;
      length += (kLongestString - length) / round * round;
    } else if (length - lookedForSince == mostSteps) {
      lookedFor = code;
      lookedForSince = length;
      mostSteps *= 2;
    }
  }
  if (code != kRoot) {
    std::fprintf(messages, "Error: Sending i=%ld index=%ld\n", long{length}, long{code});
  }
}

void LzwFollower::InitTable() {
  if (debug) {
    std::fprintf(messages, "Initing Table...");
  }
  clear_ = 1 << codeSize_;
  std::fill_n(used_.begin(), clear_, true);
  std::fill_n(prefix_.begin(), clear_, static_cast<std::int16_t>(kRoot));
  endOfInformation_ = clear_ + 1;
  nextFree_ = clear_ + 2;
  incSize_ = 2 * clear_ - 1;
  codeWidth_ = codeSize_ + 1;
  stringsEnd_ = true;
}

// Only the flags are cleared: an entry keeps its prefix until it is made anew.
void LzwFollower::ClearTable() {
  if (debug) {
    std::fprintf(messages, "Clearing Table...\n");
  }
  std::fill_n(used_.begin(), kLastCode, false);
  InitTable();
}

// Says which value the tables have no place for.
void LzwFollower::PrintStreamError(int value) const {
  std::fprintf(messages, "\nError! in stream=%lx \n", Hex(value));
}
