// k3dAviCreator: makes a movie of a folder of frames.
#pragma once

#include "frames/frame_rate.h"
#include "frames/get_cae_data.h"
#include "text/cstring.h"
#include "text/cstring_array.h"

// The run settings and the operations that work on them. The command line reader fills the
// settings, then CreateAVI does the whole work.
class k3dAviCreator {
 public:
  k3dAviCreator() = default;
  k3dAviCreator(const k3dAviCreator&) = default;
  k3dAviCreator& operator=(const k3dAviCreator&) = default;
  virtual ~k3dAviCreator() = default;

  // Makes m_sOutputFile of the frames in m_sInputFolder with the external converter and deletes
  // the frames. Returns true when the converter was run, whatever came of it; false, with nothing
  // deleted, when there are no frames to work with, and false as well when no converter was found:
  // the frames then live on as their copies alone.
  bool CreateAVI();

  // Makes m_sOutputFile of the frame list as it stands (GetTheImages fills it) through Video for
  // Windows, without a converter: GDI+, which the caller has started, loads the frames, and a
  // dialog asks for the compressor. Then deletes the frames, whether or not a file came of it.
  // Returns true always; throws nothing. Exists on Windows only, for callers without a converter;
  // the console program does not use it.
  bool CreateAVI_MS() const;

  // Fills the frame list from m_sInputFolder. Returns false when that gives no list of frames.
  bool GetTheImages();

  // Copies every frame under a gap-free, zero-padded name in the folder of the first frame and
  // notes the copies in m_aTempImageFiles. A frame that cannot be copied leaves a gap. Returns
  // true; throws CInvalidArgException when the frame list is empty.
  bool RenameTheImageFiles();

  // Sets `pattern` to the printf-style path by which the converter finds the frame copies. Throws
  // CInvalidArgException when the frame list is empty.
  void GetTheInputFormatFor_ffmpeg(CString& pattern) const;

  // Finds the converter with the bare name `name` beside the program or under TESSARA_DIR. Returns
  // its full path, or an empty text when it is in neither place.
  static CString GetExternalAppPath(const CString& name);

  // Runs the program at `appPath` hidden, with the first 1,024 characters of `params` as its whole
  // command line, and waits until it has ended. Returns true when it was started, whatever its
  // exit code; otherwise the frame copies are deleted and false is returned. Throws nothing.
  bool RunExternalApp(const CString& appPath, const CString& params) const;

  k3dGetCAEData m_caeData;
  // The frame copies, in frame order.
  CStringArray m_aTempImageFiles;
  CString m_sInputFolder;
  // Its extension selects the format.
  CString m_sOutputFile;
  // In frames per second.
  int m_nFrameRate = kDefaultFrameRate;
  // Multiplies the presentation time stamps: above 1 the movie is slower.
  float m_fSizeFactor = 1.0F;
  // Read by no operation, since the parameters of each format name its codec. Part of the fixed
  // interface.
  CString m_sCodec = "msmpeg4v2";
  // The picture size of an MP4, in pixels.
  int m_nWidth = 640;
  int m_nHeight = 480;
  // Set by the command line reader and read by no operation. Part of the fixed interface.
  bool m_bSettingsRead = true;
  // The last name that RenameTheImageFiles formed, whether or not that copy was made.
  CString m_sLastTempImage;

 private:
  void RunConverter(const CString& converter, const CString& pattern, const CString& palette);
  void DeleteTempImageFiles() const;
};

// The one movie creator of the process.
inline k3dAviCreator g_aviCreator;
