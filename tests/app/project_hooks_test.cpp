// Tests of the project functions for a front end: unsaved changes, save, an Open that loses nothing.
#include "runtime/project_hooks.h"

#include "panels/mainmenu_project.h"
#include "records/measdb.h"
#include "records/session.h"
#include "runtime/atomic_writer.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/sasw.h"
#include "support/app_fixture.h"
#include "support/site_records.h"

namespace sondera::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ProjectHooksTest : public AppTest {
 protected:
  /// Another project in a file, and this session's in "mine.da".
  void SetUp() override {
    AppTest::SetUp();
    ReName("other");
    SaveUnder("other.da");
    ReName("mine");
    SaveUnder("mine.da");
  }
  void SaveUnder(const std::string& name) {
    frontEnd.fileAnswers = {{FileAnswer::IsNew, folder.File(name)}};
    ASSERT_EQ(SaveAsRawData(), 0);
  }
  static void ReName(const std::string& id) {
    SendEvent(hmsetup::PROJID, Event::GotFocus);
    SetCtrlVal(hmsetup::PROJID, id);
    Commit(hmsetup::PROJID);
  }
  void ExpectMine(const std::string& message = {}) {
    EXPECT_EQ(session.projectFileName, folder.File("mine.da"));
    EXPECT_EQ(MeasDB.idList.count(), 1);
    EXPECT_FALSE(HasUnsavedChanges());
    if (message.empty())
      EXPECT_THAT(frontEnd.messages, IsEmpty());
    else
      EXPECT_THAT(frontEnd.messages, ElementsAre(message));
  }
};

TEST_F(ProjectHooksTest, ChangesAreUnsavedUntilTheyAreSavedOrTakenBack) {
  EXPECT_FALSE(HasUnsavedChanges());
  ReName("changed");
  EXPECT_TRUE(HasUnsavedChanges());
  ReName("mine");
  EXPECT_FALSE(HasUnsavedChanges()) << "the bytes are those of before";
  ReName("changed");
  EXPECT_EQ(SaveProjectNow(), 0);
  EXPECT_FALSE(HasUnsavedChanges());
}

TEST_F(ProjectHooksTest, NothingIsUnsavedAtFirstNorAfterNewOrOpen) {
  StartSession();
  EXPECT_FALSE(HasUnsavedChanges());
  ReName("x");
  EXPECT_TRUE(HasUnsavedChanges());
  frontEnd.confirmAnswers = {true, true};
  Commit(mainmenu::NEW_MEASUREMENT);
  EXPECT_FALSE(HasUnsavedChanges());
  EXPECT_EQ(OpenProject(folder.File("mine.da")), 0);
  EXPECT_FALSE(HasUnsavedChanges());
}

TEST_F(ProjectHooksTest, AFailedSaveLeavesTheChangesUnsaved) {
  ReName("changed");
  session.projectFileName = folder.File("no such folder/a.da");
  EXPECT_EQ(SaveProjectNow(), -1);
  EXPECT_TRUE(HasUnsavedChanges());
}

TEST_F(ProjectHooksTest, LookingAroundIsNoChange) {
  MeasDB.maskingList.append();  // replaces the changes of the records by a display
  EXPECT_TRUE(HasUnsavedChanges());
  MeasDB.maskingList.clear();
  EXPECT_FALSE(HasUnsavedChanges());
  LookAround([] { MeasDB.maskingList.append(); });
  EXPECT_FALSE(HasUnsavedChanges());
  ReName("changed");
  LookAround([] { MeasDB.maskingList.append(); });
  EXPECT_TRUE(HasUnsavedChanges()) << "what was unsaved before stays so";
}

TEST_F(ProjectHooksTest, OpenTakesTheFileWithoutAsking) {
  EXPECT_EQ(OpenProject(folder.File("other.da")), 0);
  EXPECT_EQ(session.projectFileName, folder.File("other.da"));
  EXPECT_EQ(frontEnd.files.size(), 2u) << "those of the two saves";
  EXPECT_THAT(frontEnd.messages, IsEmpty());
}

TEST_F(ProjectHooksTest, ACancelledOpenHarmsNothing) {
  frontEnd.fileAnswers = {{FileAnswer::Cancelled, ""}};
  EXPECT_EQ(AskAndOpenProject(), -1);
  ExpectMine();
  EXPECT_EQ(Commit(mainmenu::SAVE_RAW_DATA), 0);
  ExpectMine();
}

TEST_F(ProjectHooksTest, AMissingFileHarmsNothing) {
  frontEnd.fileAnswers = {{FileAnswer::IsNew, folder.File("none.da")}};
  EXPECT_EQ(AskAndOpenProject(), -1);
  ExpectMine("File does not exist.");
}

TEST_F(ProjectHooksTest, AskingFirstOpensTheChosenFile) {
  frontEnd.fileAnswers = {{FileAnswer::Exists, folder.File("other.da")}};
  EXPECT_EQ(AskAndOpenProject(), 0);
  EXPECT_EQ(session.projectFileName, folder.File("other.da"));
}

TEST_F(ProjectHooksTest, ADirectPressStillEmptiesTheListsFirst) {
  frontEnd.fileAnswers = {{FileAnswer::Cancelled, ""}};
  EXPECT_EQ(Commit(mainmenu::LOAD_RAW_DATA), -1);
  EXPECT_TRUE(MeasDB.idList.empty());
}

TEST(Digest, TellsWritesApartAndWritesNothing) {
  const auto of = [](const std::string& text, int number) {
    AtomicWriter w{AtomicWriter::DigestOnly{}};
    w.Put(text);
    w.Int32(number);
    return w.Digest();
  };
  EXPECT_EQ(of("abc", 1), of("abc", 1));
  EXPECT_NE(of("abc", 1), of("abc", 2));
  EXPECT_NE(of("abc", 1), of("abd", 1));
  const std::string large(1 << 20, 'x');
  std::string other = large;
  other[700000] = 'y';
  EXPECT_NE(of(large, 1), of(other, 1));
  AtomicWriter w{AtomicWriter::DigestOnly{}};
  w.Put("abc");
  EXPECT_FALSE(w.Commit()) << "there is no file to put in place";
}

}  // namespace
}  // namespace sondera::testing
