#include "frames/get_cae_data.h"

#include <algorithm>
#include <string>
#include <vector>

#include "frames/file_stem.h"
#include "frames/frame_order.h"
#include "frames/own_images.h"
#include "frames/shared_prefix.h"
#include "frames/working_images.h"
#include "log/diagnostic_log.h"
#include "platform/error_box.h"
#include "platform/files.h"
#include "platform/folder_listing.h"
#include "text/file_name.h"
#include "text/number.h"

namespace {

bool IsFrameName(const CString& name) {
  return IsImageExtension(GetFileExtension(name)) && (!g_ownImages || IsViewerImage(name));
}

bool BeginsWith(const CString& text, const CString& start) {
  return text.Left(start.GetLength()) == start;
}

bool EndsWith(const CString& text, const CString& end) {
  return text.Right(end.GetLength()) == end;
}

// The names that carry the common part, and the variable part of each.
struct Selection {
  CStringArray names;
  CStringArray variableParts;
};

Selection SelectFromFront(const CStringArray& names, const CString& common) {
  Selection selected;
  for (const CString& name : names) {
    if (BeginsWith(name, common)) {
      selected.names.Add(name);
      selected.variableParts.Add(Stem(name).Right(StemLength(name) - common.GetLength()));
    }
  }
  return selected;
}

Selection SelectFromRear(const CStringArray& names, const CString& common) {
  Selection selected;
  for (const CString& name : names) {
    const CString stem = Stem(name);
    if (EndsWith(stem, common)) {
      selected.names.Add(name);
      selected.variableParts.Add(stem.Left(stem.GetLength() - common.GetLength()));
    }
  }
  return selected;
}

bool HasUnderscore(const CString& text) {
  return text.Find("_") >= 0;
}

// The number before the first underscore of a variable part.
int PrimaryKey(const CString& variablePart) {
  const int underscore = variablePart.Find("_");
  return ReadInteger(underscore < 0 ? variablePart : variablePart.Left(underscore));
}

// The number after the first underscore, further underscores dropped; 0 without an underscore.
int SecondaryKey(const CString& variablePart) {
  const int underscore = variablePart.Find("_");
  if (underscore < 0) {
    return 0;
  }
  std::string tail = variablePart.Mid(underscore);
  tail.erase(std::remove(tail.begin(), tail.end(), '_'), tail.end());
  return ReadInteger(tail);
}

// The file names in ascending order of their one number. Where several names have the same number,
// the first of them stands in the place of each.
CStringArray OrderByOneKey(const Selection& selected) {
  std::vector<int> keys;
  for (const CString& part : selected.variableParts) {
    keys.push_back(PrimaryKey(part));
  }
  CStringArray ordered;
  for (const int index : FirstIndexesInKeyOrder(keys)) {
    ordered.Add(selected.names.GetAt(index));
  }
  return ordered;
}

// The variable parts with an underscore in ascending order of their two numbers; empty when names
// without one stand between them in a way that leaves no order.
CStringArray OrderByTwoKeys(const CStringArray& variableParts) {
  // The texts without an underscore have keys but no place among the texts, so in a mixed set a
  // text is moved by the keys of its position and not by its own. Of the parts 3_1, 1 and 4_1 the
  // keys are 3, 1 and 4, but the texts are 3_1 and 4_1: the second position's key 1 moves 4_1 to
  // the front.
  std::vector<TwoKeyEntry> entries;
  CStringArray texts;
  for (const CString& part : variableParts) {
    const int position = static_cast<int>(entries.size());
    entries.push_back({PrimaryKey(part), SecondaryKey(part), position});
    if (HasUnderscore(part)) {
      texts.Add(part);
    }
  }
  CStringArray ordered;
  if (SortByTwoKeys(entries, texts.GetSize())) {
    entries.resize(static_cast<std::size_t>(texts.GetSize()));
    for (const TwoKeyEntry& entry : entries) {
      ordered.Add(texts.GetAt(entry.textIndex));
    }
  }
  return ordered;
}

}  // namespace

bool k3dGetCAEData::GetFilesFromDirectory() {
  WriteLog("TessaraAnimationConsole::k3dGetCAEData::GetFilesFromDirectory():Start");
  WriteLog("TessaraAnimationConsole::k3dGetCAEData::GetFilesFromDirectory():m_sDirectoryName: " +
           m_sDirectoryName);
  const auto entries = platform::ListFolder(m_sDirectoryName);
  if (!entries) {
    return false;
  }
  for (const CString name : *entries) {
    if (IsFrameName(name)) {
      m_saFileNames.Add(name);
      WriteLog("TessaraAnimationConsole::k3dGetCAEData::GetFilesFromDirectory():" + name);
    }
  }
  WriteLog("TessaraAnimationConsole::k3dGetCAEData::GetFilesFromDirectory():No of Image Files:" +
           IntToString(m_saFileNames.GetSize()));

  // The log and the box of a single image spell "sufficient" differently; both are kept.
  if (m_saFileNames.IsEmpty()) {
    WriteLog(
        "TessaraAnimationConsole::k3dGetCAEData::GetFilesFromDirectory():Input folder doesn't have image files");
    platform::ShowErrorBox("Input folder doesn't have image files!!!", "Tessara");
    return false;
  }
  if (m_saFileNames.GetSize() == 1) {
    WriteLog(
        "TessaraAnimationConsole::k3dGetCAEData::GetFilesFromDirectory():Input folder doesn't have suffient image files to create movie");
    platform::ShowErrorBox("Input folder doesn't have sufficient image files to create movie!!!",
                           "Tessara");
    return false;
  }
  if (!GetCommonFileName()) {
    WriteLog(
        "TessaraAnimationConsole::k3dGetCAEData::GetFilesFromDirectory():GetCommonFileName failed");
    return false;
  }
  WriteLog("TessaraAnimationConsole::k3dGetCAEData::GetFilesFromDirectory():End");
  return true;
}

bool k3dGetCAEData::GetCommonFileName() {
  WriteLog("TessaraAnimationConsole::k3dGetCAEData::GetCommonFileName():Start");
  // Prefixes end before the stem does, but whole names are compared with them.
  std::vector<PrefixCandidate> candidates;
  for (const CString& name : m_saFileNames) {
    candidates.push_back({name, StemLength(name) - 1});
  }
  const SharedPrefix shared = FindSharedPrefix(candidates);
  if (shared.holders >= 2) {
    m_sCommonStr = shared.prefix;
  }
  WriteLog("TessaraAnimationConsole::k3dGetCAEData::GetCommonFileName():Common Str:" +
           m_sCommonStr);
  if (m_sCommonStr.IsEmpty()) {
    WriteLog(
        "TessaraAnimationConsole::k3dGetCAEData::GetCommonFileName():Input folder doesn't have sufficient information to sort the image files");
    platform::ShowErrorBox(
        "Input folder doesn't have sufficient information to sort the image files!!!", "Tessara");
    return false;
  }
  WriteLog("TessaraAnimationConsole::k3dGetCAEData::GetCommonFileName():End");
  return true;
}

bool k3dGetCAEData::GetCommonFileNameFromRear() {
  WriteLog("TessaraAnimationConsole::k3dGetCAEData::GetCommonFileNameFromRear():Start");
  // A suffix of the stem is a prefix of the stem read backwards.
  std::vector<PrefixCandidate> candidates;
  for (const CString& name : m_saFileNames) {
    std::string stem = CutBeforeLast(GetBareName(name), '.');
    std::reverse(stem.begin(), stem.end());
    const int length = static_cast<int>(stem.size());
    candidates.push_back({std::move(stem), length - 1});
  }
  std::string suffix = FindSharedPrefix(candidates).prefix;
  std::reverse(suffix.begin(), suffix.end());
  m_sCommonStr = suffix;
  WriteLog("TessaraAnimationConsole::k3dGetCAEData::GetCommonFileNameFromRear():Common Str:" +
           m_sCommonStr);
  WriteLog("TessaraAnimationConsole::k3dGetCAEData::GetCommonFileNameFromRear():End");
  return true;
}

bool k3dGetCAEData::GetCAEData() {
  WriteLog("TessaraAnimationConsole::k3dGetCAEData::GetCAEData():Start");
  const int count = m_saFileNames.GetSize();
  Selection selected = SelectFromFront(m_saFileNames, m_sCommonStr);
  if (selected.names.GetSize() < count / 2) {
    GetCommonFileNameFromRear();
    selected = SelectFromRear(m_saFileNames, m_sCommonStr);
  }

  const CStringArray& parts = selected.variableParts;
  if (std::any_of(parts.begin(), parts.end(), HasUnderscore)) {
    // These paths are rebuilt: every frame gets the first name's extension, and the common part
    // goes in front wherever it was found.
    const CString extension = GetFileExtension(m_saFileNames.GetAt(0));
    for (const CString& text : OrderByTwoKeys(parts)) {
      m_saImageFiles.Add(m_sDirectoryName + "\\" + m_sCommonStr + text + "." + extension);
    }
  } else {
    for (const CString& name : OrderByOneKey(selected)) {
      m_saImageFiles.Add(m_sDirectoryName + "\\" + name);
    }
  }

  WriteLog("TessaraAnimationConsole::k3dGetCAEData::GetCAEData():No of images in Movie:" +
           IntToString(m_saImageFiles.GetSize()));
  if (m_saImageFiles.GetSize() < 2) {
    WriteLog(
        "TessaraAnimationConsole::k3dGetCAEData::GetCAEData():Input folder doesn't have suffient image files to create movie");
    platform::ShowErrorBox("Input folder doesn't have suffient image files to create movie!!!",
                           "Tessara");
    return false;
  }
  WriteLog("TessaraAnimationConsole::k3dGetCAEData::GetCAEData():End");
  return true;
}

void k3dGetCAEData::DeleteImageFiles() const {
  WriteLog("TessaraAnimationConsole::k3dGetCAEData::DeleteImageFiles():Start");
  for (const CString& path : m_saImageFiles) {
    platform::RemoveFile(path);
  }
  if (m_saImageFiles.IsEmpty()) {
    WriteLog(
        "TessaraAnimationConsole::k3dGetCAEData::DeleteImageFiles():no temp image files are created");
  } else {
    // The size of the list, not the number of files that are really gone.
    WriteLog("TessaraAnimationConsole::k3dGetCAEData::DeleteImageFiles(): deleted " +
             IntToString(m_saImageFiles.GetSize()) + " temp image files");
  }
  WriteLog("TessaraAnimationConsole::k3dGetCAEData::DeleteImageFiles():End");
}
