// Tests of the settings store: values, items, tables, attributes, callbacks, observers.
#include "runtime/controls.h"

#include <new>

#include "runtime/catalogue/gaborpnl.h"
#include "support/popup_recorder.h"

namespace sondera {
namespace {

constexpr ListItem kUnits[] = {{"meter", 1.0}, {"cm", 0.01}};
constexpr ListItem kModes[] = {{"Band-Pass", 0}, {"Low-Pass", 1}};
constexpr std::string_view kColumns[] = {"Thickness", "Vs"};
constexpr RealRingControl UNIT{Panel::MEASSETUP, "TESTUNIT", "Unit", kUnits};
constexpr RingControl MODE{Panel::MEASSETUP, "TESTMODE", "Mode", kModes, 1};
constexpr ListControl LIST{Panel::MEASSETUP, "TESTLIST", "List"};
constexpr TableControl TABLE{Panel::MEASSETUP, "TESTTABLE", "Table", 2, kColumns};
constexpr TextControl TEXT{Panel::MEASSETUP, "TESTTEXT", "Text", "first"};
constexpr ButtonControl BUTTON{Panel::MEASSETUP, "TESTBUTTON", "Button"};
constexpr auto kHidden = Dimmed(Hidden(IntControl{Panel::MEASSETUP, "TESTHIDDEN", "Hidden", 7}));

class Controls : public ::testing::Test {
 protected:
  void SetUp() override { ResetControls(); }
};

TEST_F(Controls, StartAtTheirDeclaredValues) {
  EXPECT_EQ(GetCtrlVal(gaborpnl::BETA), 3.0);
  EXPECT_EQ(GetCtrlVal(gaborpnl::TIMEDIV), 50);
  EXPECT_EQ(GetCtrlVal(UNIT), 1.0);
  EXPECT_EQ(GetCtrlVal(MODE), 1);
  EXPECT_EQ(GetCtrlVal(TEXT), "first");
  EXPECT_EQ(GetCtrlVal(kHidden), 7);
  EXPECT_TRUE(IsDimmed(kHidden));
  EXPECT_FALSE(IsVisible(kHidden));
}

TEST_F(Controls, ResetBringsFirstValuesBack) {
  SetCtrlVal(gaborpnl::BETA, 2.385);
  SetDimmed(gaborpnl::BETA, true);
  DisplayPanel(Panel::GABORPNL);
  ResetControls();
  EXPECT_EQ(GetCtrlVal(gaborpnl::BETA), 3.0);
  EXPECT_FALSE(IsDimmed(gaborpnl::BETA));
  EXPECT_FALSE(IsPanelShown(Panel::GABORPNL));
}

TEST_F(Controls, RingSelectsByValueAndByIndex) {
  EXPECT_TRUE(SetCtrlVal(UNIT, 0.01));
  EXPECT_EQ(GetCtrlIndex(UNIT), 1);
  EXPECT_TRUE(SetCtrlIndex(UNIT, 0));
  EXPECT_EQ(GetCtrlVal(UNIT), 1.0);
}

TEST_F(Controls, UnknownValueOrIndexLeavesTheSelection) {
  EXPECT_FALSE(SetCtrlVal(UNIT, 0.5));
  EXPECT_FALSE(SetCtrlIndex(UNIT, 2));
  EXPECT_FALSE(SetCtrlIndex(UNIT, -1));
  EXPECT_EQ(GetCtrlIndex(UNIT), 0);
}

TEST_F(Controls, EmptyListHasNoSelectionAndValueZero) {
  EXPECT_EQ(GetCtrlIndex(LIST), -1);
  EXPECT_EQ(GetCtrlVal(LIST), 0);
  EXPECT_EQ(GetLabelFromIndex(LIST, 0), "");
}

TEST_F(Controls, FirstInsertedItemBecomesSelectedAndKeepsItsSelection) {
  InsertListItem(LIST, -1, "b", 5);
  InsertListItem(LIST, 0, "a", 4);
  InsertListItem(LIST, -1, "c", 6);
  EXPECT_EQ(GetNumListItems(LIST), 3);
  EXPECT_EQ(GetCtrlVal(LIST), 5);
  EXPECT_EQ(FindListItem(LIST, "c"), 2);
  DeleteListItem(LIST, 0);
  EXPECT_EQ(GetCtrlVal(LIST), 5);
  DeleteListItem(LIST, 0);
  EXPECT_EQ(GetCtrlVal(LIST), 6);
  DeleteListItem(LIST, 0);
  EXPECT_EQ(GetCtrlIndex(LIST), -1);
  DeleteListItem(LIST, 0);  // nothing left: no harm
}

TEST_F(Controls, TableCellsCountFromOneAndStayInside) {
  EXPECT_TRUE(SetTableCellVal(TABLE, 2, 2, 150.5));
  EXPECT_EQ(GetTableCellVal(TABLE, 2, 2), 150.5);
  EXPECT_FALSE(SetTableCellVal(TABLE, 3, 1, 1.0));
  EXPECT_FALSE(SetTableCellVal(TABLE, 0, 1, 1.0));
  EXPECT_FALSE(SetTableCellVal(TABLE, 1, 3, 1.0));
  EXPECT_EQ(GetTableCellVal(TABLE, 9, 9), 0.0);
  SetNumTableRows(TABLE, 4);
  EXPECT_EQ(GetTableCellVal(TABLE, 2, 2), 150.5);
  EXPECT_EQ(GetTableCellVal(TABLE, 4, 1), 0.0);
  SetNumTableRows(TABLE, -5);
  EXPECT_EQ(GetNumTableRows(TABLE), 0);
  SetNumTableRows(TABLE, 2000000000);
  EXPECT_EQ(GetNumTableRows(TABLE), kMaxTableRows);
}

TEST_F(Controls, TableRowsAreInsertedAndDeletedInPlace) {
  SetTableCellVal(TABLE, 1, 1, 1.0);
  SetTableCellVal(TABLE, 2, 1, 2.0);
  EXPECT_TRUE(InsertTableRow(TABLE, 2));
  EXPECT_EQ(GetTableCellVal(TABLE, 3, 1), 2.0);
  EXPECT_EQ(GetTableCellVal(TABLE, 2, 1), 0.0);
  EXPECT_TRUE(DeleteTableRow(TABLE, 1));
  EXPECT_FALSE(DeleteTableRow(TABLE, 7));
  EXPECT_FALSE(InsertTableRow(TABLE, 7));
  SetTableRowLabel(TABLE, 1, "L1");
  EXPECT_EQ(GetTableRowLabel(TABLE, 1), "L1");
}

int seenData = 0;
int Press(Panel panel, ControlId control, Event event, long data) {
  seenData = static_cast<int>(data);
  return panel == Panel::MEASSETUP && control == &BUTTON && event == Event::Commit ? -1 : 0;
}

int OutOfMemory(Panel, ControlId, Event, long) {
  throw std::bad_alloc();
}

TEST_F(Controls, APressThatRunsOutOfMemoryGivesAMessageAndTheSessionGoesOn) {
  const test::PopupRecorder popups;
  InstallCallback(BUTTON, OutOfMemory);
  EXPECT_EQ(Commit(BUTTON), -1);
  InstallCallback(BUTTON, nullptr);
  ASSERT_EQ(popups.shown.size(), 1u);
  EXPECT_EQ(popups.shown[0].second, "There is not enough memory for this. It was not done.");
}

TEST_F(Controls, CommitRunsTheInstalledCallbackWithItsControl) {
  EXPECT_EQ(Commit(BUTTON), 0) << "no callback yet";
  InstallCallback(BUTTON, Press);
  EXPECT_EQ(Commit(BUTTON, 0x7AB), -1);
  EXPECT_EQ(seenData, 0x7AB);
  EXPECT_EQ(SendEvent(BUTTON, Event::LeftClick), 0);
  InstallCallback(BUTTON, nullptr);
}

TEST_F(Controls, APersonEntersWhatTheKindTakes) {
  EXPECT_TRUE(EnterValue(gaborpnl::BETA, 2.5));
  EXPECT_EQ(GetCtrlVal(gaborpnl::BETA), 2.5);
  EXPECT_FALSE(EnterValue(gaborpnl::BETA, NAN));
  EXPECT_FALSE(EnterValue(gaborpnl::BETA, "2.5"));
  EXPECT_TRUE(EnterValue(kHidden, -7.9));
  EXPECT_EQ(GetCtrlVal(kHidden), -7) << "a whole number is cut";
  EXPECT_FALSE(EnterValue(kHidden, 1e10));
  EXPECT_TRUE(EnterValue(TEXT, "other"));
  EXPECT_EQ(GetCtrlVal(TEXT), "other");
  EXPECT_TRUE(EnterValue(UNIT, 0.01));
  EXPECT_FALSE(EnterValue(UNIT, 0.02));
  EXPECT_TRUE(EnterIndex(UNIT, 0));
  EXPECT_FALSE(EnterIndex(UNIT, 2));
  EXPECT_TRUE(EnterCell(TABLE, 2, 1, 4.0));
  EXPECT_EQ(GetTableCellVal(TABLE, 2, 1), 4.0);
  EXPECT_FALSE(EnterCell(TABLE, 3, 1, 4.0));
  EXPECT_FALSE(EnterCell(TABLE, 1, 1, INFINITY));
  EXPECT_FALSE(EnterValue(BUTTON, 1.0));
}

}  // namespace
}  // namespace sondera
