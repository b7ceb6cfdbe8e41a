// undo.h - Undo and Redo: masks (New, Update, Delete, Reset, Auto), Include and Exclude, and the three tables of the
// panel of the forward model.
//
// A callback that changes one of them holds an UndoStep while it works. The step keeps what was there before and after,
// of the parts that it changed only, so that Undo takes back nothing else: a curve that was calculated in the meantime
// stays. The steps of a project are in panels_state.h; a load and a new project forget them.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "records/measdb.h"
#include "records/session.h"
#include "runtime/controls.h"

namespace sondera {

inline constexpr std::size_t kMostUndoSteps = 50;

/// All masks, in order, and the picked one.
struct MaskState {
  std::vector<MaskingInfo> masks;
  PickedMask picked;
};

/// What automatic masking sets in the record of a pair, beside its masks.
struct PairMapState {
  int key = -1, refChan = 0, dspChan = 0;
  int irfMode = 0, timeDiv = 0, freqDiv = 0;
  std::array<double, 5> bbT{}, enT{};
  double initTime = 0.0, finalTime = 0.0, initFreq = 0.0, finalFreq = 0.0;
  double cntThreshold = 0.0;
  std::shared_ptr<const std::array<GaborMap, 3>> maps;  ///< null: none
  std::uint64_t arrays = 0;                             ///< digest of the arrays that the masks act on
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

/// Steps done and steps taken back, the latest at the end.
struct UndoHistory {
  std::vector<UndoEntry> done, undone;
  int depth = 0;                      ///< steps that live, one in the other
  std::optional<TableState> atFocus;  ///< tables when one of them was last entered
};

/// Keeps a step if what it guards has changed when it ends. A step inside another belongs to that one.
class UndoStep {
 public:
  explicit UndoStep(std::string what);
  ~UndoStep();
  UndoStep(const UndoStep&) = delete;
  UndoStep& operator=(const UndoStep&) = delete;

 private:
  std::string what_;
  std::optional<UndoState> before_;
};

/// Takes the latest step back, or does it again, and draws what it concerns. -1 when there is none.
int Undo();
int Redo();
/// What Undo or Redo would concern; empty when there is nothing.
std::string UndoText();
std::string RedoText();
/// Forgets all steps.
void ForgetUndo();

/// Menu items. They are dimmed while there is nothing to take back.
int UndoCallback(Panel panel, ControlId control, Event event, long data);
int RedoCallback(Panel panel, ControlId control, Event event, long data);

/// Tables of the forward model: entering one remembers the cells, and a changed cell makes a step.
int TableCellCallback(Panel panel, ControlId control, Event event, long data);

}  // namespace sondera
