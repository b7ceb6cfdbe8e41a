// The panel that imports shots: its preview follows the settings and asks for what is missing; what a person does there
// gives the project of the script's word.
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "app/script_fixture.h"
#include "records/measdb.h"
#include "records/session.h"
#include "runtime/catalogue/loadshots.h"
#include "support/seg2_writer.h"

namespace sondera::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class LoadShotsPanel : public ScriptTest {
 protected:
  void WriteShot(const std::string& name, std::vector<double> receivers, double source,
                 const std::string& units = "METERS") {
    test::Seg2Line line;
    line.source = source;
    line.units = units;
    line.samples = 1024;  // the wave reaches the last receiver
    line.receivers = std::move(receivers);
    test::WriteWhole(folder.File(name), test::Seg2Bytes(test::Seg2OfLine(test::WithWave(line, 200.0))));
  }
  static std::string Preview() { return GetCtrlVal(loadshots::PREVIEW); }
  /// Those that were imported, without the empty one of a new session.
  static std::vector<std::string> Measurements() {
    std::vector<std::string> ids;
    for (const IDInfo& id : MeasDB.idList)
      if (id.MeasID != "measID") ids.push_back(id.MeasID);
    return ids;
  }
};

TEST_F(LoadShotsPanel, ThePlanFollowsTheSettings) {
  WriteShot("a.dat", {10, 14, 20, 28, 40, 56}, 0);
  ASSERT_EQ(Run("press MAINMENU.LOAD_SHOTS"), 0) << err;
  EXPECT_TRUE(IsPanelShown(Panel::LOADSHOTS));
  EXPECT_EQ(Preview(), "no file is chosen\n");
  ASSERT_EQ(Run("set LOADSHOTS.FILES a.dat"), 0) << err;
  EXPECT_THAT(Preview(), HasSubstr("a.dat: 6 channels"));
  EXPECT_THAT(Preview(), HasSubstr("to be answered: Empty ID String !"));
  EXPECT_EQ(GetNumTableRows(loadshots::PAIRTABLE), 0);
  ASSERT_EQ(Run("set LOADSHOTS.MEASID A"), 0) << err;
  EXPECT_THAT(Preview(), Not(HasSubstr("to be answered")));
  ASSERT_EQ(GetNumTableRows(loadshots::PAIRTABLE), 4);
  const double first[] = {1, 1, 3, 10, 10, 20, 40};
  for (int column = 0; column < 7; ++column)
    EXPECT_EQ(GetTableCellVal(loadshots::PAIRTABLE, 1, column + 1), first[column]) << column;
  ASSERT_EQ(Run("set LOADSHOTS.NEAREST 14"), 0) << err;
  EXPECT_EQ(GetNumTableRows(loadshots::PAIRTABLE), 3);
  ASSERT_EQ(Run("set LOADSHOTS.PAIRS \"One for all receivers\""), 0) << err;
  EXPECT_EQ(GetNumTableRows(loadshots::PAIRTABLE), 0);
  EXPECT_THAT(Preview(), HasSubstr("one measurement of the planned channels"));
  EXPECT_THAT(Measurements(), IsEmpty());
}

TEST_F(LoadShotsPanel, APairThatIsTickedOffIsNotImported) {
  WriteShot("a.dat", {10, 14, 20, 28, 40, 56}, 0);
  ASSERT_EQ(Run("press MAINMENU.LOAD_SHOTS\nset LOADSHOTS.FILES a.dat\nset LOADSHOTS.MEASID A\n"
                "cell LOADSHOTS.PAIRTABLE 2 1 0\nset LOADSHOTS.NEAREST 5\npress LOADSHOTS.LOAD"),
            0)
      << err;
  EXPECT_THAT(Measurements(), ElementsAre("A_10_20", "A_20_40", "A_28_56"));
  EXPECT_FALSE(IsPanelShown(Panel::LOADSHOTS));
}

TEST_F(LoadShotsPanel, MissingLocationsAndUnitsAreAskedAndNeverGuessed) {
  WriteShot("none.dat", {0, 0, 0}, 0);
  WriteShot("cubits.dat", {10, 20, 40}, 0, "CUBITS");
  ASSERT_EQ(Run("press MAINMENU.LOAD_SHOTS\nset LOADSHOTS.FILES none.dat\nset LOADSHOTS.MEASID A"), 0) << err;
  EXPECT_THAT(Preview(), HasSubstr("to be answered: "));
  EXPECT_THAT(Preview(), HasSubstr("RECEIVER_LOCATION"));
  EXPECT_EQ(Run("press LOADSHOTS.LOAD"), 1);
  EXPECT_THAT(err, HasSubstr("RECEIVER_LOCATION"));
  EXPECT_THAT(Measurements(), IsEmpty());
  ASSERT_EQ(Run("set LOADSHOTS.SOURCE 0\nset LOADSHOTS.RECEIVERS \"10, 20, 40\"\npress LOADSHOTS.LOAD"), 0)
      << err << Preview();
  EXPECT_THAT(Measurements(), ElementsAre("A_10_20", "A_20_40"));
  ASSERT_EQ(Run("set LOADSHOTS.SOURCE \"\"\nset LOADSHOTS.RECEIVERS \"\"\nset LOADSHOTS.FILES cubits.dat\n"
                "set LOADSHOTS.MEASID B"),
            0)
      << err;
  EXPECT_THAT(Preview(), HasSubstr("to be answered: UNITS is missing"));
  ASSERT_EQ(Run("set LOADSHOTS.UNIT ft\npress LOADSHOTS.LOAD"), 0) << err << Preview();
  EXPECT_THAT(Measurements(), ElementsAre("A_10_20", "A_20_40", "B_10_20", "B_20_40"));
}

TEST_F(LoadShotsPanel, ASourceInsideTheLineAsksForASide) {
  WriteShot("mid.dat", {-20, -10, 10, 20}, 0);
  ASSERT_EQ(Run("press MAINMENU.LOAD_SHOTS\nset LOADSHOTS.FILES mid.dat\nset LOADSHOTS.MEASID A"), 0) << err;
  EXPECT_THAT(Preview(), HasSubstr("to be answered: "));
  ASSERT_EQ(Run("set LOADSHOTS.SIDE Left\npress LOADSHOTS.LOAD"), 0) << err;
  EXPECT_THAT(Measurements(), ElementsAre("A_10_20"));
}

TEST_F(LoadShotsPanel, FieldsThatAreNoNumbersAreNamed) {
  WriteShot("a.dat", {10, 20}, 0);
  ASSERT_EQ(Run("press MAINMENU.LOAD_SHOTS\nset LOADSHOTS.FILES a.dat\nset LOADSHOTS.SOURCE here"), 0) << err;
  EXPECT_EQ(Preview(), "\"here\" in \"Source at\" is no number.\n");
  EXPECT_EQ(Run("press LOADSHOTS.LOAD"), 1);
  EXPECT_THAT(err, HasSubstr("\"here\" in \"Source at\" is no number."));
  ASSERT_EQ(Run("set LOADSHOTS.SOURCE \"\"\nset LOADSHOTS.CHANNELS 1.5"), 0) << err;
  EXPECT_EQ(Preview(), "Channels are whole numbers from 1 on.\n");
}

TEST_F(LoadShotsPanel, AFileIsAddedByItsDialogAndColumnsOfTextAskForTheInterval) {
  test::WriteWhole(folder.File("c.txt"), "1,2\n3,4\n2,1\n0,5\n");
  ASSERT_EQ(Run("press MAINMENU.LOAD_SHOTS\nset LOADSHOTS.FORMAT \"Columns of text\"\n"
                "answer file c.txt\npress LOADSHOTS.ADDFILE"),
            0)
      << err;
  EXPECT_THAT(GetCtrlVal(loadshots::FILES), HasSubstr("c.txt"));
  EXPECT_THAT(Preview(), HasSubstr("give the sampling interval"));
  ASSERT_EQ(Run("set LOADSHOTS.INTERVAL 0.001\nset LOADSHOTS.MEASID C"), 0) << err;
  EXPECT_THAT(Preview(), HasSubstr("to be answered: "));
  EXPECT_THAT(Preview(), HasSubstr("2 channels"));
}

TEST_F(LoadShotsPanel, GivesTheProjectOfTheWord) {
  WriteShot("a.dat", {10, 14, 20, 28}, 0);
  ASSERT_EQ(Run("new\nread seg2 id=A files=a.dat\nsave word.da\nnew\npress MAINMENU.LOAD_SHOTS\n"
                "set LOADSHOTS.FILES a.dat\nset LOADSHOTS.MEASID A\npress LOADSHOTS.LOAD\nsave panel.da"),
            0)
      << err;
  EXPECT_EQ(Read("word.da"), Read("panel.da"));
}

TEST_F(LoadShotsPanel, AMeasurementThatExistsIsReplacedAfterAQuestion) {
  WriteShot("a.dat", {10, 20}, 0);
  ASSERT_EQ(Run("press MAINMENU.LOAD_SHOTS\nset LOADSHOTS.FILES a.dat\nset LOADSHOTS.MEASID A\n"
                "press LOADSHOTS.LOAD\npress MAINMENU.LOAD_SHOTS"),
            0)
      << err;
  EXPECT_THAT(Preview(), HasSubstr("the project has a measurement A_10_20 already"));
  ASSERT_EQ(Run("answer yes\npress LOADSHOTS.LOAD"), 0) << err;
  EXPECT_THAT(Measurements(), ElementsAre("A_10_20"));
}

/// Tables by the menu of exports.
TEST_F(LoadShotsPanel, MenuItemsWriteTheTablesOfTheWord) {
  WriteShot("a.dat", {10, 20}, 0);
  ASSERT_EQ(Run("read seg2 id=A files=a.dat\nwrite json word.json\nwrite csv word\n"
                "answer file menu.json\npress MAINMENU.EXPORT_JSON\nanswer file menu.csv\n"
                "press MAINMENU.EXPORT_CSV"),
            0)
      << err;
  EXPECT_EQ(Read("menu.json"), Read("word.json"));
  EXPECT_GT(Read("word.json").size(), 100u);
  for (const char* table : {"curves", "profile", "spectra", "masks", "figures"})
    EXPECT_EQ(Read("menu_" + std::string(table) + ".csv"), Read("word_" + std::string(table) + ".csv"))
        << table;
  EXPECT_EQ(Run("answer file c.csv\npress MAINMENU.EXPORT_SWPREPOST"), 1);
  EXPECT_THAT(err, HasSubstr("there is no global curve"));
}

}  // namespace
}  // namespace sondera::testing
