// Feeds arbitrary bytes to the GIF merger as one to four files and compares what it puts out with
// the literal steps. The first byte of the input tells the number of files.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "fuzz/literal_merger.h"
#include "gif/gif_merger.h"
#include "platform/files.h"
#include "tests/support/temp_folder.h"

namespace {

void WriteFile(const std::string& path, const std::string& content) {
  const platform::OwnedFile file = platform::OpenFile(path, "wb");
  std::fwrite(content.data(), 1, content.size(), file.get());
}

std::string ReadFile(const std::string& path, std::size_t size) {
  const platform::OwnedFile file = platform::OpenFile(path, "rb");
  std::string content(size + 1, '\0');
  content.resize(std::fread(content.data(), 1, content.size(), file.get()));
  return content;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const TempFolder folder;
  static const std::string input = folder / "in.gif";
  static const std::string merged = folder / "out.gif";
  if (size == 0) {
    return 0;
  }
  const std::string bytes(data + 1, data + size);
  const std::size_t files = data[0] % 4 + 1U;
  const std::size_t each = bytes.size() / files + 1;

  const auto merger = std::make_unique<GifMerger>();
  const auto literal = std::make_unique<LiteralMerger>();
  platform::OwnedFile output = platform::OpenFile(merged, "wb");
  bool ended = false;
  for (std::size_t index = 0; index < files && !ended; ++index) {
    const std::string file = bytes.substr(std::min(index * each, bytes.size()), each);
    WriteFile(input, file);
    literal->Append(file, index == 0);
    ended = merger->AppendFile(input, output.get(), index == 0) == GifFrameResult::kBrokenOff;
  }
  output.reset();
  if (ended != literal->ended || ReadFile(merged, literal->output.size()) != literal->output) {
    std::abort();
  }
  return 0;
}
