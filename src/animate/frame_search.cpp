#include "animate/frame_search.h"

#include <algorithm>

#include "animate/frame_list.h"
#include "animate/new_file.h"
#include "film/failure.h"
#include "film/image_type.h"
#include "film/listed.h"
#include "film/quoted.h"
#include "platform/file_system.h"
#include "platform/paths.h"
#include "sequence/name_pattern.h"
#include "sequence/range.h"
#include "sequence/selection.h"
#include "sequence/unread_images.h"

namespace animate {
namespace {

namespace fs = std::filesystem;

// Throws a Failure that names what of the expected numbers no frame has.
void CheckExpected(const Findings& findings, const Range& expected) {
  std::vector<std::string> texts;
  for (const MissingNumbers& run : FindMissing(findings, expected)) {
    texts.push_back(run.count == 1 ? run.first : run.first + " to " + run.last);
  }
  if (!texts.empty()) {
    throw Failure("numbers are missing that --expect asks for: " + Listed(texts));
  }
}

// The name of the file `meant` as it stands among `names`, those of its folder: a file system that
// does not tell case apart finds it under others too.
fs::path ListedName(const fs::path& meant, const std::vector<fs::path>& names) {
  if (std::find(names.begin(), names.end(), meant.filename()) != names.end()) {
    return meant.filename();
  }
  const auto identity = platform::QueryStatus(meant).identity;
  const auto listed = std::find_if(names.begin(), names.end(), [&](const fs::path& name) {
    return platform::QueryStatus(meant.parent_path() / name).identity == identity;
  });
  return listed == names.end() ? meant.filename() : *listed;
}

// Keeps the frames that the options ask for.
void KeepChosen(const Options& options, Findings& findings) {
  if (options.expect) {
    CheckExpected(findings, *options.expect);
  }
  if (options.only) {
    KeepRange(findings, *options.only);
  }
  if (options.every > 1) {
    std::size_t index = 0;
    std::erase_if(findings.frames, [&](const FoundFrame&) { return index++ % options.every != 0; });
    FindGaps(findings);
  }
  if (findings.frames.size() < 2) {
    throw Failure("fewer than two frames are left by --only and --every");
  }
}

// The names of a folder that can be those of frames; files of other runs at work there are none.
std::vector<fs::path> NamesIn(const std::vector<platform::FolderEntry>& entries) {
  std::vector<fs::path> names;
  for (const platform::FolderEntry& entry : entries) {
    if (!NewFile::IsName(entry.name)) {
      names.push_back(entry.name);
    }
  }
  return names;
}

std::size_t CountImages(const std::vector<platform::FolderEntry>& entries) {
  return static_cast<std::size_t>(
      std::count_if(entries.begin(), entries.end(), [](const platform::FolderEntry& entry) {
        return entry.kind == platform::FileKind::kFile && !ImageType(entry.name).empty();
      }));
}

// What else is in a folder without images: "; but 10 .exr, the folder "run1" with 20".
std::string OtherContent(const fs::path& folder,
                         const std::vector<platform::FolderEntry>& entries) {
  std::vector<std::string> texts = UnreadImages(NamesIn(entries));
  std::vector<std::string> folders;
  for (const platform::FolderEntry& entry : entries) {
    const auto inside = entry.kind == platform::FileKind::kFolder
                            ? platform::ListEntries(folder / entry.name)
                            : std::vector<platform::FolderEntry>();
    if (const std::size_t count = inside ? CountImages(*inside) : 0; count != 0) {
      folders.push_back("the folder " + Quoted(entry.name) + " with " + std::to_string(count));
    }
  }
  std::sort(folders.begin(), folders.end());
  texts.insert(texts.end(), folders.begin(), folders.end());
  return texts.empty() ? "" : "; but " + Listed(texts);
}

// A folder, and how to look for frames among its names.
struct Place {
  fs::path folder;
  std::vector<fs::path> names;
  SequenceOptions how;
  // Whether all of the folder is meant.
  bool isWhole = false;
};

Place FindPlace(const Options& options) {
  const fs::path& meant = options.frames;
  const platform::FileKind kind = platform::QueryStatus(meant).kind;
  const std::string last = platform::TextOfPath(meant.filename());
  Place place;
  place.isWhole = kind == platform::FileKind::kFolder;
  place.folder = place.isWhole ? meant : meant.parent_path();
  place.how = {.numbers = options.numbers, .join = options.join};
  const auto entries = OrFail(platform::ListEntries(place.folder),
                              "the folder " + Quoted(place.folder) + " cannot be read");
  place.names = NamesIn(entries);
  if (!place.isWhole) {
    const bool isThere =
        std::find(place.names.begin(), place.names.end(), meant.filename()) != place.names.end();
    if (isThere || kind != platform::FileKind::kMissing) {
      place.how.wanted = ListedName(meant, place.names);
    } else if (IsNamePattern(last)) {
      place.how.pattern = last;
    } else {
      throw Failure(Quoted(meant) + " cannot be found");
    }
  }
  if (std::all_of(place.names.begin(), place.names.end(),
                  [](const fs::path& name) { return ImageType(name).empty(); })) {
    throw Failure("in " + Quoted(place.folder) +
                  " there are no images (gif, bmp, jpg, tif, png, webp, tga, ppm, pgm, pbm)" +
                  OtherContent(place.folder, entries));
  }
  return place;
}

// Images of types that are not read are left out as well.
void AddUnread(const std::vector<fs::path>& names, std::vector<std::string>& leftOut) {
  const std::vector<std::string> unread = UnreadImages(names);
  leftOut.insert(leftOut.end(), unread.begin(), unread.end());
}

// "FOLDER", or "FOLDER_PART".
std::string NameOf(const fs::path& folder, const std::string& part) {
  const std::string name = platform::TextOfPath(folder.filename());
  return part.empty() || name.empty() ? name + part : name + "_" + part;
}

// The Failure again, with the folder in front.
[[noreturn]] void FailIn(const fs::path& folder, const Failure& failure) {
  throw Failure("in " + Quoted(folder) + " " + failure.what(), failure.Status());
}

FoundFrames FromList(const Options& options) {
  const fs::path& list = *options.frameList;
  FoundFrames found;
  found.folder = list.empty() ? platform::FullPath(".") : list.parent_path();
  found.name = platform::TextOfPath(list.stem());
  for (fs::path& path : ListedPaths(ReadList(list))) {
    found.findings.frames.push_back({std::move(path), {}});
  }
  if (found.findings.frames.size() < 2) {
    throw Failure("the list has fewer than two frames");
  }
  found.findings.extension = ImageType(found.findings.frames.front().name);
  KeepChosen(options, found.findings);
  found.findings.gaps.clear();
  found.findings.doubles.clear();
  return found;
}

}  // namespace

FoundFrames FindFrames(const Options& options) {
  if (options.frameList) {
    return FromList(options);
  }
  const Place place = FindPlace(options);
  try {
    Findings findings = FindSequence(place.names, place.how);
    AddUnread(place.names, findings.leftOut);
    KeepChosen(options, findings);
    const std::string name = NameOf(place.folder, place.isWhole ? "" : findings.name);
    return {place.folder, std::move(findings), name, ""};
  } catch (const Failure& failure) {
    FailIn(place.folder, failure);
  }
}

FoundFilms FindFilms(const Options& options) {
  const Place place = FindPlace(options);
  if (place.how.wanted) {
    RefuseUse("--each takes a folder or a pattern; " + Quoted(*place.how.wanted) + " is one frame");
  }
  try {
    FoundFilms found;
    EachFilms each = FindEach(place.names, place.how);
    found.leftOut = std::move(each.leftOut);
    for (EachFilm& film : each.films) {
      const std::string name = NameOf(place.folder, film.findings.name);
      found.films.push_back({place.folder, std::move(film.findings), name, film.refusal});
      if (!film.refusal.empty()) {
        continue;
      }
      try {
        KeepChosen(options, found.films.back().findings);
      } catch (const Failure& failure) {
        if (failure.Status() == ExitStatus::kWrongUse) {
          throw;
        }
        found.films.back().refusal = failure.what();
      }
    }
    AddUnread(place.names, found.leftOut);
    return found;
  } catch (const Failure& failure) {
    FailIn(place.folder, failure);
  }
}

}  // namespace animate
