#include "sequence/sequence_list.h"

#include <algorithm>

#include "film/image_type.h"
#include "sequence/doubt.h"
#include "sequence/name_group.h"

namespace animate {
namespace {

// What stands at the ends of a name's text when numbers are taken out of it.
constexpr std::string_view kSeparators = " _-.,=+#()[]{}";

bool IsSeparator(char c) {
  return kSeparators.find(c) != std::string_view::npos;
}

// The stem of a name without the numbers of some columns, and without the separators around them.
std::string TextWithout(const NameGroup& group, const ReadNames& read, std::uint32_t row,
                        const std::vector<bool>& isTaken) {
  const std::string& name = group.TextOf(row);
  std::string text;
  std::size_t done = 0;
  const auto append = [&](std::size_t end) {
    for (; done < end; ++done) {
      const bool isFirst = text.empty() || IsSeparator(text.back());
      if (!isFirst || !IsSeparator(name[done])) {
        text += name[done];
      }
    }
  };
  for (std::size_t index = 0; index < read.sources.size(); ++index) {
    if (isTaken[index]) {
      const Span span = SpanOf(read.sources[index], group.PiecesOf(row));
      append(span.begin);
      done = span.end;
    }
  }
  append(name.rfind('.'));
  while (!text.empty() && IsSeparator(text.back())) {
    text.pop_back();
  }
  return text;
}

void NameParts(ImageSequence& sequence, const NameGroup& group, const ReadNames& read) {
  const Arrangement& made = read.arrangement;
  std::vector<bool> isTaken;
  for (const Column& column : read.columns) {
    isTaken.push_back(std::any_of(column.keys.begin(), column.keys.end(),
                                  [&](std::int64_t key) { return key != column.keys.front(); }));
  }
  isTaken[made.counter] = true;
  sequence.name = TextWithout(group, read, read.rows[made.order.front()], isTaken);
  if (made.parts > 1) {
    for (const std::size_t teller : made.tellers) {
      isTaken[teller] = false;
    }
  }
  for (const std::uint32_t row : made.order) {
    if (made.part[row] == sequence.partNames.size()) {
      sequence.partNames.push_back(TextWithout(group, read, read.rows[row], isTaken));
    }
  }
}

ImageSequence MakeSequence(const NameGroup& group, const ReadNames& read) {
  ImageSequence sequence;
  const Arrangement& made = read.arrangement;
  sequence.hasNumbers = true;
  sequence.kind = read.columns[made.counter].kind;
  for (std::size_t index = 0; index < made.order.size(); ++index) {
    const std::uint32_t row = made.order[index];
    const bool isDouble =
        index > 0 &&
        std::all_of(read.columns.begin(), read.columns.end(), [&](const Column& column) {
          return column.keys[row] == column.keys[made.order[index - 1]];
        });
    sequence.members.push_back({group.names[read.rows[row]], made.part[row], made.stretch[index],
                                isDouble, read.columns[made.counter].ValueOf(row)});
  }
  NameParts(sequence, group, read);
  return sequence;
}

ImageSequence LoneImage(const NameGroup& group) {
  ImageSequence sequence;
  const std::string& text = group.TextOf(0);
  sequence.members.push_back({.name = group.names.front(), .number = {}});
  sequence.name = text.substr(0, text.rfind('.'));
  sequence.partNames.push_back(sequence.name);
  return sequence;
}

}  // namespace

std::vector<ImageSequence> ListSequences(const std::vector<std::string>& texts, Numbers numbers) {
  std::vector<ImageSequence> sequences;
  for (const NameGroup& group : GroupNames(texts)) {
    const std::size_t first = sequences.size();
    if (group.width == 0) {
      sequences.push_back(LoneImage(group));
    } else {
      const Readings readings = ReadGroup(group, numbers);
      for (const ReadNames& read : readings.ways.front().sequences) {
        sequences.push_back(MakeSequence(group, read));
        sequences.back().doubt = DoubtOf(group, readings);
      }
    }
    for (std::size_t index = first; index < sequences.size(); ++index) {
      sequences[index].extension = ImageType(std::string_view(group.TextOf(0)));
    }
  }
  std::sort(sequences.begin(), sequences.end(),
            [&](const ImageSequence& left, const ImageSequence& right) {
              return left.members.size() != right.members.size()
                         ? left.members.size() > right.members.size()
                         : texts[left.members.front().name] < texts[right.members.front().name];
            });
  return sequences;
}

}  // namespace animate
