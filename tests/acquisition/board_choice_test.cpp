// Tests of the choice of a board: names, options, the list.
#include "acquisition/board_choice.h"

#include <gmock/gmock.h>

#include "board_fixture.h"

namespace sondera {
namespace {

using ::testing::HasSubstr;

class BoardChoice : public testing::BoardTest {};

TEST_F(BoardChoice, InstallsTheDriverAndTakesItAwayAgain) {
  EXPECT_STREQ(Daq().name, "none");
  EXPECT_EQ(ChooseBoard("sim"), "");
  EXPECT_STREQ(Daq().name, "sim");
  EXPECT_EQ(ChooseBoard("none"), "");
  EXPECT_STREQ(Daq().name, "none");
}

TEST_F(BoardChoice, RefusesWithOneSentenceAndKeepsTheDriver) {
  ASSERT_EQ(ChooseBoard("sim:channels=2"), "");
  const std::pair<const char*, const char*> cases[] = {
      {"", "There is no board driver \"\""},
      {"simulator", "There is no board driver \"simulator\""},
      {"sim\x1b[2J", "There is no board driver \"sim\\x1B[2J\""},
      {"none:x", "Board driver none has no options."},
      {"sim:colour=3", "Board driver sim has no option \"colour\"; it has seed, channels, noise"},
      {"sim:seed=1,seed=2", "The option seed of board driver sim is given twice."},
      {"sim:seed", "The option seed of board driver sim takes a whole number"},
      {"sim:seed=", "The option seed of board driver sim takes a whole number"},
      {"sim:seed=1.5", "The option seed of board driver sim takes a whole number"},
      {"sim:seed=1x", "not \"1x\"."},
      {"sim:channels=0",
       "The option channels of board driver sim takes a whole number from 1 to 32, not \"0\"."},
      {"sim:noise=nan", "The option noise of board driver sim takes a number from 0 to 1, not \"nan\"."},
      {"sim:pace=-1", "The option pace"},
      {"sim:seed=1,,noise=0", "Board driver sim has no option \"\""},
  };
  for (const auto& [choice, sentence] : cases) {
    const std::string said = ChooseBoard(choice);
    EXPECT_THAT(said, HasSubstr(sentence)) << choice;
    EXPECT_EQ(said.find('\n'), std::string::npos);
    EXPECT_STREQ(Daq().name, "sim");
    std::string channels;
    EXPECT_EQ(Daq().devAIPhysicalChans("Sim1", channels), 0);
    EXPECT_EQ(channels, "Sim1/ai0,Sim1/ai1") << "the options are those of the board in use";
  }
}

TEST_F(BoardChoice, ListNamesDriversAndDevicesAndInstallsNothing) {
  const std::string list = BoardListText();
  EXPECT_THAT(list, HasSubstr("sim[:seed=1"));
  EXPECT_THAT(list, HasSubstr("Sim1: Dynamic Signal Acquisition, 4 channels"));
  EXPECT_STREQ(Daq().name, "none");
}

TEST_F(BoardChoice, InstallingResetsTheDriverThatGoesAndTheOneThatComes) {
  static int resets = 0;
  resets = 0;
  DaqDriver counting = daqNone;
  counting.reset = [] { ++resets; };
  InstallDaqDriver(&counting);
  EXPECT_EQ(resets, 1);
  counting.reset = nullptr;  // the table may change or disappear: the installed driver is reset
  EXPECT_EQ(InstallDaqDriver(&daqNone), &counting);
  EXPECT_EQ(resets, 2);
}

TEST_F(BoardChoice, WithoutABoardEveryRequestIsRefused) {
  bool ready = true;
  std::uint64_t mask = 1;
  EXPECT_EQ(Daq().waitRecord(1, 0.0, ready), daq_status::kNoBoard);
  EXPECT_FALSE(ready);
  EXPECT_EQ(Daq().recordOverload(1, mask), daq_status::kNoBoard);
  EXPECT_EQ(mask, 0u);
}

}  // namespace
}  // namespace sondera
