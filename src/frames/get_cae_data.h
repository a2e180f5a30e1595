// k3dGetCAEData: finds the frame images of a folder and puts them in playing order.
#pragma once

#include "text/cstring.h"
#include "text/cstring_array.h"

// The calling protocol for its owners: empty m_saImageFiles, set m_sDirectoryName, call
// GetFilesFromDirectory, then GetCAEData; when the animation is written, DeleteImageFiles. One
// object serves one scan: a second one appends the folder's names again.
class k3dGetCAEData {
 public:
  k3dGetCAEData() = default;
  k3dGetCAEData(const k3dGetCAEData&) = default;
  k3dGetCAEData& operator=(const k3dGetCAEData&) = default;
  virtual ~k3dGetCAEData() = default;

  // Scans m_sDirectoryName: every entry with an image extension (with the own-images flag only
  // those of the viewer's pattern) is appended to m_saFileNames in listing order; sub-folders are
  // judged by their names like files. Then looks for the common part of the names. Returns true
  // when there are two images or more and a common part; otherwise an error box says what is
  // missing, except for a folder that cannot be listed, which fails silently.
  bool GetFilesFromDirectory();

  // Sets m_sCommonStr to the prefix, shorter than the stem it is taken from, that most names
  // begin with; among equals the longer one and the one of the later name wins. Returns false,
  // after an error box, when no prefix is shared by two names.
  bool GetCommonFileName();

  // Sets m_sCommonStr to the suffix of the stems that most of them end with, chosen in the same
  // way; it may be empty. Returns true always.
  bool GetCommonFileNameFromRear();

  // Appends the frames to m_saImageFiles as full paths in ascending order of their numbers. Names
  // that carry two numbers (common part, number, "_", number) are ordered by the first and then by
  // the second. Returns true when the list holds two frames or more, otherwise false after an
  // error box.
  bool GetCAEData();

  // Deletes every file of m_saImageFiles: the input frames themselves. The list keeps its
  // entries. A file that cannot be deleted stays, silently.
  void DeleteImageFiles() const;

  // The input folder.
  CString m_sDirectoryName;
  // The common part of the frame names.
  CString m_sCommonStr;
  // The frame list: full paths in playing order; one path may occur twice.
  CStringArray m_saImageFiles;
  // The bare names of the images that the scan accepted, in listing order.
  CStringArray m_saFileNames;
};
