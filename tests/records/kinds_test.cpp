// The names of kinds.h compared with the items that a person chooses from.
#include "records/kinds.h"

#include <gtest/gtest.h>

#include <string>

#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/catalogue/items.h"

namespace sondera {
namespace {

/// Value of the item with this label; -1000 without one.
template <std::size_t n>
int ValueOf(const ListItem (&items)[n], const std::string& label) {
  for (const ListItem& item : items)
    if (item.label == label) return static_cast<int>(item.value);
  return -1000;
}

TEST(Kinds, HaveTheNumbersOfTheForwardModelPanel) {
  EXPECT_EQ(ValueOf(fmodeling::kAnalyses, "2-D"), kPlaneWaves);
  EXPECT_EQ(ValueOf(fmodeling::kAnalyses, "3-D"), kPointLoad);
  EXPECT_EQ(ValueOf(fmodeling::kAnalyses, "Enhanced 3-D"), kPointLoadGraded);
  EXPECT_EQ(ValueOf(fmodeling::kCurveKinds, "Global"), kGlobalCurve);
  EXPECT_EQ(ValueOf(fmodeling::kCurveKinds, "Array"), kArrayCurves);
  EXPECT_EQ(ValueOf(fmodeling::kReceiverKinds, "R1=2L and R2=4L"), kReceiversByWavelength);
  EXPECT_EQ(ValueOf(fmodeling::kReceiverKinds, "Fixed receivers"), kFixedReceivers);
  EXPECT_EQ(ValueOf(fmodeling::kDomains, "Wavelength"), kWavelengthDomain);
  EXPECT_EQ(ValueOf(fmodeling::kDomains, "Frequency"), kFrequencyDomain);
}

TEST(Kinds, HaveTheNumbersOfTheInversionPanel) {
  EXPECT_EQ(ValueOf(inversion::kModelParms, "Vs"), kVaryVs);
  EXPECT_EQ(ValueOf(inversion::kModelParms, "H"), kVaryH);
  EXPECT_EQ(ValueOf(inversion::kModelParms, "Vs and H"), kVaryBoth);
  EXPECT_TRUE(VariesVs(kVaryVs) && !VariesH(kVaryVs));
  EXPECT_TRUE(VariesH(kVaryH) && !VariesVs(kVaryH));
  EXPECT_TRUE(VariesH(kVaryBoth) && VariesVs(kVaryBoth));
}

TEST(Kinds, HaveTheNumbersOfTheDisplayTypes) {
  const auto value = [](DisplayType type) { return static_cast<int>(type); };
  EXPECT_EQ(ValueOf(panel_items::kDisplayTypes, "Time Trace"), value(DisplayType::TimeTrace));
  EXPECT_EQ(ValueOf(panel_items::kDisplayTypes, "Freq Resp (Phase)"), value(DisplayType::TransferPhase));
  EXPECT_EQ(ValueOf(panel_items::kDisplayTypes, "Coherence"), value(DisplayType::Coherence));
  EXPECT_EQ(ValueOf(panel_items::kDisplayTypes, "Impulse Response"), value(DisplayType::ImpulseResponse));
  EXPECT_EQ(ValueOf(panel_items::kDisplayTypes, "Gabor Spectrum"), value(DisplayType::GaborSpectrum));
}

TEST(Kinds, HaveTheNumbersOfPhasesAxesAndSites) {
  EXPECT_EQ(ValueOf(panel_items::kPhaseOptions, "Original"), kOriginalPhase);
  EXPECT_EQ(ValueOf(panel_items::kPhaseOptions, "Enhanced"), kEnhancedPhase);
  EXPECT_EQ(ValueOf(panel_items::kPhaseOptions, "Backbone"), kBackbonePhase);
  EXPECT_EQ(ValueOf(panel_items::kDispersionAxes, "Frequency"), static_cast<int>(AxisQuantity::Frequency));
  EXPECT_EQ(ValueOf(panel_items::kDispersionAxes, "Wavelength"), static_cast<int>(AxisQuantity::Wavelength));
  EXPECT_EQ(ValueOf(panel_items::kSiteCategories, "Pavement Site"), static_cast<int>(SiteCategory::Pavement));
}

TEST(Kinds, AnAnalysisOfARunThatIsNoInversionIsNegative) {
  EXPECT_TRUE(IsPlaneWaves(2));
  EXPECT_TRUE(IsPlaneWaves(-2));
  EXPECT_FALSE(IsPlaneWaves(3));
  EXPECT_FALSE(IsPlaneWaves(0));
}

}  // namespace
}  // namespace sondera
