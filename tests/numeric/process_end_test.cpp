// Tests of the end of the process from inside a routine: the last step runs first, once.
#include "numeric/process_end.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <stdexcept>

namespace sondera {
namespace {

TEST(ProcessEnd, EndsWithTheStatusWhereNothingIsInstalled) {
  EXPECT_EXIT(EndProcess(3), ::testing::ExitedWithCode(3), "^$");
}

TEST(ProcessEnd, TakesTheLastStepFirst) {
  EXPECT_EXIT(
      {
        InstallLastStep([] { std::fputs("saved", stderr); });
        EndProcess(1);
      },
      ::testing::ExitedWithCode(1), "^saved$");
}

TEST(ProcessEnd, EndInsideTheStepIsTheEnd) {
  EXPECT_EXIT(
      {
        InstallLastStep([] {
          std::fputs("once", stderr);
          EndProcess(2);
        });
        EndProcess(1);
      },
      ::testing::ExitedWithCode(2), "^once$");
}

TEST(ProcessEnd, StepThatThrowsDoesNotStopTheEnd) {
  EXPECT_EXIT(
      {
        InstallLastStep([] { throw std::runtime_error("no disk"); });
        EndProcess(1);
      },
      ::testing::ExitedWithCode(1), "^$");
}

}  // namespace
}  // namespace sondera
