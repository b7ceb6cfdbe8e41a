// undo_record.h - contents of a step of Undo: the changed parts of the project, before and after. See undo.h.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "records/measdb.h"
#include "records/session.h"

namespace sondera {

inline constexpr std::size_t kMostUndoSteps = 50;

/// All masks, in order, and the picked one.
struct MaskState {
  std::vector<MaskingInfo> masks;
  PickedMask picked;
};

/// Values that automatic masking sets in the record of a pair, beside its masks.
struct PairMapState {
  int key = -1, refChan = 0, dspChan = 0;
  int irfMode = 0, timeDiv = 0, freqDiv = 0;
  std::array<double, 5> bbT{}, enT{};
  double initTime = 0.0, finalTime = 0.0, initFreq = 0.0, finalFreq = 0.0;
  double cntThreshold = 0.0;
  std::shared_ptr<const std::array<GaborMap, 3>> maps;  ///< null: none
  std::uint64_t arrays = 0;                             ///< digest of the arrays that depend on the masks
};

/// `included` of each pair, in the order of the records.
struct InclusionState {
  struct Flag {
    int key, refChan, dspChan, included;
    bool operator==(const Flag&) const = default;
  };
  std::vector<Flag> flags;
  bool operator==(const InclusionState&) const = default;
};

/// Cells row by row of the tables SOILPROFILE, RECEIVERLOC and DISPCURVINFO.
struct TableState {
  struct Cells {
    int rows = 0;
    std::vector<double> values;
    bool operator==(const Cells&) const = default;
  };
  std::array<Cells, 3> tables;
  bool operator==(const TableState&) const = default;
};

/// The parts that a step changed, in one of its two states.
struct UndoState {
  std::optional<MaskState> masks;
  std::optional<PairMapState> pair;
  std::optional<InclusionState> inclusion;
  std::optional<TableState> tables;
};

struct UndoEntry {
  std::string what;  ///< "New mask"
  UndoState before, after;
};

/// Steps done and steps undone, the latest at the end.
struct UndoHistory {
  std::vector<UndoEntry> done, undone;
  int depth = 0;                      ///< nesting depth of active steps
  std::optional<TableState> atFocus;  ///< tables at the last focus in
};

}  // namespace sondera
