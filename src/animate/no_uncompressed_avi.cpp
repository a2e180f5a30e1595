// For systems without an AVI writer of their own.
#include "animate/uncompressed_avi.h"
#include "film/failure.h"

namespace animate {

const bool kHasUncompressedAvi = false;

Measurement MakeUncompressedAvi(const Film&, const std::filesystem::path&) {
  throw Failure("--without-converter: this system cannot write an AVI");
}

}  // namespace animate
