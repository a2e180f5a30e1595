// The converter's parameters for each output format, and the passes that it takes.
#include "movie/avi_creator.h"
#include "text/file_name.h"
#include "text/number.h"

namespace {

// A parameter string is the converter's whole command line; the blank in front ends the empty name
// that the converter sees as its own. Blanks are kept exactly, doubled and trailing ones included.
constexpr char kGifPaletteParameters[] =
    R"( -v warning -i "%s" -vf "fps=%s,scale=-1:-1:flags=lanczos,palettegen" -y "%s" )";
constexpr char kGifParameters[] =
    R"( -v warning -i "%s" -i  "%s" -lavfi "setpts=%f*PTS,scale=-1:-1:flags=lanczos [x]; )"
    R"([x][1:v] paletteuse" -y "%s" )";
constexpr char kAviParameters[] =
    R"( -framerate %s -i "%s" -q:v 2  -c:v msmpeg4v3 -pix_fmt yuv420p "%s" )";
constexpr char kMp4Parameters[] =
    R"( -framerate  %s  -i  "%s"  -c:v libx264 -vf %s -pix_fmt yuv420p  "%s" )";
constexpr char kWmvParameters[] = R"( -framerate %s -i "%s" -qscale 1  -vcodec msmpeg4v3 "%s")";
constexpr char kOtherParameters[] = R"( -r %s -i "%s" -qscale 1 -filter:v "setpts=%f*PTS" "%s")";

int RaisedToEven(int size) {
  return size % 2 != 0 ? size + 1 : size;
}

}  // namespace

void k3dAviCreator::RunConverter(const CString& converter, const CString& pattern,
                                 const CString& palette) {
  const CString rateText = IntToString(m_nFrameRate);
  const char* const rate = rateText.GetString();
  const char* const input = pattern.GetString();
  const char* const output = m_sOutputFile.GetString();
  const double timeFactor = m_fSizeFactor;
  const CString extension = GetFileExtension(m_sOutputFile);
  CString parameters;
  if (extension.EqualsNoCase("gif")) {
    // The first pass builds the palette that the second one draws with.
    parameters.Format(&kGifPaletteParameters[0], input, rate, palette.GetString());
    RunExternalApp(converter, parameters);
    parameters.Format(&kGifParameters[0], input, palette.GetString(), timeFactor, output);
  } else if (extension.EqualsNoCase("avi")) {
    parameters.Format(&kAviParameters[0], rate, input, output);
  } else if (extension.EqualsNoCase("mp4")) {
    // The encoder refuses odd sizes.
    m_nWidth = RaisedToEven(m_nWidth);
    m_nHeight = RaisedToEven(m_nHeight);
    CString scale;
    scale.Format("scale=%d:%d", m_nWidth, m_nHeight);
    parameters.Format(&kMp4Parameters[0], rate, input, scale.GetString(), output);
  } else if (extension.EqualsNoCase("wmv")) {
    parameters.Format(&kWmvParameters[0], rate, input, output);
  } else {
    parameters.Format(&kOtherParameters[0], rate, input, timeFactor, output);
  }
  RunExternalApp(converter, parameters);
}
