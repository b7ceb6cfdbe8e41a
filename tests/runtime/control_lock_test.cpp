// Tests of the lock that a run holds: which controls react, nesting, values that a person enters meanwhile.
#include "runtime/control_lock.h"

#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/catalogue/measpanel.h"
#include "support/popup_recorder.h"

namespace sondera {
namespace {

int presses = 0;
int Count(Panel, ControlId, Event, long) {
  ++presses;
  return 0;
}

class Lock : public ::testing::Test {
 protected:
  void SetUp() override {
    ResetControls();
    presses = 0;
    for (ControlId c : kPressed) {
      former.push_back(CallbackOf(*c));
      InstallCallback(*c, Count);
    }
  }
  void TearDown() override {
    for (std::size_t i = 0; i < former.size(); ++i) InstallCallback(*kPressed[i], former[i]);
  }
  static constexpr ControlId kPressed[] = {&measpanel::STOPMEAS, &measpanel::SASWPAUSECONT, &exdthd::HALT,
                                           &measpanel::F6};
  std::vector<Callback> former;
  test::PopupRecorder popups;
};

TEST_F(Lock, ASetOfControlsAnswers) {
  const ControlLock lock({&measpanel::STOPMEAS, &measpanel::SASWPAUSECONT}, "Sondera", "Measuring.");
  EXPECT_TRUE(Answers(measpanel::STOPMEAS));
  EXPECT_TRUE(Answers(measpanel::SASWPAUSECONT));
  EXPECT_FALSE(Answers(measpanel::F6));
  EXPECT_EQ(EndingControl(), &measpanel::STOPMEAS);
  EXPECT_EQ(Commit(measpanel::SASWPAUSECONT), 0);
  EXPECT_EQ(Commit(measpanel::STOPMEAS), 0);
  EXPECT_EQ(presses, 2);
  EXPECT_EQ(Commit(measpanel::F6), -1);
  EXPECT_EQ(SendEvent(measpanel::F6, Event::LeftClick), 0);
  EXPECT_EQ(presses, 2);
  ASSERT_EQ(popups.shown.size(), 1u);
  EXPECT_EQ(popups.shown[0].second, "Measuring.");
}

TEST_F(Lock, TheEndOfAnInnerLockLeavesTheOuterOne) {
  {
    const ControlLock outer({&exdthd::HALT}, "Sondera", "Outer.");
    {
      const ControlLock inner({&exdthd::HALT, &measpanel::F6}, "Sondera", "Inner.");
      EXPECT_TRUE(IsLocked());
      EXPECT_FALSE(Answers(measpanel::F6)) << "the outer one does not name it";
    }
    EXPECT_TRUE(IsLocked());
    EXPECT_TRUE(Answers(exdthd::HALT));
    EXPECT_EQ(Commit(measpanel::F6), -1);
    ASSERT_EQ(popups.shown.size(), 1u);
    EXPECT_EQ(popups.shown[0].second, "Outer.");
  }
  EXPECT_FALSE(IsLocked());
  EXPECT_EQ(EndingControl(), nullptr);
  EXPECT_EQ(Commit(measpanel::F6), 0);
}

TEST_F(Lock, AValueThatAPersonEntersWaitsForTheEnd) {
  {
    const ControlLock lock({&exdthd::HALT}, "Sondera", "A run.");
    EXPECT_FALSE(EnterValue(inversion::NITER, 17));
    EXPECT_FALSE(EnterIndex(inversion::MODELPARM, 1));
    EXPECT_FALSE(EnterValue(inversion::CONST_MP_VS, "1"));
    EXPECT_EQ(GetCtrlVal(inversion::NITER), 5);
    EXPECT_EQ(GetCtrlIndex(inversion::MODELPARM), 0);
    EXPECT_EQ(GetCtrlVal(inversion::CONST_MP_VS), "");
    SetCtrlVal(inversion::NITER, 6);
    EXPECT_EQ(GetCtrlVal(inversion::NITER), 6) << "the logic writes as ever";
  }
  EXPECT_TRUE(EnterValue(inversion::NITER, 17));
  EXPECT_EQ(GetCtrlVal(inversion::NITER), 17);
}

TEST_F(Lock, ObserversHearOfItsBeginAndItsEnd) {
  std::vector<bool> heard;
  const int number = AddObserver([&](std::span<const Change> changes) {
    for (const Change& c : changes)
      if (c.kind == ChangeKind::Lock) heard.push_back(IsLocked());
  });
  { const ControlLock lock({&exdthd::HALT}, "Sondera", "A run."); }
  RemoveObserver(number);
  EXPECT_EQ(heard, (std::vector<bool>{true, false}));
}

}  // namespace
}  // namespace sondera
