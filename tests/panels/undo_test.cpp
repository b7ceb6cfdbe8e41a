// Undo and Redo: undoing and redoing each step gives the same bytes, and nothing else changes.
#include "panels/undo.h"

#include "app/script_fixture.h"
#include "panels/panels_state.h"
#include "records/measdb.h"
#include "records/selection.h"
#include "records/session.h"
#include "runtime/catalogue/dispcurv.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/sasw.h"
#include "support/site_records.h"

namespace sondera {
namespace {

const std::string kPair =
    "read hyx id=ID files=H31.hyx source=0 at=14,30\npair ID 1 2\nphase original\nmask 0 7\ndisperse\n";

class UndoTest : public testing::ScriptTest {
 protected:
  void SetUp() override {
    ScriptTest::SetUp();
    test::WriteSitePair(folder.File("H31.hyx"), 14.0, 30.0);
    ASSERT_EQ(Run(kPair), 0) << err;
    ForgetUndo();
  }
  std::string Project() {
    EXPECT_EQ(Run("save state.da overwrite=yes"), 0) << err;
    return Read("state.da");
  }
  /// Each line is one step; the project before, after, after undo, and after redo.
  void ThereAndBack(const std::string& lines) {
    const std::string before = Project();
    ASSERT_EQ(Run(lines), 0) << err;
    const std::string after = Project();
    EXPECT_FALSE(before == after) << lines;
    ASSERT_EQ(Undo(), 0) << lines;
    EXPECT_TRUE(Project() == before) << lines;
    ASSERT_EQ(Redo(), 0) << lines;
    EXPECT_TRUE(Project() == after) << lines;
  }
  static PMeasInfo& Pair() { return *FindPair(GetKeyFromID(session.curProjID, "ID"), 0, 1); }
  static std::vector<double> Cells() {
    std::vector<double> cells;
    for (int row = 1; row <= GetNumTableRows(fmodeling::SOILPROFILE); ++row)
      for (int column = 1; column <= GetNumTableColumns(fmodeling::SOILPROFILE); ++column)
        cells.push_back(GetTableCellVal(fmodeling::SOILPROFILE, row, column));
    return cells;
  }
};

TEST_F(UndoTest, EachChangeOfMasksGoesBackAndForthToTheSameBytes) {
  ThereAndBack("mask 40 60 jumps=1");
  ThereAndBack("mask update 50 45 70 jumps=2");
  ThereAndBack("mask delete 50");
  ThereAndBack("mask clear");
  ThereAndBack("mask auto");
}

TEST_F(UndoTest, AMaskGoesFromTheGraphAndFromTheNextCurve) {
  const auto shown = [] { return GraphOf(sasw::DISPLAY_A).rectangles.size(); };
  ASSERT_EQ(shown(), 1u);
  const int points = Pair().nDispPoints;
  ASSERT_EQ(Run("mask 20 60 jumps=3\ndisperse"), 0) << err;
  EXPECT_EQ(shown(), 2u);
  EXPECT_LT(Pair().nDispPoints, points);
  Commit(mainmenu::UNDO);
  EXPECT_EQ(shown(), 1u);
  ASSERT_EQ(Run("disperse"), 0) << err;
  EXPECT_EQ(Pair().nDispPoints, points);
}

TEST_F(UndoTest, ExcludeAndIncludeGoBackWithTheirLists) {
  ThereAndBack("exclude ID 1 2");
  EXPECT_EQ(GetNumListItems(dispcurv::LIST_EXCLUDED), 1);
  Undo();
  EXPECT_EQ(GetNumListItems(dispcurv::LIST_EXCLUDED), 0);
  EXPECT_EQ(GetNumListItems(dispcurv::LIST_INCLUDED), 1);
}

TEST_F(UndoTest, ACurveCalculatedInTheMeantimeStays) {
  ASSERT_EQ(Run("mask 40 60 jumps=1\ndisperse"), 0) << err;
  const int points = Pair().nDispPoints;
  ASSERT_EQ(Undo(), 0);
  EXPECT_EQ(MeasDB.maskingList.count(), 1);
  EXPECT_EQ(Pair().nDispPoints, points);
}

TEST_F(UndoTest, TheTableOfLayersGoesBackThroughEveryStep) {
  ASSERT_EQ(Run("press MAINMENU.FMODEL_PARAM\nset FMODELING.NLAYERS 3\ncell FMODELING.SOILPROFILE 2 1 4.5"),
            0)
      << err;
  const std::vector<std::string> steps = {
      "cell FMODELING.SOILPROFILE 1 3 150",
      "cell FMODELING.SOILPROFILE_DFLT 1 2 77\npress FMODELING.UPDATE_PROFILE2",
      "set FMODELING.EDITLAYERNO 2\npress FMODELING.INSERTLAYER",
      "press FMODELING.DELETEROW",
      "set FMODELING.NLAYERS 6",
      "press FMODELING.CLEARROW"};
  std::vector<std::vector<double>> cells = {Cells()};
  for (const std::string& step : steps) {
    ASSERT_EQ(Run(step), 0) << err;
    cells.push_back(Cells());
  }
  for (std::size_t k = cells.size() - 1; k-- > 0;) {
    ASSERT_EQ(Undo(), 0) << k;
    EXPECT_EQ(Cells(), cells[k]) << k;
    EXPECT_EQ(GetCtrlVal(fmodeling::NLAYERS), GetNumTableRows(fmodeling::SOILPROFILE));
  }
  for (std::size_t k = 1; k < cells.size(); ++k) {
    ASSERT_EQ(Redo(), 0) << k;
    EXPECT_EQ(Cells(), cells[k]) << k;
  }
  EXPECT_EQ(Redo(), -1);
}

TEST_F(UndoTest, ClearOfTheLayerTableLeavesTheProjectAsItWas) {
  ASSERT_EQ(Run("layers 2,3,4"), 0) << err;
  const std::string before = Project();
  ASSERT_EQ(Run("press FMODELING.CLEARROW\nundo"), 0) << err;
  EXPECT_TRUE(Project() == before);
}

TEST_F(UndoTest, AStepThatChangesNothingIsNoStep) {
  frontEnd.messages.clear();
  EXPECT_EQ(Undo(), -1);
  EXPECT_TRUE(IsDimmed(mainmenu::UNDO));
  SetCtrlVal(sasw::MASKING_FREQINIT, 60.0);
  SetCtrlVal(sasw::MASKING_FREQFINAL, 40.0);
  EXPECT_EQ(Commit(sasw::MASKINGNEW), -1);
  EXPECT_EQ(Commit(sasw::REDRAW), 0);
  EXPECT_EQ(UndoText(), "");
  ASSERT_EQ(Run("mask 40 60"), 0) << err;
  EXPECT_EQ(UndoText(), "New mask");
  EXPECT_FALSE(IsDimmed(mainmenu::UNDO));
  EXPECT_TRUE(IsDimmed(mainmenu::REDO));
  Undo();
  EXPECT_TRUE(IsDimmed(mainmenu::UNDO));
  EXPECT_FALSE(IsDimmed(mainmenu::REDO));
  ASSERT_EQ(Run("mask 70 80"), 0) << err;
  EXPECT_EQ(Redo(), -1) << "a new step ends what could be done again";
}

TEST_F(UndoTest, FiftyStepsAreKept) {
  for (int k = 0; k < 55; ++k)
    ASSERT_EQ(Run("mask " + std::to_string(40 + k) + ".1 " + std::to_string(40 + k) + ".9"), 0) << err;
  int back = 0;
  while (Undo() == 0) ++back;
  EXPECT_EQ(back, 50);
  EXPECT_EQ(MeasDB.maskingList.count(), 1 + 5);
}

TEST_F(UndoTest, ALoadForgetsTheSteps) {
  Project();
  ASSERT_EQ(Run("mask 40 60\nsave state.da overwrite=yes\nopen state.da"), 0) << err;
  EXPECT_EQ(Undo(), -1);
  EXPECT_EQ(Run("undo"), 1);
  EXPECT_NE(err.find("there is nothing to undo"), std::string::npos) << err;
}

}  // namespace
}  // namespace sondera
