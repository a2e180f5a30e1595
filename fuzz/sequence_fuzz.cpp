// Makes names of arbitrary bytes and, for some of them, compares the order that is found with the
// literal rules.
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <string>

#include "film/failure.h"
#include "sequence/selection.h"
#include "tests/reference/literal_sequence.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(data, data + size);
  const std::vector<std::string> names = NamesOfBytes(bytes);
  std::vector<std::string> found;
  try {
    for (const animate::FoundFrame& frame :
         animate::FindSequence({names.begin(), names.end()}, {}).frames) {
      found.push_back(frame.name.string());
    }
  } catch (const animate::Failure&) {
    found.clear();
  }
  // The literal rules take several times as long.
  constexpr std::size_t kComparedOneOf = 64;
  if (std::hash<std::string>()(bytes) % kComparedOneOf == 0 &&
      found != OrderLiterally(names, ' ')) {
    std::abort();
  }
  return 0;
}
