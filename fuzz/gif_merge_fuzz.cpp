// Feeds arbitrary bytes to the GIF merger as one to four files and compares what it puts out and
// what it says with the literal steps. The first byte of the input gives the number of files, and
// which of them are placed where the last free one was.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string_view>

#include "gif/gif_merger.h"
#include "tests/reference/literal_merger.h"

namespace {

// A stream that writes to memory.
class MemoryStream {
 public:
  MemoryStream() = default;
  ~MemoryStream() {
    // open_memstream wants both given back like this.
    // NOLINTBEGIN(cppcoreguidelines-owning-memory, cppcoreguidelines-no-malloc)
    std::fclose(stream_);
    std::free(content_);
    // NOLINTEND(cppcoreguidelines-owning-memory, cppcoreguidelines-no-malloc)
  }
  MemoryStream(const MemoryStream&) = delete;
  MemoryStream& operator=(const MemoryStream&) = delete;
  std::FILE* Get() { return stream_; }
  std::string_view Content() {
    std::fflush(stream_);
    return {content_, size_};
  }

 private:
  char* content_ = nullptr;
  std::size_t size_ = 0;
  std::FILE* stream_ = open_memstream(&content_, &size_);
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) {
    return 0;
  }
  const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
  const std::size_t files = data[0] % 4 + 1U;
  const std::size_t each = bytes.size() / files + 1;

  MemoryStream output;
  MemoryStream messages;
  const auto merger = std::make_unique<GifMerger>();
  merger->settings.messages = messages.Get();
  const auto literal = std::make_unique<LiteralMerger>();
  GifFrameResult result = GifFrameResult::kCopied;
  for (std::size_t index = 0; index < files && result != GifFrameResult::kBrokenOff; ++index) {
    const std::string_view file = bytes.substr(std::min(index * each, bytes.size()), each);
    literal->fixedPosition = merger->settings.fixedPosition = (data[0] >> (4 + index) & 1) != 0;
    result = merger->AppendBytes(file, output.Get(), index == 0);
    if (literal->Append(std::string(file), index == 0) != result) {
      std::abort();
    }
  }
  if (output.Content() != literal->output || messages.Content() != literal->messages) {
    std::abort();
  }
  return 0;
}
