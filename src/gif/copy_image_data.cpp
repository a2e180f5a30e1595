// The LZW pass-through: follows the codes of the compressed data only to find where they end,
// while every byte that it takes is copied.
#include <algorithm>
#include <cstdlib>

#include "gif/gif_anim_creator.h"

namespace {

// A larger code size would not fit the tables.
constexpr int kLargestCodeSize = 12;
constexpr int kLargestCodeWidth = 12;
// A string may have one byte for every code.
constexpr int kLongestString = 4101;
constexpr int kBrokenOffStatus = 4;

unsigned long Hex(int value) {
  return static_cast<unsigned long>(value);
}

// Tells of a value that the tables have no place for.
void PrintStreamError(int value) {
  std::fprintf(stderr, "\nError! in stream=%lx \n", Hex(value));
}

}  // namespace

// Takes back the bytes that no code has needed yet: all but the rest of the last one.
[[gnu::always_inline]] inline void k3dGifAnimCreator::PutBackUnneeded(Decoder& decoder) {
  decoder.run.next -= decoder.bitsHeld / 8;
  decoder.bitsHeld %= 8;
  m_input.PutBack(decoder.run);
  decoder.run = {};
}

// Moves the free code on to the first entry that is not in use. Returns false, with the input
// closed, when there is none; the entry at kLastCode then serves for this and every later string.
[[gnu::always_inline]] inline bool k3dGifAnimCreator::NextFreeCode(Decoder& decoder) {
  while (decoder.nextFree < kLastCode && m_aUsed[static_cast<std::size_t>(decoder.nextFree)]) {
    ++decoder.nextFree;
  }
  if (decoder.nextFree >= kLastCode) [[unlikely]] {
    decoder.nextFree = kLastCode;
    std::fprintf(stderr, "Error: GetNext nextab=%ld\n", long{decoder.nextFree});
    PutBackUnneeded(decoder);
    m_input.Close();
    return false;
  }
  if (decoder.nextFree == m_nIncSize) [[unlikely]] {
    m_nCodeWidth = std::min(m_nCodeWidth + 1, kLargestCodeWidth);
    m_nIncSize = 2 * m_nIncSize + 1;
  }
  return true;
}

[[gnu::always_inline]] inline void k3dGifAnimCreator::AddString(int prefix, int index) {
  if (index > kLastCode) [[unlikely]] {
    std::fprintf(stderr, "Error index=%ld\n", long{index});
    return;
  }
  m_aUsed[static_cast<std::size_t>(index)] = true;
  m_aPrefix[static_cast<std::size_t>(index)] = static_cast<std::int16_t>(prefix);
}

// The string goes nowhere, and it has an end unless its chain of prefixes runs in a circle. That
// takes an entry that was a prefix before it was made, and only the first code behind a clear
// table (or the last entry, which outlives clearing) can be one: as long as no such code has come,
// every string ends and need not be followed.
[[gnu::always_inline]] inline void k3dGifAnimCreator::OutputString(int code) {
  if (!m_aUsed[static_cast<std::size_t>(code)] || code == kLastCode) [[unlikely]] {
    m_bStringsEnd = false;
  }
  if (!m_bStringsEnd) [[unlikely]] {
    FollowString(code);
  }
}

// Follows a string to its root, and gives up where no string without a circle can reach.
void k3dGifAnimCreator::FollowString(int code) const {
  int length = 0;
  while (code != kRoot && length < kLongestString) {
    code = m_aPrefix[static_cast<std::size_t>(code)];
    ++length;
  }
  if (code != kRoot) {
    std::fprintf(stderr, "Error: Sending i=%ld index=%ld\n", long{length}, long{code});
  }
}

[[gnu::always_inline]] inline void k3dGifAnimCreator::InitTable(Decoder& decoder) {
  if (m_nDebug != 0) {
    std::fprintf(stderr, "Initing Table...");
  }
  m_nClear = 1 << m_nInitialCodeSize;
  std::fill_n(m_aUsed.begin(), m_nClear, true);
  std::fill_n(m_aPrefix.begin(), m_nClear, static_cast<std::int16_t>(kRoot));
  m_nEndOfInformation = m_nClear + 1;
  decoder.nextFree = m_nClear + 2;
  m_nIncSize = 2 * m_nClear - 1;
  m_nCodeWidth = m_nInitialCodeSize + 1;
  m_bStringsEnd = true;
}

// Only the flags are cleared: an entry keeps its prefix until it is made anew.
[[gnu::always_inline]] inline void k3dGifAnimCreator::ClearTable(Decoder& decoder) {
  if (m_nDebug != 0) {
    std::fprintf(stderr, "Clearing Table...\n");
  }
  std::fill_n(m_aUsed.begin(), kLastCode, false);
  InitTable(decoder);
}

// Takes at least as many bits as a code needs; more where they are at hand, which costs less than
// byte by byte. PutBackUnneeded returns what was taken too early.
[[gnu::always_inline]] inline void k3dGifAnimCreator::FillBits(Decoder& decoder) {
  if (decoder.run.end - decoder.run.next >= 4) [[likely]] {
    const std::uint8_t* const next = decoder.run.next;
    const std::uint32_t bytes = next[0] | std::uint32_t{next[1]} << 8 |
                                std::uint32_t{next[2]} << 16 | std::uint32_t{next[3]} << 24;
    decoder.bits |= std::uint64_t{bytes} << decoder.bitsHeld;
    decoder.bitsHeld += 32;
    decoder.run.next += 4;
    return;
  }
  while (decoder.bitsHeld < m_nCodeWidth) {
    if (decoder.run.next == decoder.run.end) {
      decoder.run = ReadRun();
    }
    decoder.bits |= std::uint64_t{*decoder.run.next++} << decoder.bitsHeld;
    decoder.bitsHeld += 8;
  }
}

// The next code, 0 to kLastCode; a larger one in the data counts as the end of the information.
[[gnu::always_inline]] inline int k3dGifAnimCreator::ReadCode(Decoder& decoder) {
  if (decoder.bitsHeld < m_nCodeWidth) {
    FillBits(decoder);
  }
  const int code = static_cast<int>(decoder.bits & ((1U << m_nCodeWidth) - 1));
  decoder.bits >>= m_nCodeWidth;
  decoder.bitsHeld -= m_nCodeWidth;
  if (code > kLastCode) [[unlikely]] {
    PrintStreamError(code);
    std::fprintf(stderr, "CLEAR=%lx INCSIZE=%lx EOI=%lx code_size=%lx \n", Hex(m_nClear),
                 Hex(m_nIncSize), Hex(m_nEndOfInformation), Hex(m_nCodeWidth));
    return m_nEndOfInformation;
  }
  // The width grows here and in NextFreeCode, and both are needed: this is the code that comes
  // before its entry has been made.
  if (code == m_nIncSize) [[unlikely]] {
    if (m_nCodeWidth < kLargestCodeWidth) {
      ++m_nCodeWidth;
      m_nIncSize = 2 * m_nIncSize + 1;
    } else if (m_nDebug != 0) {
      std::fprintf(stderr, "<13?>");
    }
  }
  return code;
}

void k3dGifAnimCreator::CopyImageData() {
  m_nInitialCodeSize = ReadByte(true);
  if (m_nInitialCodeSize > kLargestCodeSize) {
    PrintStreamError(m_nInitialCodeSize);
    return;
  }
  m_input.StartCopying(m_pOutput);
  m_nBytesLeftInBlock = 0;
  Decoder decoder;
  ClearTable(decoder);
  // The first code of all and the first one behind a CLEAR are taken as they come, in the table or
  // not.
  int previous = ReadCode(decoder);
  if (previous == m_nClear) {
    ClearTable(decoder);
    previous = ReadCode(decoder);
  }
  OutputString(previous);
  int code = ReadCode(decoder);
  // The end is tested last: a code that ends the data right here is still taken as a string.
  do {
    if (m_aUsed[static_cast<std::size_t>(code)]) [[likely]] {
      OutputString(code);
      NextFreeCode(decoder);
      // Taken with this, so the next search need not look at it again.
      AddString(previous, decoder.nextFree++);
    } else {
      // The free code does not move: the search for the next one steps over this entry.
      AddString(previous, code);
      OutputString(code);
    }
    int next = ReadCode(decoder);
    previous = code;
    if (next == m_nClear) [[unlikely]] {
      ClearTable(decoder);
      previous = ReadCode(decoder);
      OutputString(previous);
      next = ReadCode(decoder);
    }
    code = next;
  } while (code != m_nEndOfInformation);
  PutBackUnneeded(decoder);
  m_input.StopCopying();
}

// The next bytes of compressed data, one at least: what is at hand of the current sub-block, or
// of the next one. A sub-block of length zero takes the count below zero: the byte behind its
// length still is its data.
GifInput::Run k3dGifAnimCreator::ReadRun() {
  if (m_nBytesLeftInBlock <= 0) {
    m_nBytesLeftInBlock = m_input.ReadByte();
  }
  const GifInput::Run run =
      m_input.ReadRun(static_cast<std::size_t>(std::max(m_nBytesLeftInBlock, 1)));
  if (run.next == run.end) {
    EndProcess();
  }
  m_nBytesLeftInBlock -= static_cast<int>(run.end - run.next);
  return run;
}

void k3dGifAnimCreator::EndProcess() {
  std::fprintf(stderr, "EOF in data stream\n");
  m_input.Close();
  std::fflush(m_pOutput);
  if (m_pBeforeProcessEnd != nullptr) {
    m_pBeforeProcessEnd();
  }
  std::exit(kBrokenOffStatus);
}
