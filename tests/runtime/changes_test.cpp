// Tests of the notices of changes: what observers get, batches of one event, watchers.
#include "runtime/changes.h"

#include <new>

#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/gaborpnl.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/controls.h"
#include "runtime/events.h"

namespace sondera {
namespace {

using ::testing::ElementsAre;

class Changes : public ::testing::Test {
 protected:
  void SetUp() override {
    ResetControls();
    number = AddObserver(
        [this](std::span<const Change> changes) { batches.emplace_back(changes.begin(), changes.end()); });
  }
  void TearDown() override {
    RemoveObserver(number);
    InstallCallback(gaborpnl::CALC, nullptr);
  }
  std::vector<ChangeKind> Kinds() const {
    std::vector<ChangeKind> kinds;
    for (const auto& batch : batches)
      for (const Change& c : batch) kinds.push_back(c.kind);
    return kinds;
  }
  int number = 0;
  std::vector<std::vector<Change>> batches;
};

TEST_F(Changes, TellWhatHasChanged) {
  SetCtrlVal(gaborpnl::BETA, 1.0);
  SetVisible(gaborpnl::BAND, false);
  SetCtrlLabel(gaborpnl::BAND, "Band");
  InsertListItem(sasw::DISPAID, -1, "site", 0);
  SetTableCellVal(fmodeling::SOILPROFILE, 3, 2, 150.0);
  SetTableRowLabel(fmodeling::SOILPROFILE, 1, "L1");
  SetNumTableRows(fmodeling::SOILPROFILE, 4);
  DisplayPanel(Panel::GABORPNL);
  SetPanelTitle(Panel::PANEL, "x");
  SetActiveTabPage(Panel::PANEL, 1);
  using enum ChangeKind;
  EXPECT_THAT(Kinds(),
              ElementsAre(Value, Attribute, Label, Items, Cells, Label, Items, Shown, Title, TabPage));
  ASSERT_EQ(batches.size(), 10u) << "outside of an event each goes out by itself";
  EXPECT_EQ(batches[0][0].control, &gaborpnl::BETA);
  EXPECT_EQ(batches[0][0].panel, Panel::GABORPNL);
  EXPECT_EQ(batches[4][0].firstRow, 3);
  EXPECT_EQ(batches[4][0].lastColumn, 2);
  EXPECT_EQ(batches[7][0].control, nullptr);
}

int ChangeSeveral(Panel, ControlId, Event, long) {
  for (int i = 0; i < 5; ++i) SetCtrlVal(gaborpnl::BETA, i);
  for (int row = 2; row <= 4; ++row)
    for (int column = 3; column <= 5; ++column) SetTableCellVal(fmodeling::SOILPROFILE, row, column, 1.0);
  SetDimmed(gaborpnl::BETA, true);
  return 0;
}

TEST_F(Changes, OfOneEventComeInOneBatch) {
  InstallCallback(gaborpnl::CALC, ChangeSeveral);
  EXPECT_EQ(Commit(gaborpnl::CALC), 0);
  ASSERT_EQ(batches.size(), 1u);
  using enum ChangeKind;
  EXPECT_THAT(Kinds(), ElementsAre(Value, Cells, Attribute));
  const Change& cells = batches[0][1];
  EXPECT_EQ(cells.firstRow, 2);
  EXPECT_EQ(cells.lastRow, 4);
  EXPECT_EQ(cells.firstColumn, 3);
  EXPECT_EQ(cells.lastColumn, 5);
}

int PollInBetween(Panel, ControlId, Event, long) {
  SetCtrlVal(gaborpnl::BETA, 1.0);
  ProcessSystemEvents();
  SetCtrlVal(gaborpnl::BETA, 2.0);
  return 0;
}

TEST_F(Changes, GoOutWhenEventsAreLetIn) {
  InstallCallback(gaborpnl::CALC, PollInBetween);
  Commit(gaborpnl::CALC);
  EXPECT_EQ(batches.size(), 2u);
}

TEST_F(Changes, AResetIsOneChangeOfEverything) {
  SetCtrlVal(gaborpnl::BETA, 1.0);
  batches.clear();
  ResetControls();
  EXPECT_THAT(Kinds(), ElementsAre(ChangeKind::Everything));
  batches.clear();
  {
    const ChangeBatch batch;
    SetCtrlVal(gaborpnl::BETA, 1.0);
    ResetControls();
    SetCtrlVal(gaborpnl::BETA, 2.0);
  }
  EXPECT_THAT(Kinds(), ElementsAre(ChangeKind::Everything)) << "the rest is in it";
}

TEST_F(Changes, StopWithTheRemovalOfTheObserver) {
  RemoveObserver(number);
  SetCtrlVal(gaborpnl::BETA, 1.0);
  EXPECT_TRUE(batches.empty());
}

/// Counts the copies that are made of it.
struct Copied {
  int* copies;
  explicit Copied(int* c) : copies(c) {}
  Copied(const Copied& other) : copies(other.copies) { ++*copies; }
  Copied(Copied&&) = default;
  void operator()(std::span<const Change>) const {}
};

TEST_F(Changes, CopyNoObserver) {
  int copies = 0;
  const int counted = AddObserver(Copied(&copies));
  copies = 0;
  for (int i = 0; i < 10; ++i) SetCtrlVal(gaborpnl::BETA, i);
  RemoveObserver(counted);
  EXPECT_EQ(copies, 0);
}

TEST_F(Changes, ObserversMayComeAndGoWhileTheyAreTold) {
  int told = 0, second = 0, first = 0;
  first = AddObserver([&](std::span<const Change>) {
    ++told;
    RemoveObserver(first);
    second = AddObserver([&](std::span<const Change>) { ++told; });
  });
  SetCtrlVal(gaborpnl::BETA, 1.0);
  RemoveObserver(second);
  const int after = told;
  SetCtrlVal(gaborpnl::BETA, 2.0);
  EXPECT_GE(after, 1);
  EXPECT_EQ(told, after);
}

TEST_F(Changes, OfAnObserverGoOutAfterTheOthers) {
  const int mending = AddObserver([&](std::span<const Change>) {
    if (GetCtrlVal(gaborpnl::BETA) < 0) SetCtrlVal(gaborpnl::BETA, 0.0);
  });
  SetCtrlVal(gaborpnl::BETA, -1.0);
  RemoveObserver(mending);
  EXPECT_EQ(batches.size(), 2u);
  EXPECT_EQ(GetCtrlVal(gaborpnl::BETA), 0.0);
}

TEST_F(Changes, AreToldAlsoAfterAnObserverRanOutOfMemory) {
  bool full = true;
  const int hungry = AddObserver([&](std::span<const Change>) {
    if (full) throw std::bad_alloc();
  });
  EXPECT_THROW(SetCtrlVal(gaborpnl::BETA, 1.0), std::bad_alloc);
  {
    const ChangeBatch batch;  // its end tells, and may not throw
    SetCtrlVal(gaborpnl::BETA, 2.0);
  }
  full = false;
  const std::size_t before = batches.size();
  SetCtrlVal(gaborpnl::BETA, 3.0);
  RemoveObserver(hungry);
  ASSERT_EQ(batches.size(), before + 1);
  EXPECT_EQ(Kinds().back(), ChangeKind::Everything);  // the observers behind it missed changes
}

TEST_F(Changes, WatchersHearOfEachTextAtOnce) {
  std::vector<double> seen;
  const int watching = AddWatcher([&](const Change& c) {
    if (c.control == &gaborpnl::BETA && c.kind == ChangeKind::Value)
      seen.push_back(GetCtrlVal(gaborpnl::BETA));
  });
  InstallCallback(gaborpnl::CALC, ChangeSeveral);
  Commit(gaborpnl::CALC);
  RemoveObserver(watching);
  EXPECT_THAT(seen, ElementsAre(0, 1, 2, 3, 4));
}

}  // namespace
}  // namespace sondera
