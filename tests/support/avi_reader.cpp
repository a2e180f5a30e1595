#include "tests/support/avi_reader.h"

#include <fstream>
#include <iterator>

namespace {

std::uint32_t ReadNumber(const std::string& bytes, std::size_t offset) {
  std::uint32_t number = 0;
  for (std::size_t index = 4; index-- > 0;) {
    number = number << 8U | static_cast<unsigned char>(bytes.at(offset + index));
  }
  return number;
}

void ReadChunks(const std::string& file, std::size_t begin, std::size_t end,
                std::vector<AviStream>& streams) {
  for (std::size_t at = begin; at + 8 <= end;) {
    const std::string name = file.substr(at, 4);
    const std::size_t size = ReadNumber(file, at + 4);
    const std::string content = file.substr(at + 8, size);
    if (name == "RIFF" || name == "LIST") {
      ReadChunks(file, at + 12, at + 8 + size, streams);
    } else if (name == "strh") {
      streams.push_back({content, "", {}});
    } else if (name == "strf") {
      streams.back().format = content;
    } else if (name.substr(0, 1) == "0" && name.substr(2, 1) != "p") {
      streams.at(static_cast<std::size_t>(name[1] - '0')).chunks.push_back(content);
    }
    at += 8 + size + size % 2;
  }
}

}  // namespace

std::uint32_t AviStream::HeaderField(std::size_t offset) const {
  return ReadNumber(header, offset);
}

std::string AviStream::Content() const {
  std::string content;
  for (const std::string& chunk : chunks) {
    content += chunk;
  }
  return content;
}

std::vector<AviStream> ReadAvi(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  std::vector<AviStream> streams;
  ReadChunks(bytes, 0, bytes.size(), streams);
  return streams;
}

std::string LittleEndian(std::uint32_t number, int bytes) {
  std::string text;
  for (int index = 0; index < bytes; ++index) {
    text += static_cast<char>(number >> 8U * static_cast<unsigned>(index));
  }
  return text;
}
