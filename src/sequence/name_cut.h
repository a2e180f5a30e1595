// A name cut into what may be numbers and the text between them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "sequence/decimal.h"

namespace animate {

// A part of a name that may be one number: `-12.50`, `1e-05`, `7`, or a time of twelve hours as
// `9.05.12 AM`. Only with the names that it belongs with can be told whether its mark and its
// exponent are what they look like. All places count bytes from the start of the name.
struct Piece {
  // From the sign on, to behind the last character.
  std::uint32_t begin = 0;
  std::uint32_t end = 0;
  // The digits before the mark, after it, and of the exponent.
  std::uint32_t at = 0;
  std::uint32_t whole = 0;
  std::uint32_t fraction = 0;
  std::uint32_t exponent = 0;
  // '.' or ','; 0 without a fraction.
  char mark = 0;
  // '+', '-', or 'e' for an exponent without a sign; 0 without an exponent.
  char exponentSign = 0;
  // Seconds after midnight of a time of twelve hours; negative for all others.
  std::int32_t clock = -1;

  bool HasSign() const { return begin != at; }

  std::string_view WholeDigits(std::string_view name) const { return name.substr(at, whole); }
  std::string_view FractionDigits(std::string_view name) const {
    return name.substr(at + whole + 1, fraction);
  }
  std::string_view ExponentDigits(std::string_view name) const {
    return name.substr(end - exponent, exponent);
  }
};

// Stands for a piece in a pattern, twice for a time of twelve hours; no file's name can hold it.
constexpr char kPieceMark = '/';

// Cuts names one after the other, which saves the memory being asked for with each.
class NameCutter {
 public:
  // Cuts an image's name, appends its pieces to `pieces` and returns its pattern: what the names
  // that may belong together share, in lower case and with the one spelling of the extension. It is
  // there until the next call.
  const std::string& Cut(std::string_view name, std::string_view extension,
                         std::vector<Piece>& pieces);

 private:
  // A run of digits.
  struct Run {
    std::size_t begin = 0;
    std::size_t end = 0;
    std::size_t Size() const { return end - begin; }
  };

  void FindRuns();
  std::string_view Between(std::size_t run) const;
  bool IsJoinedToNext(std::size_t run) const;
  bool IsWholeDate(std::size_t run) const;
  std::size_t DateRuns(std::size_t run) const;
  std::size_t ClockRuns(std::size_t run, Piece& piece) const;
  std::size_t ReadClock(std::size_t run, std::size_t count, Piece& piece) const;
  std::size_t ChainRuns(std::size_t run) const;
  bool HasDecimals(std::size_t run, std::size_t count) const;
  Piece PieceOf(std::size_t run, bool hasFraction) const;
  bool TakeExponent(std::size_t run, Piece& piece) const;
  void Take(const Piece& piece, std::vector<Piece>& pieces);
  std::size_t TakeNumbers(std::size_t run, std::vector<Piece>& pieces);

  std::string_view name_;
  std::size_t stemEnd_ = 0;
  std::vector<Run> runs_;
  std::string pattern_;
  // What of the name is in the pattern.
  std::size_t done_ = 0;
};

}  // namespace animate
