// Tests of the plan for a shot: places, side, channels, pairs, and remarks about the recorder.
#include "project/shot_plan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numeric>
#include <random>

#include "project/import_seg2.h"
#include "support/seg2_writer.h"

namespace sondera::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

/// Receivers at places on a line, all with the same harmless samples.
Shot LineShot(const std::vector<double>& receivers, double source) {
  Shot shot;
  shot.path = "shot";
  shot.lengthUnit = 1.0;
  shot.receiverKey = "RECEIVER_LOCATION";
  shot.sourceKey = "SOURCE_LOCATION";
  shot.unitKey = "UNITS";
  for (double x : receivers) {
    ShotTrace t;
    t.channel = static_cast<int>(shot.traces.size()) + 1;
    for (int i = 0; i < 64; ++i) t.samples.push_back(std::sin(0.37 * i + t.channel));
    t.interval = 0.001;
    t.intervalText = "0.001";
    t.firstTime = -0.01;
    t.receiver = {x};
    t.source = {source};
    shot.traces.push_back(std::move(t));
  }
  return shot;
}

std::vector<double> Steps(double first, double step, int count) {
  std::vector<double> x;
  for (int i = 0; i < count; ++i) x.push_back(first + i * step);
  return x;
}

ShotPlan Planned(const Shot& shot, ShotChoices choices = {}) {
  choices.measID = "m";
  ShotPlan plan;
  EXPECT_EQ(PlanShot(shot, choices, plan), "");
  return plan;
}
std::string Refused(const Shot& shot, ShotChoices choices = {}) {
  choices.measID = "m";
  ShotPlan plan;
  return PlanShot(shot, choices, plan);
}

std::vector<int> ChannelsOf(const ShotPlan& plan) {
  std::vector<int> channels;
  for (const ShotChannel* c : plan.planned()) channels.push_back(c->channel);
  return channels;
}
std::vector<std::string> IDsOf(const ShotPlan& plan) {
  std::vector<std::string> ids;
  for (const ShotPair& p : plan.pairs) ids.push_back(PairID("m", p));
  return ids;
}
std::vector<std::string> Doubts(const ShotPlan& plan) {
  std::vector<std::string> texts;
  for (const Finding& f : plan.findings)
    if (f.kind == FindingKind::Doubt) texts.push_back(f.text);
  return texts;
}
std::vector<std::string> Notes(const ShotPlan& plan) {
  std::vector<std::string> texts;
  for (const Finding& f : plan.findings)
    if (f.kind == FindingKind::Note) texts.push_back(f.text);
  return texts;
}
std::string AsideOf(const ShotPlan& plan, int channel) {
  for (const ShotChannel& c : plan.channels)
    if (c.channel == channel) return c.setAside;
  return "not listed";
}

// ---- channels and pairs ---------------------------------------------------------------------------------

TEST(ShotPlan, DistancesGrowByTheRootOfTwoAndPairsDouble) {
  const ShotPlan plan = Planned(LineShot(Steps(0, 2, 24), -10));
  EXPECT_THAT(ChannelsOf(plan), ElementsAre(1, 3, 6, 10, 16, 24));
  EXPECT_THAT(IDsOf(plan), ElementsAre("m_10_20", "m_14_28", "m_20_40", "m_28_56"));
  EXPECT_EQ(plan.source, -10.0);
  ASSERT_EQ(plan.pairs.size(), 4u);
  EXPECT_EQ(plan.pairs[1].near, 3);
  EXPECT_EQ(plan.pairs[1].far, 10);
  EXPECT_EQ(plan.pairs[1].spacing(), 14.0);
  EXPECT_EQ(plan.pairs[1].longestWavelength, 14.0 / 0.25);
  EXPECT_THAT(plan.findings, IsEmpty());
}

TEST(ShotPlan, SmallestDistanceWantedSetsTheFirstReceiver) {
  ShotChoices choices;
  choices.nearest = 15;
  const ShotPlan plan = Planned(LineShot(Steps(0, 2, 24), -10), choices);
  EXPECT_THAT(ChannelsOf(plan), ElementsAre(4, 7, 12, 19, 24));
  choices.nearest = 57;
  EXPECT_EQ(Refused(LineShot(Steps(0, 2, 24), -10), choices),
            "0 receivers can be used, and a pair takes two");
}

TEST(ShotPlan, TiesTakeTheSmallerDistance) {
  // 15 lies between 10 and 20 as far from 30 / 2; twice 10 lies as near to 18 as to 22.
  EXPECT_THAT(PlannedPairs({10, 18, 22}), ElementsAre(std::array<std::size_t, 2>{0, 1}));
  EXPECT_THAT(PlannedPairs({1, 1.5, 3.0}),
              ElementsAre(std::array<std::size_t, 2>{0, 1}, std::array<std::size_t, 2>{1, 2}));
}

TEST(ShotPlan, PairsOutsideHalfToTwiceTheNearDistanceAreNotPlanned) {
  EXPECT_THAT(PlannedPairs({10, 14.9}), IsEmpty());
  EXPECT_EQ(PlannedPairs({10, 15}).size(), 1u);
  EXPECT_EQ(PlannedPairs({10, 30}).size(), 1u);
  EXPECT_THAT(PlannedPairs({10, 30.1}), IsEmpty());
  EXPECT_EQ(Refused(LineShot({10, 11}, 0)),
            "no two receivers have a spacing of 0.5 to 2 times the near distance");
}

TEST(ShotPlan, RuleHoldsForAnyLine) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> step(0.2, 9.0);
  for (int round = 0; round < 300; ++round) {
    std::vector<double> d{step(random)};
    for (int i = 0; i < 30; ++i) d.push_back(d.back() + step(random));
    const double nearest = step(random);
    const auto positions = PlannedPositions(d, nearest);
    ASSERT_FALSE(positions.empty());
    EXPECT_GE(d[positions[0]], nearest);
    if (positions[0] > 0) {
      EXPECT_LT(d[positions[0] - 1], nearest);
    }
    // Each planned one is the nearest of all to a multiple, and each multiple inside has its nearest planned.
    std::vector<std::size_t> expected{positions[0]};
    for (int k = 1; k < 40; ++k) {
      const double wanted = d[positions[0]] * std::pow(std::sqrt(2.0), k);
      std::size_t best = positions[0];
      for (std::size_t i = positions[0]; i < d.size(); ++i)
        if (std::fabs(d[i] - wanted) < std::fabs(d[best] - wanted)) best = i;
      if (best != expected.back()) expected.push_back(best);
    }
    EXPECT_EQ(positions, expected);
  }
}

TEST(ShotPlan, ChosenChannelsAreTakenAsTheyAre) {
  ShotChoices choices;
  choices.channels = {24, 1, 3, 6, 11, 16};
  choices.pairs = false;
  const ShotPlan plan = Planned(LineShot(Steps(0, 2, 24), -10), choices);
  EXPECT_THAT(ChannelsOf(plan), ElementsAre(1, 3, 6, 11, 16, 24));
  EXPECT_THAT(plan.pairs, IsEmpty());
  choices.channels = {1, 25};
  EXPECT_EQ(Refused(LineShot(Steps(0, 2, 24), -10), choices), "there is no complete trace of channel 25");
  choices.channels = {1, 3, 1};
  EXPECT_EQ(Refused(LineShot(Steps(0, 2, 24), -10), choices), "channel 1 is named twice");
}

TEST(ShotPlan, TwoNamedChannelsAreAPairWhateverTheirSpacing) {
  ShotChoices choices;
  choices.channels = {1, 2};
  EXPECT_THAT(IDsOf(Planned(LineShot({10, 11, 40}, 0), choices)), ElementsAre("m_10_11"));
}

// ---- places ---------------------------------------------------------------------------------------------

TEST(ShotPlan, MissingLocationsAreAskedForAndNeverZero) {
  Shot shot = LineShot({10, 20}, 0);
  for (ShotTrace& t : shot.traces) t.receiver.clear();
  EXPECT_EQ(Refused(shot), "RECEIVER_LOCATION is missing; give the places of the receivers");
  shot = LineShot({0, 0}, 0);
  EXPECT_EQ(Refused(shot),
            "RECEIVER_LOCATION is the same for all channels; give the places of the receivers");
  shot = LineShot({10, 20}, 0);
  for (ShotTrace& t : shot.traces) t.source.clear();
  EXPECT_EQ(Refused(shot), "SOURCE_LOCATION is missing; give the place of the source");
  shot = LineShot({10, 20}, 0);
  shot.traces[1].source = {3.0};
  EXPECT_EQ(Refused(shot), "channels 1 and 2 name different sources; give the place of the source");
  shot = LineShot({10, 20}, 0);
  shot.lengthUnit = 0.0;
  EXPECT_EQ(Refused(shot), "UNITS is missing; say in which unit of length the locations are");
}

TEST(ShotPlan, GivenPlacesStandForMissingOnes) {
  Shot shot = LineShot({0, 0, 0}, 0);
  ShotChoices choices;
  choices.at = {5, 10, 20};
  EXPECT_EQ(Refused(shot, choices), "the places of the receivers are given, and that of the source is not");
  choices.source = 0.0;
  EXPECT_THAT(IDsOf(Planned(shot, choices)), ElementsAre("m_5_10", "m_10_20"));
  choices.channels = {1, 3};
  EXPECT_EQ(Refused(shot, choices), "3 places are given for 2 channels");
  choices.at = {7, 14};
  EXPECT_THAT(IDsOf(Planned(shot, choices)), ElementsAre("m_7_14"));
  shot.lengthUnit = 0.0;
  EXPECT_EQ(Refused(shot, choices), "UNITS is missing; say in which unit of length the locations are");
  choices.placesUnit = 0.3048;
  EXPECT_EQ(Planned(shot, choices).lengthUnit, 0.3048);
}

TEST(ShotPlan, GivenSourceReplacesThatOfTheFile) {
  ShotChoices choices;
  choices.source = -5.0;
  EXPECT_THAT(IDsOf(Planned(LineShot({0, 5}, 99), choices)), ElementsAre("m_5_10"));
}

TEST(ShotPlan, CoordinatesThatDifferInOneDirectionArePlaces) {
  Shot shot = LineShot({0, 5, 15}, -5);
  for (ShotTrace& t : shot.traces) {
    t.receiver = {7.0, t.receiver[0], 1.5};
    t.source = {7.0, t.source[0], 1.5};
  }
  const ShotPlan plan = Planned(shot);
  EXPECT_THAT(IDsOf(plan), ElementsAre("m_5_10", "m_10_20"));
  EXPECT_EQ(plan.source, -5.0);
  EXPECT_THAT(plan.findings, IsEmpty());
}

TEST(ShotPlan, CoordinatesInSpaceAreDistancesAlongTheLine) {
  Shot shot = LineShot({0, 5, 15}, -5);
  const auto inSpace = [](double s) {
    return std::vector<double>{100 + s * 0.6, 200 - s * 0.64, 30 + s * 0.48};
  };
  for (ShotTrace& t : shot.traces) {
    t.receiver = inSpace(t.receiver[0]);
    t.source = inSpace(t.source[0]);
  }
  ShotPlan plan = Planned(shot);
  EXPECT_THAT(IDsOf(plan), ElementsAre("m_5_10", "m_10_20"));
  EXPECT_NEAR(plan.source, -5.0, 1e-12);
  EXPECT_THAT(Doubts(plan), IsEmpty());
  EXPECT_EQ(plan.findings.size(), 1u);
  for (ShotTrace& t : shot.traces) t.source[0] += 3.0;
  EXPECT_THAT(Doubts(Planned(shot)), ElementsAre(HasSubstr("beside their line")));
}

TEST(Seg2Trap, SourceInsideTheSpreadOffersTwoSides) {
  const Shot shot = LineShot({0, 5, 10, 14, 18, 30}, 12);
  EXPECT_EQ(Refused(shot),
            "Invalid source or receiver location ! The source at 12 has 3 receivers on its left and 3 on its "
            "right; choose a side.");
  ShotChoices choices;
  choices.pairs = false;
  choices.side = ShotSide::Left;
  EXPECT_THAT(ChannelsOf(Planned(shot, choices)), ElementsAre(3, 2, 1));
  choices.side = ShotSide::Right;
  EXPECT_THAT(ChannelsOf(Planned(shot, choices)), ElementsAre(4, 5, 6));
}

TEST(Seg2Trap, ReversedSpreadsAndPlacesThatDoNotGrowAreOrderedByDistance) {
  const ShotPlan plan = Planned(LineShot({40, 10, 30, 20}, 50));
  EXPECT_THAT(ChannelsOf(plan), ElementsAre(1, 3, 4, 2));
  EXPECT_THAT(IDsOf(plan), ElementsAre("m_10_20", "m_20_40"));
}

TEST(Seg2Trap, TwoReceiversAtOnePlace) {
  ShotPlan plan = Planned(LineShot({10, 10, 20}, 0));
  EXPECT_THAT(IDsOf(plan), ElementsAre("m_10_20"));
  EXPECT_EQ(AsideOf(plan, 2), "is at the same place as channel 1");
  EXPECT_THAT(Notes(plan), ElementsAre("channels 1 and 2 are at the same place, 10; the first is taken"));
  ShotChoices choices;
  choices.channels = {1, 2};
  EXPECT_EQ(Refused(LineShot({10, 10, 20}, 0), choices),
            "Invalid source or receiver location ! channels 1 and 2 are at the same place, 10");
}

TEST(ShotPlan, ReceiverAtTheSourceIsOfNoUse) {
  const ShotPlan plan = Planned(LineShot({0, 10, 20}, 0));
  EXPECT_THAT(ChannelsOf(plan), ElementsAre(2, 3));
  EXPECT_EQ(AsideOf(plan, 1), "is at the source");
  ShotChoices choices;
  choices.channels = {1, 2};
  EXPECT_EQ(Refused(LineShot({0, 10, 20}, 0), choices),
            "Invalid source or receiver location ! Channel 1 is at the source.");
}

TEST(ShotPlan, ChannelWithoutALocationIsSetAsideWhereOthersHaveOne) {
  Shot shot = LineShot({10, 20, 0}, 0);
  shot.traces[2].receiver.clear();
  EXPECT_EQ(AsideOf(Planned(shot), 3), "RECEIVER_LOCATION is missing");
  ShotChoices choices;
  choices.channels = {1, 3};
  EXPECT_EQ(Refused(shot, choices), "channel 3: RECEIVER_LOCATION is missing");
}

// ---- samples and recorder -------------------------------------------------------------------------------

TEST(Seg2Trap, ChannelsOfDifferentLengthTakeTheShortest) {
  Shot shot = LineShot({10, 20, 40}, 0);
  shot.traces[1].samples.resize(50);
  const ShotPlan plan = Planned(shot);
  EXPECT_EQ(plan.samples, 50);
  EXPECT_THAT(Doubts(plan), ElementsAre("shot: the channels have 50 to 64 samples; 50 of each are taken"));
}

TEST(ShotPlan, UnequalSamplingIsRefusedByChannel) {
  Shot shot = LineShot({10, 20, 40}, 0);
  shot.traces[1].interval = 0.002;
  EXPECT_EQ(Refused(shot), "channel 2 is sampled every 0.002 s, and channel 1 every 0.001 s");
  shot = LineShot({10, 20, 40}, 0);
  shot.traces[2].firstTime = -0.02;
  EXPECT_EQ(Refused(shot), "channel 3 begins at -0.02 s, and channel 1 at -0.01 s");
}

TEST(Seg2Trap, DeadAndClippedChannelsAreShownAndNotPlanned) {
  test::Seg2Line line;
  line.receivers = {10, 20, 40, 80};
  line.value = [](std::size_t r, double t) {
    const double x = std::sin(100.0 * t);
    return r == 1 ? 0.0 : r == 3 ? std::min(x, 0.7) : x;
  };
  Shot shot;
  ASSERT_EQ(ShotOfSeg2("shot", test::Seg2Bytes(test::Seg2OfLine(line)), shot), "");
  ShotChoices choices;
  choices.nearest = 5;
  choices.pairs = false;
  const ShotPlan plan = Planned(shot, choices);
  EXPECT_THAT(ChannelsOf(plan), ElementsAre(1, 3));
  EXPECT_EQ(AsideOf(plan, 2), "is dead: all samples are 0");
  EXPECT_THAT(AsideOf(plan, 4), HasSubstr("is clipped"));
  choices.channels = {1, 4};
  EXPECT_THAT(Doubts(Planned(shot, choices)), ElementsAre(HasSubstr("shot: channel 4 is clipped")));
}

TEST(ShotPlan, NumbersThatAreNotFiniteAreNeverTaken) {
  Shot shot = LineShot({10, 20, 40}, 0);
  shot.traces[1].samples[5] = std::numeric_limits<double>::quiet_NaN();
  shot.traces[1].setAside = SampleFault(shot.traces[1].samples);
  ShotChoices choices;
  choices.pairs = false;
  EXPECT_THAT(ChannelsOf(Planned(shot, choices)), ElementsAre(1, 3));
  choices.channels = {1, 2};
  EXPECT_EQ(Refused(shot, choices), "channel 2: holds a value that is not a finite number");
}

TEST(ShotPlan, OtherTraceTypesAreShownAndNotPlanned) {
  test::Seg2Line line;
  line.receivers = {10, 20, 40};
  line.value = [](std::size_t r, double t) { return std::sin(100.0 * t + static_cast<double>(r)); };
  test::Seg2Spec spec = test::Seg2OfLine(line);
  spec.traces[1].strings.push_back("TRACE_TYPE TEST_DATA");
  spec.traces[2].strings.push_back("TRACE_TYPE seismic_data");
  Shot shot;
  ASSERT_EQ(ShotOfSeg2("shot", test::Seg2Bytes(spec), shot), "");
  ShotChoices choices;
  choices.pairs = false;
  const ShotPlan plan = Planned(shot, choices);
  EXPECT_THAT(ChannelsOf(plan), ElementsAre(1, 3));
  EXPECT_EQ(AsideOf(plan, 2), "is of the type TEST_DATA");
}

TEST(ShotPlan, WhatTheRecorderDidToTheChannelsIsSaid) {
  Shot shot = LineShot({10, 20}, 0);
  shot.traces[0].filters = {"416.66 0", "0 0", "", ""};
  shot.traces[1].filters = {"416.66 0", "4 12", "", ""};
  const ShotPlan plan = Planned(shot);
  EXPECT_THAT(Doubts(plan), ElementsAre(HasSubstr("channels 1 and 2 differ in LOW_CUT_FILTER (0 0, 4 12)")));
  EXPECT_THAT(
      Notes(plan),
      ElementsAre("ALIAS_FILTER ends the band of the recorder at 416.66 Hz; the spectra reach to 500 Hz"));
}

TEST(ShotPlan, UnequalSkewIsSaid) {
  Shot shot = LineShot({10, 20}, 0);
  shot.traces[0].skew = shot.traces[1].skew = -0.0006;
  EXPECT_THAT(Planned(shot).findings, IsEmpty());
  shot.traces[1].skew = -0.0004;
  EXPECT_THAT(Doubts(Planned(shot)),
              ElementsAre(HasSubstr("up to 0.0002 s apart (SKEW), which turns the phase of "
                                    "a pair by up to 0.072 degrees per Hz")));
  ShotChoices choices;
  choices.correctSkew = true;
  EXPECT_THAT(Doubts(Planned(shot, choices)), IsEmpty());
}

TEST(ShotPlan, IntervalThatMayStandForAWholeRateOffersIt) {
  EXPECT_EQ(WholeRateOf("0.000020833", 0.000020833), 48000);
  EXPECT_EQ(WholeRateOf("0.000333", 0.000333), 3000);
  EXPECT_EQ(WholeRateOf("2.0833E-005", 2.0833e-5), 48000);
  EXPECT_EQ(WholeRateOf("0,00781", 0.00781), 128);
  EXPECT_EQ(WholeRateOf("0.001", 0.001), 0) << "whole already";
  EXPECT_EQ(WholeRateOf("0.000125", 0.000125), 0);
  EXPECT_EQ(WholeRateOf("0.0000208330000", 0.000020833), 0) << "written as meant";
  EXPECT_EQ(WholeRateOf("0.003", 0.003), 0) << "no round rate is near";
  EXPECT_EQ(WholeRateOf("3", 3.0), 0);
  Shot shot = LineShot({10, 20}, 0);
  for (ShotTrace& t : shot.traces) {
    t.interval = 0.000020833;
    t.intervalText = "0.000020833";
  }
  EXPECT_THAT(Notes(Planned(shot)), ElementsAre(HasSubstr("it may stand for 48000 Hz")));
  EXPECT_EQ(Planned(shot).interval, 0.000020833);
  ShotChoices choices;
  choices.wholeRate = true;
  EXPECT_EQ(Planned(shot, choices).interval, 1.0 / 48000);
}

TEST(ShotPlan, OneChannelMakesNoPair) {
  EXPECT_EQ(Refused(LineShot({10}, 0)), "the file has one complete channel, and a pair takes two");
  ShotChoices left;
  left.side = ShotSide::Left;
  EXPECT_EQ(Refused(LineShot({10, 20}, 0), left), "0 receivers can be used, and a pair takes two");
}

TEST(ShotOfSeg2, TellsWhatTheRecorderLeftOut) {
  test::Seg2Spec spec;
  test::Seg2TraceSpec trace;
  trace.samples = {1, 2, 1, 3};
  trace.strings = {"SAMPLE_INTERVAL 0.001"};
  spec.traces.assign(3, trace);
  spec.traces[1].strings.push_back("DELAY -0.1");
  spec.traces[1].strings.push_back("DESCALING_FACTOR 0.5");
  spec.traces[1].strings.push_back("STACK 8");
  Shot shot;
  ASSERT_EQ(ShotOfSeg2("shot", test::Seg2Bytes(spec), shot), "");
  std::vector<std::string> texts;
  for (const Finding& f : shot.findings) texts.push_back(f.text);
  EXPECT_THAT(
      texts,
      ElementsAre("DELAY is missing for channels 1, 3; the record counts as beginning with the shot",
                  "DESCALING_FACTOR is missing for channels 1, 3; the samples stay counts and are "
                  "no volts",
                  "volts are count x DESCALING_FACTOR / STACK / 1000, from channel 2 on with STACK 8"));
  EXPECT_EQ(shot.traces[1].scale, 0.5 / 8 / 1000);
  EXPECT_EQ(shot.traces[0].scale, 1.0);
  EXPECT_EQ(shot.lengthUnit, 0.0);
}

TEST(ShotOfSeg2, UnitsAreMetresFeetInchesAndCentimetres) {
  EXPECT_EQ(LengthUnitOf("METERS"), 1.0);
  EXPECT_EQ(LengthUnitOf("feet"), 0.3048);
  EXPECT_EQ(LengthUnitOf("INCHES"), 0.0254);
  EXPECT_EQ(LengthUnitOf("CENTIMETERS"), 0.01);
  EXPECT_EQ(LengthUnitOf("FURLONGS"), 0.0);
}

}  // namespace
}  // namespace sondera::testing
