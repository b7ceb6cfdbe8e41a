#include "runtime/findings.h"

#include <gtest/gtest.h>

namespace sondera {
namespace {

TEST(Findings, KeepTheirOrderAndEachSentenceOnce) {
  ClearFindings();
  AddNote("coherence is unknown");
  AddDoubt("the RMS rose");
  AddNote("coherence is unknown");
  AddDoubt("coherence is unknown");
  ASSERT_EQ(Findings().size(), 3u);
  EXPECT_EQ(Findings()[0], (Finding{FindingKind::Note, "coherence is unknown"}));
  EXPECT_EQ(Findings()[1], (Finding{FindingKind::Doubt, "the RMS rose"}));
  EXPECT_EQ(Findings()[2], (Finding{FindingKind::Doubt, "coherence is unknown"}));
  EXPECT_EQ(DoubtCount(), 2);
  ClearFindings();
  EXPECT_TRUE(Findings().empty());
  EXPECT_EQ(DoubtCount(), 0);
}

}  // namespace
}  // namespace sondera
