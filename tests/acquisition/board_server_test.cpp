// Tests of the board program of the examples: it replays text records through the process driver.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "acquisition/board_choice.h"
#include "board_fixture.h"
#include "support/temp_folder.h"

namespace sondera {
namespace {

using ::testing::HasSubstr;
using testing::MadeTask;
using testing::MakePlannedTask;
using testing::TakenRecord;
using testing::TakeRecord;
using testing::TaskPlan;

class BoardServer : public testing::BoardTest {
 protected:
  /// Starts the server at 2000 Hz on these records, one text a file.
  std::string Serve(const std::vector<std::string>& records) {
    std::string choice = "process:" SONDERA_BOARD_SERVER " 2000";
    for (const std::string& text : records) {
      const std::string path = folder_.File("record" + std::to_string(++files_));
      test::WriteWhole(path, text);
      choice += " " + path;
    }
    return ChooseBoard(choice);
  }
  test::TempFolder folder_;
  int files_ = 0;
};

TEST_F(BoardServer, ReplaysItsFilesInTurn) {
  ASSERT_EQ(Serve({"# volts\n0.125 1\n-2.5 1e-3\n3 4\n", "7 8\r\n9 10\r\n"}), "");
  const TaskPlan plan{.dev = "Rec1", .channels = 2, .rate = 500.0, .samples = 3};
  const MadeTask made = MakePlannedTask(plan);
  ASSERT_EQ(made.status, 0) << Daq().errorString(made.status);
  EXPECT_EQ(made.rate, 2000.0) << "the rate is the files'";
  EXPECT_EQ(TakeRecord(made.task, plan).samples, (std::vector<double>{0.125, -2.5, 3, 1, 1e-3, 4}));
  EXPECT_EQ(TakeRecord(made.task, plan).samples, (std::vector<double>{7, 9, 0, 8, 10, 0}));
  EXPECT_EQ(TakeRecord(made.task, plan).samples, (std::vector<double>{0.125, -2.5, 3, 1, 1e-3, 4}));
}

TEST_F(BoardServer, PutsTheCrossingAtThePreTriggerSample) {
  ASSERT_EQ(Serve({"0 0\n0 0.1\n0 0.3\n1 0.2\n2 12\n"}), "");
  const TaskPlan plan{
      .dev = "Rec1", .channels = 2, .samples = 5, .trigger = 1, .level = 0.2, .preTrigger = 3};
  const MadeTask made = MakePlannedTask(plan);
  ASSERT_EQ(made.status, 0);
  const TakenRecord record = TakeRecord(made.task, plan);
  EXPECT_EQ(record.samples, (std::vector<double>{0, 0, 0, 0, 1, 0, 0, 0.1, 0.3, 0.2}));
  EXPECT_EQ(record.overload, 0u);
  const TaskPlan later{
      .dev = "Rec1", .channels = 2, .samples = 5, .trigger = 1, .level = 0.2, .preTrigger = 1};
  Daq().clearTask(made.task);
  EXPECT_EQ(TakeRecord(MakePlannedTask(later).task, later).overload, 2u) << "12 V of 10";
}

TEST_F(BoardServer, ALevelThatIsNotReachedIsNoRecord) {
  ASSERT_EQ(Serve({"0\n1\n"}), "");
  const TaskPlan plan{.dev = "Rec1", .channels = 1, .samples = 5, .trigger = 0, .level = 5.0};
  const MadeTask made = MakePlannedTask(plan);
  EXPECT_EQ(TakeRecord(made.task, plan, 0.02).status, daq_status::kNotYet);
}

TEST_F(BoardServer, FilesThatAreNoRecordsAreRefused) {
  for (const char* text : {"", "# only a comment\n", "1 2\n3\n", "1 x\n", "words\n"})
    EXPECT_THAT(Serve({text}), HasSubstr("has ended")) << text;
}

TEST_F(BoardServer, RequestsItDoesNotKnowAreErrorsAndItGoesOn) {
  ASSERT_EQ(Serve({"1\n2\n"}), "");
  int category = 0;
  EXPECT_EQ(Daq().devProductCategory("Dev9", category), daq_status::kRefused);
  EXPECT_EQ(Daq().errorString(daq_status::kRefused), "there is no such device (board error -1)");
  EXPECT_EQ(MakePlannedTask({.dev = "Rec1", .channels = 2}).status, daq_status::kRefused);
  EXPECT_EQ(Daq().devProductCategory("Rec1", category), 0);
  EXPECT_EQ(category, 14649);
}

}  // namespace
}  // namespace sondera
