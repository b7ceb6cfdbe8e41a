// Tests of the answers that one dialog gets without being shown.
#include "runtime/dialogs.h"

#include "support/recording_front_end.h"

namespace sondera {
namespace {

class OneShot : public ::testing::Test {
 protected:
  testing::RecordingFrontEnd frontEnd;
};

TEST_F(OneShot, EachKindAnswersOnceAndTheNextDialogIsShown) {
  OneShotAnswers answers;
  answers.File({FileAnswer::Exists, "a.da"}).Confirm(true).Prompt("text");
  EXPECT_EQ(FileSelectPopup({}).path, "a.da");
  EXPECT_TRUE(ConfirmPopup("t", "?"));
  EXPECT_EQ(PromptPopup("t", "?", 80), "text");
  EXPECT_TRUE(frontEnd.files.empty());
  EXPECT_TRUE(frontEnd.questions.empty());
  EXPECT_TRUE(frontEnd.prompts.empty());
  EXPECT_EQ(FileSelectPopup({}).answer, FileAnswer::Cancelled);
  EXPECT_FALSE(ConfirmPopup("t", "?"));
  EXPECT_FALSE(PromptPopup("t", "?", 80));
  EXPECT_EQ(frontEnd.files.size(), 1u);
  EXPECT_EQ(frontEnd.questions.size(), 1u);
  EXPECT_EQ(frontEnd.prompts.size(), 1u);
}

TEST_F(OneShot, AnAnswerThatNobodyAsksForIsDropped) {
  { OneShotAnswers().Confirm(true); }
  EXPECT_FALSE(ConfirmPopup("t", "?"));
}

TEST_F(OneShot, AnInnerOneLeavesTheOuterOneWaiting) {
  OneShotAnswers outer;
  outer.Confirm(true);
  {
    OneShotAnswers inner;
    EXPECT_FALSE(ConfirmPopup("t", "of somebody else")) << "shown, and answered No";
    inner.Confirm(true);
    EXPECT_TRUE(ConfirmPopup("t", "?"));
  }
  EXPECT_TRUE(ConfirmPopup("t", "?"));
}

TEST_F(OneShot, ATextIsCutToItsLength) {
  OneShotAnswers answers;
  answers.Prompt("0123456789");
  EXPECT_EQ(PromptPopup("t", "?", 4), "0123");
  answers.Prompt(std::nullopt);
  EXPECT_FALSE(PromptPopup("t", "?", 4)) << "cancelled";
}

}  // namespace
}  // namespace sondera
