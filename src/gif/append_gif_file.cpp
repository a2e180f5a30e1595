// Reading one single-frame GIF and writing it as a frame of the animation: everything but the
// compressed data.
#include <cstdlib>

#include "gif/gif_anim_creator.h"

namespace {

constexpr int kImageSeparator = 0x2C;
constexpr int kBlockTerminator = 0x00;
// Whether a colour table follows, in the packed bytes of both descriptors.
constexpr int kTableFlag = 0x80;
constexpr int kInterlaceFlag = 0x40;
constexpr int kTableSizeMask = 0x07;

constexpr char kSignature[] = "GIF89a";
constexpr int kSignatureLength = 6;

int ColourCount(int pixelBits) {
  return 2 << pixelBits;
}

}  // namespace

bool k3dGifAnimCreator::AppendGifFile(const CString& path, std::FILE* output, int first) {
  if (!m_input.Open(path)) {
    std::fprintf(stderr, "Can't open %s for reading.\n", path.GetString());
    return false;
  }
  m_pOutput = output;
  const bool isFirst = first != 0;
  ReadScreenHeader(isFirst);
  // Extensions are passed over as plain bytes, so a separator value inside one ends the search.
  int byte = m_input.ReadByte();
  while (byte != EOF && byte != kImageSeparator) {
    byte = m_input.ReadByte();
  }
  if (byte == EOF) {
    m_input.Close();
    std::fprintf(stderr, "GIF_Read_Header: Unexpected End of File\n");
    return false;
  }
  WriteByte(kImageSeparator);
  ReadImageDescriptor(isFirst);
  CopyImageData();
  WriteByte(kBlockTerminator);
  m_input.Close();
  return true;
}

void k3dGifAnimCreator::ReadScreenHeader(bool first) {
  for (int count = 0; count < kSignatureLength; ++count) {
    ReadByte(false);
  }
  if (first) {
    std::fputs(&kSignature[0], m_pOutput);
  }
  const int width = ReadWord(first);
  const int height = ReadWord(first);
  const int packed = ReadByte(first);
  m_bGlobalColours = (packed & kTableFlag) != 0;
  m_nPixelBits = packed & kTableSizeMask;
  m_nColours = ColourCount(m_nPixelBits);
  const int background = ReadByte(first);
  ReadByte(first);  // the pixel aspect ratio
  if (m_nVerbose != 0) {
    const int colourResolution = packed >> 4 & 0x07;
    std::fprintf(stderr, "Screen: %ldx%ldx%ld m=%ld cres=%ld bkgnd=%ld pix=%ld\n", long{width},
                 long{height}, long{m_nColours}, long{packed & kTableFlag}, long{colourResolution},
                 long{background}, long{m_nPixelBits});
  }
  if (m_bGlobalColours) {
    ReadColours(first, m_nColours);
  }
  m_nUseLocalColourTable = 1;
  WriteGraphicControl();
  if (first) {
    WriteLoop();
  }
}

void k3dGifAnimCreator::ReadImageDescriptor(bool first) {
  for (int* const position : {&m_nX, &m_nY}) {
    const int own = ReadWord(false);
    if (m_nFixedPosition == 0) {
      *position = own;
    }
    WriteWord(*position);
  }
  const int width = ReadWord(true);
  const int height = ReadWord(true);
  int packed = ReadByte(false);
  const int localFlag = packed & kTableFlag;
  const int localPixelBits = packed & kTableSizeMask;
  const int localColours = ColourCount(localPixelBits);
  const bool bringColours = m_nUseLocalColourTable != 0 && !first;
  if (bringColours) {
    packed |= kTableFlag;
  }
  // The size is the screen's even where a local table of another size follows.
  WriteByte((packed & ~kTableSizeMask) | m_nPixelBits);
  if (m_nVerbose != 0) {
    std::fprintf(stderr, "Image: %ldx%ldx%ld m=%ld i=%ld pix=%ld \n", long{width}, long{height},
                 long{localColours}, long{localFlag}, long{packed & kInterlaceFlag},
                 long{localPixelBits});
  }
  if (localFlag != 0) {
    ReadColours(true, localColours);
  } else if (bringColours) {
    for (int index = 0; index < m_nColours; ++index) {
      const Colour& colour = m_aColours[static_cast<std::size_t>(index)];
      WriteByte(colour.red);
      WriteByte(colour.green);
      WriteByte(colour.blue);
    }
  }
  m_nUseLocalColourTable = 0;
}

// Written only for a file with a global colour table: the index refers to it.
void k3dGifAnimCreator::WriteGraphicControl() {
  if (!m_bGlobalColours || (m_nTransparent < 0 && m_nDelay < 0)) {
    return;
  }
  const bool transparent = m_nTransparent >= 0;
  const int index = transparent ? FindTransparentColour() : 0;
  WriteByte(0x21);
  WriteByte(0xF9);
  WriteByte(4);
  WriteByte(m_nDisposal * 4 + (transparent ? 1 : 0));
  WriteWord(m_nDelay);
  WriteByte(index);
  WriteByte(kBlockTerminator);
}

void k3dGifAnimCreator::WriteLoop() {
  if (m_nLoops < 0) {
    return;
  }
  WriteByte(0x21);
  WriteByte(0xFF);
  WriteByte(11);
  std::fputs("NETSCAPE2.0", m_pOutput);
  WriteByte(3);
  WriteByte(1);
  WriteWord(m_nLoops);
  WriteByte(kBlockTerminator);
}

// The index of the colour nearest to the transparent one, the lowest among equals.
int k3dGifAnimCreator::FindTransparentColour() const {
  const int red = m_nTransparent & 0xFF;
  const int green = m_nTransparent >> 8 & 0xFF;
  const int blue = m_nTransparent >> 16;
  int best = 0;
  int bestDistance = 3 * 256;
  for (int index = 0; index < m_nColours; ++index) {
    const Colour& colour = m_aColours[static_cast<std::size_t>(index)];
    const int distance =
        std::abs(red - colour.red) + std::abs(green - colour.green) + std::abs(blue - colour.blue);
    if (distance < bestDistance) {
      best = index;
      bestDistance = distance;
    }
  }
  if (bestDistance != 0) {
    const Colour& colour = m_aColours[static_cast<std::size_t>(best)];
    std::fprintf(stderr, "Transparent not matched fully, col #%d (%d,%d,%d) used now\n", best,
                 colour.red, colour.green, colour.blue);
  }
  return best;
}

// A byte of a header, a descriptor or a table; 0xFF behind the end of the file.
std::uint8_t k3dGifAnimCreator::ReadByte(bool copy) {
  const auto byte = static_cast<std::uint8_t>(m_input.ReadByte());
  if (copy) {
    WriteByte(byte);
  }
  return byte;
}

// Writes the low eight bits.
void k3dGifAnimCreator::WriteByte(int value) {
  std::fputc(value & 0xFF, m_pOutput);
}

int k3dGifAnimCreator::ReadWord(bool copy) {
  const int low = ReadByte(copy);
  const int high = ReadByte(copy);
  return high << 8 | low;
}

void k3dGifAnimCreator::WriteWord(int value) {
  WriteByte(value);
  WriteByte(value >> 8);
}

void k3dGifAnimCreator::ReadColours(bool copy, int count) {
  for (int index = 0; index < count; ++index) {
    Colour& colour = m_aColours[static_cast<std::size_t>(index)];
    colour.red = ReadByte(copy);
    colour.green = ReadByte(copy);
    colour.blue = ReadByte(copy);
  }
}
