// The word waveform: settings, files, and measurements of computed records.
#include <cmath>

#include "app/waveform_fixture.h"
#include "forward/plane_wave_table.h"
#include "forward/waveform_text.h"
#include "project/waveform_files.h"
#include "records/measdb.h"
#include "records/session.h"
#include "signal/spectra.h"

namespace sondera {
namespace {

class ScriptWaveform : public testing::WaveformTest {
 protected:
  static constexpr const char* kRun = "waveform fc=60 span=500 points=256\n";

  MeasRecords Measurement(const std::string& id) {
    MeasRecords records;
    EXPECT_NE(GetInfoFromKey(GetKeyFromID(session.curProjID, id), records), -1) << id;
    return records;
  }
  std::vector<double> Coherence(const std::string& id, int n) {
    std::vector<double> re(static_cast<std::size_t>(2 * n)), im(re.size());
    EXPECT_EQ(CalcSpectralData(spectral::kCoherence, session.curProjID, id, 0, 2, re.data(), im.data()), 0);
    return re;
  }
};

TEST_F(ScriptWaveform, TakesItsSettingsInAnyOrderAndKeepsThem) {
  Ground();
  ASSERT_EQ(Run("waveform points=256 shape=1 motion=acceleration span=500 fc=60\n"), 0) << err;
  EXPECT_EQ(State().setup.pulse.shape, 1);
  EXPECT_EQ(State().setup.motion, WaveformMotion::kAcceleration);
  EXPECT_EQ(State().setup.pulse.nPoints, 256);
  ASSERT_EQ(Run("waveform motion=velocity\n"), 0) << err;
  EXPECT_EQ(State().setup.pulse.shape, 1) << "what is not given stays";
  EXPECT_EQ(State().setup.pulse.freqSpan, 500.0);
}

TEST_F(ScriptWaveform, FitTakesTheSiteAndAFileItsForce) {
  Ground();
  ASSERT_EQ(Run("waveform fit=yes\n"), 0) << err;
  const PlaneWaveTable table({{2.0, 150.0, 1.8, 0.25}, {0.0, 300.0, 1.8, 0.25}});
  EXPECT_NEAR(State().setup.pulse.centerFreq, table.VelocityAtWavelength(4.0) / 4.0, 0.01);
  Write("blow.tim", "0 0\n0.01 1\n0.02 0\n");
  ASSERT_EQ(Run("waveform file=blow.tim\n"), 0) << err;
  EXPECT_EQ(State().setup.pulse.shape, 0);
  EXPECT_EQ(State().setup.source.value, (std::vector<double>{0.0, 1.0, 0.0}));
}

TEST_F(ScriptWaveform, WhatCannotBeDoneStopsTheScriptWithItsReason) {
  EXPECT_EQ(Run("waveform save out\n"), 1);
  EXPECT_NE(err.find("waveform: There is no record yet. Press Run first."), std::string::npos) << err;
  Ground();
  EXPECT_EQ(Run("waveform fc=1280 span=51200 points=6\n"), 1);
  EXPECT_NE(err.find("can't hold the wave"), std::string::npos) << err;
  EXPECT_EQ(Run("waveform file=none.tim span=500 points=256\n"), 1);
  EXPECT_NE(err.find("none.tim"), std::string::npos) << err;
  EXPECT_EQ(Check("waveform shape=3\n"), 1);
  EXPECT_EQ(Check("waveform measurement\n"), 1);
  EXPECT_EQ(Run("receivers 1,2,3,4,5,6,7,8,9\nwaveform shape=2 fc=60 span=500 points=256\n"
                "waveform measurement many\n"),
            1);
  EXPECT_NE(err.find("A measurement takes up to 8 receivers, and the record has 9."), std::string::npos)
      << err;
}

TEST_F(ScriptWaveform, SavesItsPartsAndReplacesFilesOnlyWhenItIsTold) {
  Ground();
  ASSERT_EQ(Run(std::string(kRun) + "waveform save out\n"), 0) << err;
  EXPECT_EQ(Read("out_r3.tim"), TimText(State().result.record, 2));
  EXPECT_TRUE(Exists("out.pls") && Exists("out.spc"));
  EXPECT_EQ(Run("waveform save out\n"), 1);
  EXPECT_NE(err.find("files of \"out\" exist; overwrite=yes replaces them"), std::string::npos) << err;
  EXPECT_EQ(Run("waveform save out overwrite=yes parts=traces\nwaveform save other parts=spectra\n"), 0)
      << err;
  EXPECT_TRUE(Exists("other.spc") && !Exists("other.pls") && !Exists("other_r1.tim"));
}

TEST_F(ScriptWaveform, AMeasurementIsWhatTheImportMakesOfTheSavedFiles) {
  Ground();
  ASSERT_EQ(
      Run(std::string(kRun) + "waveform save out\nwaveform measurement made\n"
                              "read tim id=read files=out_r1.tim,out_r2.tim,out_r3.tim source=0 at=2,4,8\n"),
      0)
      << err;
  const MeasRecords made = Measurement("made"), read = Measurement("read");
  EXPECT_EQ(made.rawData->timeHist, read.rawData->timeHist);
  EXPECT_EQ(made.rawData->crossSpecRe, read.rawData->crossSpecRe);
  EXPECT_EQ(made.hwSetup->deltaT, read.hwSetup->deltaT);
  EXPECT_EQ(made.measSetup->recLoc, read.measSetup->recLoc);
  for (double c : Coherence("made", made.hwSetup->nLines)) EXPECT_TRUE(c == 0.0 || std::fabs(c - 1.0) < 1e-6);
}

TEST_F(ScriptWaveform, AMeasurementThatExistsIsReplacedOnlyWhenItIsTold) {
  Ground();
  ASSERT_EQ(Run(std::string(kRun) + "waveform measurement site\n"), 0) << err;
  EXPECT_EQ(Run("waveform measurement site blows=3\n"), 1);
  EXPECT_NE(err.find("the measurement \"site\" exists; overwrite=yes replaces it"), std::string::npos) << err;
  const auto before = Measurement("site").rawData->timeHist;
  ASSERT_NE(Run("waveform measurement site blows=3 noise=0.05 overwrite=yes masks=yes\n"), 1) << err;
  EXPECT_NE(Measurement("site").rawData->timeHist, before);
}

TEST_F(ScriptWaveform, NoiseOfSeveralBlowsLowersTheCoherenceAndEqualSeedsAreEqual) {
  Ground();
  ASSERT_NE(Run(std::string(kRun) +
                "waveform measurement a blows=5 noise=0.01 hum=0.01 seed=7\nwaveform measurement b\n"
                "waveform measurement c seed=8\nwaveform measurement one blows=1\n"),
            1)
      << err;
  const int n = Measurement("a").hwSetup->nLines;
  const std::vector<double> a = Coherence("a", n), one = Coherence("one", n);
  const auto line = [&](double f) {
    return static_cast<std::size_t>(f / Measurement("a").hwSetup->deltaF + 0.5);
  };
  EXPECT_GT(a[line(60)], 0.8);
  EXPECT_LT(a[line(60)], 0.999999);
  EXPECT_LT(a[line(400)], 0.9) << "no force there, only noise";
  EXPECT_NEAR(one[line(400)], 1.0, 1e-9) << "one blow always has 1";
  EXPECT_EQ(Measurement("a").rawData->crossSpecRe, Measurement("b").rawData->crossSpecRe);
  EXPECT_NE(Measurement("a").rawData->crossSpecRe, Measurement("c").rawData->crossSpecRe);
}

/// Masks outside the band pin the cycles: what the program unwraps behind the lower mask is the lag that the
/// lines have.
TEST_F(ScriptWaveform, MasksOfABandHaveTheCyclesThatPassedBelowIt) {
  Ground(kTwoLayers, "2,4,8,32");
  ASSERT_NE(Run("waveform fc=90 span=600 points=2048\nwaveform measurement far masks=yes\n"
                "pair far 3 4\nphase original\ndisperse\n"),
            1)
      << err;
  int masks = 0, cycles = -1;
  for (const MaskingInfo& m : MeasDB.maskingList) {
    ++masks;
    EXPECT_EQ(m.dspChan, m.refChan + 1);
    if (m.refChan == 2 && m.freqInit == 0.0) {
      cycles = m.jumpNo;
      EXPECT_DOUBLE_EQ(m.freqFinal, 18.0);
    } else if (m.freqInit > 0.0) {
      EXPECT_DOUBLE_EQ(m.freqInit, 360.0);
    }
  }
  EXPECT_EQ(masks, 6);
  EXPECT_GE(cycles, 1) << "24 m at 18 Hz and some 280 m/s";
  const PMeasInfo* pair = FindPair(GetKeyFromID(session.curProjID, "far"), 2, 3);
  ASSERT_TRUE(pair);
  const auto& u = State().result.lines.u;
  double lag = 0.0;
  for (std::size_t k = 1; k < 150; ++k) {
    const double shown = -std::arg(u[3][k] / u[2][k]) * 180.0 / M_PI;
    lag = shown + 360.0 * std::round((lag - shown) / 360.0);
    if (static_cast<double>(k) * State().result.lines.deltaF < 20.0) continue;
    ASSERT_NEAR(pair->phaseOrig[k], lag, 0.01) << k;
  }
}

TEST_F(ScriptWaveform, AHaltOfTheScriptKeepsTheRecordBefore) {
  Ground();
  ASSERT_EQ(Run(kRun), 0) << err;
  const auto trace = State().result.record.trace;
  EXPECT_EQ(Run("halt after=4\nwaveform fc=40\n"), 0) << err;
  EXPECT_EQ(State().result.record.trace, trace);
}

TEST_F(ScriptWaveform, ButtonsAndTheWordDoTheSame) {
  Ground();
  ASSERT_EQ(Run("set PULSE.SHAPE 1\nset PULSE.CFREQ 60\nset PULSE.FREQSPAN 500\nset PULSE.NPOINTS 256\n"
                "press PULSE.RUN\nset PULSE.MEASID by_hand\nanswer no\npress PULSE.TOMEAS\n"),
            0)
      << err;
  const auto byHand = Measurement("by_hand").rawData->timeHist;
  ASSERT_EQ(Run("waveform shape=1 fc=60 span=500 points=256\nwaveform measurement by_word\n"), 0) << err;
  EXPECT_EQ(Measurement("by_word").rawData->timeHist, byHand);
}

}  // namespace
}  // namespace sondera
