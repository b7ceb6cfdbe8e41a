// Tests of the interrupt of a terminal: one press requests a halt, a second one at once is the same request,
// and one after a while ends the program.
#include "runtime/events.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <thread>

#include "runtime/interrupt_hold.h"

namespace sondera::testing {
namespace {

TEST(Interrupt, ASecondOneAtOnceMeansTheFirst) {
  // In a process of its own: if the second request ended the program, this process would end.
  EXPECT_EXIT(
      {
        RequestInterrupt();
        RequestInterrupt();
        std::_Exit(InterruptRequested() ? 7 : 8);
      },
      ::testing::ExitedWithCode(7), "");
}

TEST(Interrupt, ASecondOneAfterAWhileEndsTheProgramAndSaysSo) {
  EXPECT_EXIT(
      {
        RequestInterrupt();
        std::this_thread::sleep_for(std::chrono::milliseconds(4100));
        RequestInterrupt();
        std::_Exit(7);
      },
      ::testing::ExitedWithCode(1), "interrupted twice; what was not saved is lost");
}

TEST(Interrupt, WaitsForTheEndOfAStepWhereRunsFinishThem) {
  {
    const InterruptHold idle;
    RequestInterrupt();
    EXPECT_TRUE(InterruptRequested()) << "runs do not finish steps unless they are told to";
    ClearInterrupt();
  }
  LetRunsFinishSteps(true);
  {
    InterruptHold hold;
    hold.StepIsDone();
    RequestInterrupt();
    EXPECT_FALSE(InterruptRequested()) << "the next step has begun";
    hold.StepIsDone();
    EXPECT_TRUE(InterruptRequested());
    ClearInterrupt();
  }
  {
    const InterruptHold hold;
    RequestInterrupt();
    EXPECT_FALSE(InterruptRequested());
  }
  EXPECT_TRUE(InterruptRequested()) << "a run that ends keeps nothing back";
  ResetEvents();
  const InterruptHold hold;
  RequestInterrupt();
  EXPECT_TRUE(InterruptRequested()) << "a session begins without it";
  ClearInterrupt();
}

TEST(Interrupt, IsForgottenOnceItWasAnswered) {
  RequestInterrupt();
  EXPECT_TRUE(InterruptRequested());
  ClearInterrupt();
  EXPECT_FALSE(InterruptRequested());
}

}  // namespace
}  // namespace sondera::testing
