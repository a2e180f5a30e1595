#include "movie/native_avi/result_text.h"

// vfw.h builds on both, and has the codes.
#include <mmsystem.h>
#include <vfw.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace {

struct ResultText {
  HRESULT code;
  std::string_view text;
};

constexpr std::array<ResultText, 21> kResultTexts = {{
    {AVIERR_OK, "Success"},
    {AVIERR_UNSUPPORTED, "AVIERR_UNSUPPORTED: compression is not supported for this type of data"},
    {REGDB_E_CLASSNOTREG, "REGDB_E_CLASSNOTREG: file type not recognised"},
    {AVIERR_BADFORMAT, "AVIERR_BADFORMAT: corrupt file or unrecognized format"},
    {AVIERR_MEMORY, "AVIERR_MEMORY: insufficient memory"},
    {AVIERR_INTERNAL, "AVIERR_INTERNAL: internal error"},
    {AVIERR_BADFLAGS, "AVIERR_BADFLAGS"},
    {AVIERR_BADPARAM, "AVIERR_BADPARAM"},
    {AVIERR_BADSIZE, "AVIERR_BADSIZE"},
    {AVIERR_BADHANDLE, "AVIERR_BADHANDLE"},
    {AVIERR_FILEREAD, "AVIERR_FILEREAD: disk error while reading file"},
    {AVIERR_FILEWRITE, "AVIERR_FILEWRITE: disk error while writing file"},
    {AVIERR_FILEOPEN, "AVIERR_FILEOPEN: disk error while opening file"},
    {AVIERR_COMPRESSOR, "AVIERR_COMPRESSOR"},
    {AVIERR_NOCOMPRESSOR, "AVIERR_NOCOMPRESSOR: a suitable compressor could not be found"},
    {AVIERR_READONLY, "AVIERR_READONLY: file is read-only"},
    // The text that users of the writer know for it, though the code has a name of its own.
    {AVIERR_NODATA, "AVIERR_READONLY"},
    {AVIERR_BUFFERTOOSMALL, "AVIERR_BUFFERTOOSMALL"},
    {AVIERR_CANTCOMPRESS, "AVIERR_CANTCOMPRESS"},
    {AVIERR_USERABORT, "AVIERR_USERABORT"},
    {AVIERR_ERROR, "AVIERR_ERROR"},
}};

std::string_view FindText(HRESULT code) {
  const auto* const found =
      std::find_if(kResultTexts.begin(), kResultTexts.end(),
                   [&](const ResultText& entry) { return entry.code == code; });
  return found == kResultTexts.end() ? "unknown avi result code" : found->text;
}

}  // namespace

std::size_t AviResultText(HRESULT code, char* buffer, std::size_t size) {
  const std::string_view text = FindText(code);
  if (buffer != nullptr && size > 0) {
    buffer[text.copy(buffer, size - 1)] = '\0';
  }
  return text.size();
}
