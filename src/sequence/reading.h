// What the marks and exponents of names that belong together mean.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "sequence/column.h"
#include "sequence/name_group.h"
#include "sequence/parts.h"

namespace animate {

// How numbers with a mark are read: as the names tell, or always in one way.
enum class Numbers { kAuto, kDecimal, kWhole };

// Names of a group that are one sequence when they are read in one way.
struct ReadNames {
  // Indices into the group.
  std::vector<std::uint32_t> rows;
  std::vector<Source> sources;
  std::vector<Column> columns;
  // Its rows are places in `rows`.
  Arrangement arrangement;
};

// One way to read a group: one sequence, or, where the marks tell them apart, several.
struct Reading {
  // "as decimals"; empty when there is no other way.
  std::string label;
  std::vector<ReadNames> sequences;
};

// The ways to read a group: one, or all that give different films. The names tell which when they
// can; `options` says how to choose among the others.
struct Readings {
  std::vector<Reading> ways;
  std::string options;
};

Readings ReadGroup(const NameGroup& group, Numbers numbers);

}  // namespace animate
