#include <algorithm>
#include <string>
#include <vector>

#include "frames/file_stem.h"
#include "frames/get_cae_data.h"
#include "frames/shared_prefix.h"
#include "log/diagnostic_log.h"
#include "platform/error_box.h"
#include "text/file_name.h"

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
        "TessaraAnimationConsole::k3dGetCAEData::GetCommonFileName():Input folder doesn't have "
        "sufficient information to sort the image files");
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
