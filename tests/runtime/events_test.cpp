// Tests of the interrupt of a terminal: one press requests a halt, a second one at once is the same request,
// and one after a while ends the program.
#include "runtime/events.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <thread>

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

TEST(Interrupt, IsForgottenOnceItWasAnswered) {
  RequestInterrupt();
  EXPECT_TRUE(InterruptRequested());
  ClearInterrupt();
  EXPECT_FALSE(InterruptRequested());
}

}  // namespace
}  // namespace sondera::testing
