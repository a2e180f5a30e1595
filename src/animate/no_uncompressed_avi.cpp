// For systems without an AVI writer of their own.
#include "animate/failure.h"
#include "animate/uncompressed_avi.h"

namespace animate {

const bool kHasUncompressedAvi = false;

Proven MakeUncompressedAvi(const Plan&, const Staging&, const std::filesystem::path&) {
  throw Failure("--without-converter: this system cannot write an AVI");
}

}  // namespace animate
