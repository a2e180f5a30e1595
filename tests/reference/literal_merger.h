// What appending GIF files has to give, worked out step by step and byte by byte, at any cost.
// Stands in for the GIF creator, its other settings at rest; files, output and messages are
// strings.
#pragma once

#include <algorithm>
#include <array>
#include <string>

#include "gif/gif_merger.h"
#include "tests/support/gif_builder.h"
#include "text/cstring.h"

class LiteralMerger {
 public:
  // Appends the first image of `file`. Image data that breaks off ends everything.
  GifFrameResult Append(const std::string& file, bool first) {
    file_ = file;
    position_ = 0;
    closed_ = false;
    Header(6, false);
    output += first ? "GIF89a" : "";
    Header(4, first);
    const int screen = Header(1, first);
    Header(2, first);
    const int colours = 2 << (screen & 7);
    if ((screen & 0x80) != 0) {
      ReadColours(colours, first);
      output += Bytes({0x21, 0xF9, 4, 8, 1, 0, 0, 0});
    }
    output += first ? Bytes({0x21, 0xFF, 11}) + "NETSCAPE2.0" + Bytes({3, 1, 0, 0, 0}) : "";
    position_ = std::min(file_.find(',', position_), file_.size());
    if (Byte() == EOF) {
      messages += "GIF_Read_Header: Unexpected End of File\n";
      return GifFrameResult::kNoImage;
    }
    output += ',';
    for (int* const place : {&x, &y}) {
      const int low = Header(1, false);
      const int own = low | Header(1, false) << 8;
      *place = fixedPosition ? *place : own;
      output += Bytes({*place, *place >> 8});
    }
    Header(4, true);
    const int image = Header(1, false);
    output += Bytes({(image & 0xF8) | (screen & 7) | (first ? 0 : 0x80)});
    if ((image & 0x80) != 0) {
      ReadColours(2 << (image & 7), true);
    } else if (!first) {
      output += colours_.substr(0, Place(colours) * 3);
    }
    try {
      CopyImage();
      output += '\0';
      return GifFrameResult::kCopied;
    } catch (const BrokenOff&) {
      messages += "EOF in data stream\n";
      return GifFrameResult::kBrokenOff;
    }
  }

  bool fixedPosition = false;
  int x = 0, y = 0;
  std::string output;
  std::string messages;

 private:
  struct BrokenOff {};

  int Byte() {
    const bool ended = closed_ || position_ >= file_.size();
    return ended ? EOF : static_cast<unsigned char>(file_[position_++]);
  }

  // Reads `count` bytes and returns the last.
  int Header(int count, bool copy) {
    int byte = 0;
    for (; count > 0; --count) {
      byte = Byte() & 0xFF;
      output += copy ? Bytes({byte}) : "";
    }
    return byte;
  }

  void ReadColours(int count, bool copy) {
    for (int index = 0; index < count * 3; ++index) {
      colours_[Place(index)] = static_cast<char>(Header(1, copy));
    }
  }

  template <typename... Values>
  void Message(const char* format, Values... values) {
    CString text;
    text.Format(format, long{values}...);
    messages += text.GetString();
  }

  void CopyImage() {
    left_ = held_ = 0;
    bits_ = 0;
    size_ = DataByte();
    if (size_ > 12) {
      return Message("\nError! in stream=%lx \n", size_);
    }
    Clear();
    int previous = Code();
    if (previous == clear_) {
      Clear();
      previous = Code();
    }
    Output(previous);
    int code = Code();
    do {
      if (used_[Place(code)]) {
        Output(code);
        FindFree();
        Add(free_, previous);
      } else {
        Add(code, previous);
        Output(code);
      }
      previous = code;
      code = Code();
      if (code == clear_) {
        Clear();
        previous = Code();
        Output(previous);
        code = Code();
      }
    } while (code != clear_ + 1);
  }

  void Add(int code, int prefix) {
    used_[Place(code)] = true;
    prefix_[Place(code)] = prefix;
  }

  int DataByte() {
    const int byte = Byte();
    if (byte == EOF) {
      throw BrokenOff();
    }
    output += static_cast<char>(byte);
    return byte;
  }

  int Code() {
    while (held_ < width_) {
      left_ = left_ <= 0 ? DataByte() : left_;
      bits_ |= static_cast<unsigned>(DataByte()) << held_;
      --left_;
      held_ += 8;
    }
    const int code = static_cast<int>(bits_ & ((1U << width_) - 1));
    bits_ >>= width_;
    held_ -= width_;
    if (code > 4100) {
      Message("\nError! in stream=%lx \n", code);
      Message("CLEAR=%lx INCSIZE=%lx EOI=%lx code_size=%lx \n", clear_, grow_, clear_ + 1, width_);
      return clear_ + 1;
    }
    if (code == grow_ && width_ < 12) {
      ++width_;
      grow_ = 2 * grow_ + 1;
    }
    return code;
  }

  void FindFree() {
    while (free_ < 4100 && used_[Place(free_)]) {
      ++free_;
    }
    if (free_ >= 4100) {
      Message("Error: GetNext nextab=%ld\n", free_);
      closed_ = true;
    } else if (free_ == grow_) {
      width_ = width_ + 1 > 12 ? 12 : width_ + 1;
      grow_ = 2 * grow_ + 1;
    }
  }

  void Output(int code) {
    for (int length = 1; (code = prefix_[Place(code)]) != -1; ++length) {
      if (length == 4101) {
        return Message("Error: Sending i=%ld index=%ld\n", length, code);
      }
    }
  }

  void Clear() {
    clear_ = 1 << size_;
    std::fill_n(used_.begin(), 4100, false);
    std::fill_n(used_.begin(), clear_, true);
    std::fill_n(prefix_.begin(), clear_, -1);
    free_ = clear_ + 2;
    grow_ = 2 * clear_ - 1;
    width_ = size_ + 1;
  }

  static std::size_t Place(int code) { return static_cast<std::size_t>(code); }

  std::string file_;
  std::size_t position_ = 0;
  bool closed_ = false;
  std::string colours_ = std::string(768, '\0');
  std::array<bool, 4200> used_ = {};
  std::array<int, 4200> prefix_ = {};
  int size_ = 0, width_ = 0, clear_ = 0, grow_ = 0, free_ = 0, left_ = 0, held_ = 0;
  unsigned bits_ = 0;
};
