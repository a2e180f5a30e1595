// k3dGifAnimCreator: makes one looping GIF of a folder of frames.
#pragma once

#include <cstdio>
#include <vector>

#include "frames/frame_rate.h"
#include "frames/get_cae_data.h"
#include "gif/gif_merger.h"
#include "platform/file_hold.h"
#include "text/cstring.h"

// The path of the picture that a frame is converted to: in `tempRoot`, or in the system's own
// folder for such files when that is empty, since it would mean the root of the drive.
CString TemporaryGifPath(const CString& tempRoot);

// The caller fills the three settings, starts GDI+ and calls CreateAnimatedGif.
class k3dGifAnimCreator {
 public:
  k3dGifAnimCreator() = default;
  k3dGifAnimCreator(const k3dGifAnimCreator&) = delete;
  k3dGifAnimCreator& operator=(const k3dGifAnimCreator&) = delete;
  virtual ~k3dGifAnimCreator() = default;

  // Makes m_sOutputFile of the frames in m_sInputFolder, then deletes the frames and sweeps the
  // temp root. GIF frames are taken as they are, others are saved as a GIF through GDI+, which the
  // caller has started; on Windows those that GDI+ could load are then held against deletion and
  // survive. A frame that cannot be converted or read is left out with a message on standard
  // error. Fixes the temp root and starts the log when nobody has. Returns 1 when the work went to
  // its end, also when an exception cut it short; 0, with nothing deleted, when there are no frames
  // or the output cannot be opened. Image data that breaks off ends the process, as AppendGifFile
  // says.
  int CreateAnimatedGif();

  // Fills the frame list from m_sInputFolder; it is left empty when there are no frames.
  void GetTheImageFiles();

  // Appends the first image of the GIF file at `path` to `output`, a stream opened for binary
  // writing. `first` is 1 for the first frame of an animation, which brings the header, the screen
  // descriptor and the global colour table, and 0 for any other. Returns true when an image was
  // copied; false, after a message on standard error, when the file cannot be opened or holds no
  // image; what was written until then stays. Image data that breaks off ends the process with
  // exit status 4, what was written flushed. The output is not checked for errors.
  bool AppendGifFile(const CString& path, std::FILE* output, int first);

  k3dGetCAEData m_caeData;
  GifMerger m_merger;
  CString m_sInputFolder;
  CString m_sOutputFile;
  // In frames per second; below 1 counts as the default.
  int m_nFrameRate = kDefaultFrameRate;
  // Whether the last GIF holds its first frame. Without it nothing says what size the GIF has, and
  // what its header says is no picture's.
  bool m_bFirstFrameCopied = false;

 private:
  void AppendFrames(std::FILE* output);
  bool AppendConverted(const CString& path, std::FILE* output, int first);

  // The converted frames.
  std::vector<platform::FileHold> m_aHeld;
};

// The one GIF creator of the process.
inline k3dGifAnimCreator g_gifAnimCreator;
