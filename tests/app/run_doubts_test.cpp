// Tests of each doubt and note at its limit, and of the table of limits in the documentation.
#include "inversion/run_doubts.h"

#include <fstream>
#include <sstream>

#include "records/inv_records.h"
#include "records/model_records.h"
#include "run/sweep_state.h"
#include "runtime/doubt_limits.h"
#include "runtime/findings.h"
#include "runtime/text_format.h"
#include "support/app_fixture.h"

namespace sondera {
namespace {

class RunDoubts : public testing::AppTest {
 protected:
  static PairFigures Sound() {
    PairFigures f;
    f.measID = "H21";
    f.label = "H21[1:2]";
    f.points = 100;
    f.spacing = f.srcToR1 = 10.0;
    f.windowShare = 0.5;
    f.lowCoherence = 0.1;
    return f;
  }
  /// Findings of one kind after the check of the pairs, each up to the colon after the label.
  static std::vector<std::string> Texts(FindingKind kind) {
    std::vector<std::string> texts;
    for (const Finding& f : Findings())
      if (f.kind == kind) texts.push_back(f.text);
    return texts;
  }
  static std::vector<std::string> Doubts() { return Texts(FindingKind::Doubt); }
  static std::vector<std::string> Notes() { return Texts(FindingKind::Note); }

  void Judge(const PairFigures& f) {
    ClearFindings();
    DoubtPairs({f}, PairAgreement{});
  }

  /// Three layers of 2 m in entries 0 and 1, resolutions of 0.5, and array data of 30 m wavelength at the
  /// most.
  static void StoreProfile() {
    InvParam.nLayers = 3;
    for (int entry = 0; entry <= 1; ++entry) {
      for (int l = 0; l < 3; ++l) {
        InvParam.H(entry, l) = 2.0;
        InvParam.Vs(entry, l) = 200.0;
        InvParam.resolution(entry, l) = 0.5;
      }
    }
    FModelParam.dispCurvType = 2;
    FModelParam.nDispPoints = 2;
    FModelParam.nDispCurves = 1;
    FModelParam.freq[0] = 10.0;
    FModelParam.vel[0] = 300.0;
    FModelParam.freq[1] = 20.0;
    FModelParam.vel[1] = 250.0;
  }
  static InversionHistory Fits(const std::vector<double>& chi, int rows = 50, int of = 50) {
    InversionHistory h{of, {}};
    for (std::size_t k = 0; k < chi.size(); ++k)
      h.iterations.push_back({static_cast<int>(k), 5.0, chi[k], rows});
    return h;
  }
  void Judge(const InversionHistory& h) {
    ClearFindings();
    DoubtInversion(h);
  }
};

TEST_F(RunDoubts, ASoundPairHasNone) {
  Judge(Sound());
  EXPECT_TRUE(Findings().empty());
}

TEST_F(RunDoubts, AWindowThatKeepsLittleOfTheResponse) {
  PairFigures f = Sound();
  f.windowShare = 0.20;
  Judge(f);
  EXPECT_TRUE(Doubts().empty());
  f.windowShare = 0.19;
  Judge(f);
  ASSERT_EQ(Doubts().size(), 1u);
  EXPECT_EQ(Doubts()[0].find("H21[1:2]: the filter window keeps 19 % of the energy of the impulse response"),
            0u)
      << Doubts()[0];
  f.windowShare = -1.0;
  Judge(f);
  EXPECT_TRUE(Doubts().empty()) << "not known";
}

TEST_F(RunDoubts, CoherenceThatIsLowOrUnknown) {
  PairFigures f = Sound();
  f.lowCoherence = 1.0 / 3.0;
  Judge(f);
  EXPECT_TRUE(Doubts().empty());
  f.lowCoherence = 0.34;
  Judge(f);
  ASSERT_EQ(Doubts().size(), 1u);
  EXPECT_EQ(Doubts()[0].find("H21[1:2]: the coherence is below 0.8 on 34 % of the lines used"), 0u)
      << Doubts()[0];
  f.lowCoherence = -1.0;
  Judge(f);
  EXPECT_TRUE(Doubts().empty());
  ASSERT_EQ(Notes().size(), 1u);
  EXPECT_EQ(Notes()[0].find("H21[1:2]: the coherence is unknown"), 0u);
}

TEST_F(RunDoubts, WavelengthsBeyondTheSpacing) {
  PairFigures f = Sound();
  f.noted = 40;
  f.far = 20;
  Judge(f);
  EXPECT_TRUE(Doubts().empty());
  ASSERT_EQ(Notes().size(), 1u);
  EXPECT_EQ(Notes()[0], "H21[1:2]: 40 of 100 points have wavelengths beyond 2 times the spacing");
  f.far = 21;
  Judge(f);
  ASSERT_EQ(Doubts().size(), 1u);
  EXPECT_EQ(
      Doubts()[0].find("H21[1:2]: 21 of 100 points have wavelengths beyond 3 times the spacing or 3 times"),
      0u);
}

TEST_F(RunDoubts, PairsThatDisagreeGiveOneLineWithTheWorst) {
  DoubtPairs({}, {3, 0, {"a", "b", 10.0, 200.0, 229.0, 0.14}});
  EXPECT_TRUE(Findings().empty());
  DoubtPairs({}, {3, 2, {"a", "c", 12.0, 170.0, 222.0, 0.265}});
  ASSERT_EQ(Doubts().size(), 1u);
  EXPECT_EQ(
      Doubts()[0].find("pairs disagree by up to 26 % at a wavelength of 12 m (a 170 m/s, c 222 m/s; 2 of 3 "
                       "couples beyond 15 %)"),
      0u)
      << Doubts()[0];
}

TEST_F(RunDoubts, ASoundInversionHasNone) {
  StoreProfile();
  Judge(Fits({3.0, 1.0}));
  EXPECT_TRUE(Findings().empty()) << Findings()[0].text;
  Judge(InversionHistory{});
  EXPECT_TRUE(Findings().empty());
}

TEST_F(RunDoubts, AMisfitThatRoseOrEndsHigh) {
  StoreProfile();
  Judge(Fits({3.0, 3.002}));
  EXPECT_TRUE(Doubts().empty()) << "a change in the last digits is no rise";
  for (int l = 0; l < 3; ++l) InvParam.resolution(3, l) = 0.5;
  Judge(Fits({3.0, 3.5, 2.0, 2.5}));
  ASSERT_EQ(Doubts().size(), 1u);
  EXPECT_EQ(
      Doubts()[0].find("the weighted misfit rose in iteration 1 from 3 to 3.5, in iteration 3 from 2 to 2.5"),
      0u)
      << Doubts()[0];
  Judge(Fits({9.0, 4.0}));
  EXPECT_TRUE(Doubts().empty());
  Judge(Fits({9.0, 4.1}));
  ASSERT_EQ(Doubts().size(), 1u);
  EXPECT_EQ(Doubts()[0].find("the weighted misfit ends at 4.1, above 4"), 0u);
}

TEST_F(RunDoubts, PointsThatLeftTheFit) {
  StoreProfile();
  Judge(Fits({3.0, 1.0}, 48));
  ASSERT_EQ(Doubts().size(), 1u);
  EXPECT_EQ(Doubts()[0].find("2 of 50 points left the fit"), 0u);
}

TEST_F(RunDoubts, LayersThatTheDataDoNotSee) {
  StoreProfile();
  InvParam.resolution(1, 1) = 0.30;
  Judge(Fits({3.0, 1.0}));
  EXPECT_TRUE(Doubts().empty());
  InvParam.resolution(1, 1) = 0.298;
  InvParam.resolution(1, 2) = 0.05;
  Judge(Fits({3.0, 1.0}));
  ASSERT_EQ(Doubts().size(), 1u);
  EXPECT_EQ(Doubts()[0].find("the resolution is below 0.3 in layer 2, 3 (0.29, 0.05)"), 0u) << Doubts()[0];
}

TEST_F(RunDoubts, AProfileDeeperThanHalfTheLongestWavelength) {
  StoreProfile();
  InvParam.H(1, 0) = 13.0;  // top of the half-space at 15 m, longest wavelength 30 m
  Judge(Fits({3.0, 1.0}));
  EXPECT_TRUE(Doubts().empty());
  InvParam.H(1, 0) = 13.1;
  Judge(Fits({3.0, 1.0}));
  ASSERT_EQ(Doubts().size(), 1u);
  EXPECT_EQ(Doubts()[0].find("the profile reaches 15.1 m, deeper than 0.5 of the longest wavelength of 30 m"),
            0u)
      << Doubts()[0];
}

TEST_F(RunDoubts, PointsThatTheSolverDoubts) {
  DoubtSweep();
  EXPECT_TRUE(Findings().empty());
  sweepState.noResult = {"3"};
  DoubtSweep();
  EXPECT_EQ(Doubts(), std::vector<std::string>{"in the last analysis: 1 point without a result: 3"});
}

TEST(DoubtLimits, StandInTheDocumentationWithTheSameNumbers) {
  std::ifstream file(SONDERA_SOURCE_DIR "/docs/inversion.md");
  std::stringstream all;
  all << file.rdbuf();
  const DoubtLimits& k = kDoubtLimits;
  const std::pair<const char*, std::string> rows[] = {
      {"energy of the impulse response that the filter window keeps",
       FormatText("below %.0f %%", 100.0 * k.windowShare)},
      {"lines used with a known coherence below",
       FormatText("%.2g on more than 1/%.0f of them", k.coherence, 1.0 / k.lowLines)},
      {"points with wavelengths beyond three spacings, or three distances from source to first receiver",
       FormatText("more than 1/%.0f", 1.0 / k.farPoints)},
      {"velocities of two pairs at one wavelength",
       FormatText("more than %.0f %% apart", 100.0 * k.disagreement)},
      {"weighted misfit", FormatText("above %.2g at the end", k.misfit)},
      {"resolution of a layer", FormatText("below %.2g", k.resolution)},
      {"top of the half-space", FormatText("deeper than %.2g of the longest wavelength", k.depthShare)},
      {"wavelengths beyond", FormatText("%.0f spacings", k.noteSpacings)},
  };
  for (const auto& [what, limit] : rows)
    EXPECT_NE(all.str().find(std::string("| ") + what + " | " + limit), std::string::npos)
        << what << " | " << limit;
  EXPECT_EQ(k.farSpacings, 3.0) << "in words above";
  EXPECT_EQ(k.farSourceDistances, 3.0) << "in words above";
}

}  // namespace
}  // namespace sondera
