#include "records/curve_labels.h"

#include <gtest/gtest.h>

#include <climits>
#include <random>

namespace sondera::testing {
namespace {

struct Parts {
  std::string measID;
  int chan1, chan2;
  bool operator==(const Parts&) const = default;
};

Parts TakeApart(const std::string& label) {
  Parts parts{"untouched", -9, -9};
  const int status = RetrieveChnlInfo(label, parts.chan1, parts.chan2, parts.measID);
  EXPECT_EQ(status, parts.chan1 == -9 ? -1 : 0) << label;
  return parts;
}

TEST(CurveLabels, ReversesTheLabelOfACurve) {
  EXPECT_EQ(DispCurveLabel("oysand 1", 0, 11), "oysand 1[1:12]");
  EXPECT_EQ(DispCurveLabel("oysand 1", 0, 11, true), "CSW-oysand 1[1:12]");
  EXPECT_EQ(TakeApart("oysand 1[1:12]"), (Parts{"oysand 1", 0, 11}));
  EXPECT_EQ(TakeApart("CSW-oysand 1[1:12]"), (Parts{"oysand 1", 0, 11}));
  EXPECT_EQ(TakeApart("a,b:c[2,3]\n"), (Parts{"a,b:c", 1, 2})) << "a comma may stand between the numbers";
}

TEST(CurveLabels, ChannelsOfADamagedPairHaveALabelToo) {
  EXPECT_EQ(DispCurveLabel("shot", INT_MAX, INT_MIN), "shot[2147483648:-2147483647]");
}

TEST(CurveLabels, LabelWithoutABracketIsRefused) {
  for (const char* label : {"", "shot", "shot 1:2]", "CSW-shot"})
    EXPECT_EQ(TakeApart(label).chan1, -9) << label;
}

TEST(CurveLabels, LabelWithoutTwoNumbersIsRefused) {
  for (const char* label : {"shot[", "shot[]", "shot[1]", "shot[1:]", "shot[:2]", "shot[a:b]",
                            "shot[::::", "shot[1:x]", "shot[-2147483648:1]", "shot[1:-99999999999]"})
    EXPECT_EQ(TakeApart(label).chan1, -9) << label;
}

TEST(CurveLabels, IdThatBeginsWithCswLosesItsFirstFourCharacters) {
  EXPECT_EQ(TakeApart("CSWtest[1:2]"), (Parts{"est", 0, 1}));
  EXPECT_EQ(TakeApart("CSW[1:2]"), (Parts{"", 0, 1}));
  EXPECT_EQ(TakeApart("csw-test[1:2]"), (Parts{"csw-test", 0, 1}));
}

TEST(CurveLabels, RandomLabelsComeBack) {
  std::mt19937 random(1);
  const std::string letters = "abcXYZ019 _-.[](){}:,%";
  for (int round = 0; round < 2000; ++round) {
    std::string id;
    for (int n = static_cast<int>(random() % 12); n > 0; --n) id += letters[random() % letters.size()];
    const int chan1 = static_cast<int>(random() % 300), chan2 = static_cast<int>(random() % 300);
    const bool csw = random() % 2 == 0;
    ASSERT_EQ(TakeApart(DispCurveLabel(id, chan1, chan2, csw)), (Parts{id, chan1, chan2})) << id;
  }
}

}  // namespace
}  // namespace sondera::testing
