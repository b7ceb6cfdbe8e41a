// Tests of the start of an inversion from the panel: the order of its steps, the choice of the starting
// model, refusals, and whole runs on a small plane-wave curve.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <fstream>
#include <sstream>

#include "forward/parameters.h"
#include "inversion/inv_fixture.h"
#include "inversion/inv_session.h"
#include "runtime/events.h"
#include "runtime/panels/exdthd.h"
#include "runtime/panels/fmodeling.h"
#include "runtime/panels/inversion.h"
#include "runtime/redraw.h"

namespace sondera::testing {
namespace {

class InvRun : public InversionTest {
 protected:
  int Perform() { return PerformInvAnalCallback(Panel::INVERSION, &inversion::PERFORMINV, Event::Commit, 0); }
  int StartFromMenu() { return Run_InvAnalCallback(Panel::MAINMENU, nullptr, Event::Commit, 0); }
};

using PerformInvAnal = InvRun;
using RunInvAnalMenu = InvRun;
using RunInvAnalDirect = InvRun;

TEST_F(PerformInvAnal, FindsTheProfileBehindACurve) {
  SetUpCase();
  SetCtrlVal(inversion::NITER, 4);
  SetCtrlVal(inversion::UF_VS, 0.5);
  ASSERT_EQ(Perform(), 0) << Messages();
  EXPECT_EQ(InvParam.nEntries, 4);
  EXPECT_NEAR(InvParam.H(0, 0), 3.0, 1e-12);
  EXPECT_EQ(InvParam.Vs(0, 0), 185.0);
  EXPECT_GT(InvParam.rms[0], 10.0);
  EXPECT_LT(InvParam.rms[4], 0.2);
  EXPECT_NEAR(InvParam.Vs(4, 0), 150.0, 3.0);
  EXPECT_NEAR(InvParam.Vs(4, 1), 220.0, 0.05 * 220.0);
  EXPECT_FALSE(WaitCursorShown());
}

}  // namespace
}  // namespace sondera::testing
