// masking_fixture.h - a measurement with a pair on trace A, the mask buttons, and the list of masks in plain
// form.
#pragma once

#include <gmock/gmock.h>

#include <utility>
#include <vector>

#include "panels/sasw_mask_list.h"
#include "panels/sasw_masking.h"
#include "records/session.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/graphs.h"
#include "runtime/redraw.h"
#include "signal/masking.h"
#include "support/session_fixture.h"

namespace sondera::testing {

inline constexpr char kWarning[] = "Sondera - Warning";

struct PlainMask {
  int key, refChan, dspChan, jumpNo;
  double freqInit, freqFinal;
  bool operator==(const PlainMask&) const = default;
};

inline std::vector<PlainMask> MaskList() {
  std::vector<PlainMask> masks;
  for (const MaskingInfo& m : MeasDB.maskingList)
    masks.push_back({m.key, m.refChan, m.dspChan, m.jumpNo, m.freqInit, m.freqFinal});
  return masks;
}

inline void AddMask(int key, int refChan, int dspChan, double freqInit, double freqFinal, int jumpNo) {
  MaskingInfo* m = MeasDB.maskingList.append();
  m->key = key;
  m->refChan = refChan;
  m->dspChan = dspChan;
  m->freqInit = freqInit;
  m->freqFinal = freqFinal;
  m->jumpNo = jumpNo;
}

inline void SetFields(double freqInit, double freqFinal, int jumpNo) {
  SetCtrlVal(sasw::MASKING_FREQINIT, freqInit);
  SetCtrlVal(sasw::MASKING_FREQFINAL, freqFinal);
  SetCtrlVal(sasw::MASKING_JUMPNO, jumpNo);
}

inline std::vector<double> Fields() {
  return {GetCtrlVal(sasw::MASKING_FREQINIT), GetCtrlVal(sasw::MASKING_FREQFINAL),
          static_cast<double>(GetCtrlVal(sasw::MASKING_JUMPNO))};
}

/// Four channels, 512 lines, band end 500 Hz, the pair of channels 1 and 3 (0 and 2) on trace A.
class Masks : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    m = AddMeasurement({.nChannels = 4, .nLines = 512, .deltaT = 0.001});
    SelectPair(m, 0, 2);
    RedrawHandlers handlers;
    handlers.doPlotting = [this](int page) {
      redrawn.push_back(page);
      return 0;
    };
    InstallRedrawHandlers(std::move(handlers));
    InstallCallback(sasw::MASKINGNEW, MaskingNewCallback);
    InstallCallback(sasw::MASKINGUPDATE, MaskingUpdateCallback);
    InstallCallback(sasw::MASKINGDEL, MaskingDeleteCallback);
    InstallCallback(sasw::MASKINGRESET, MaskingResetCallback);
    InstallCallback(sasw::MASKINGSHOW, MaskingOnOffCallback);
    InstallCallback(sasw::MASKING_FREQINIT, MaskFreqInitCallback);
    InstallCallback(sasw::MASKING_FREQFINAL, MaskFreqFinalCallback);
    InstallCallback(sasw::MASKING_JUMPNO, MaskJumpNoCallback);
  }
  void TearDown() override {
    for (const Control* c : std::vector<const Control*>{
             &sasw::MASKINGNEW, &sasw::MASKINGUPDATE, &sasw::MASKINGDEL, &sasw::MASKINGRESET,
             &sasw::MASKINGSHOW, &sasw::MASKING_FREQINIT, &sasw::MASKING_FREQFINAL, &sasw::MASKING_JUMPNO})
      InstallCallback(*c, nullptr);
    SessionTest::TearDown();
  }

  void AddOwnMask(double freqInit, double freqFinal, int jumpNo) {
    AddMask(m.key, 0, 2, freqInit, freqFinal, jumpNo);
  }

  int Press(const ButtonControl& button, double freqInit, double freqFinal, int jumpNo) {
    SetFields(freqInit, freqFinal, jumpNo);
    return Commit(button);
  }

  /// The press is refused with this one warning; the list stays.
  void ExpectRefused(const ButtonControl& button, double freqInit, double freqFinal, int jumpNo,
                     const char* text) {
    const auto before = MaskList();
    frontEnd.messages.clear();
    frontEnd.messageTitles.clear();
    EXPECT_EQ(Press(button, freqInit, freqFinal, jumpNo), -1);
    EXPECT_THAT(frontEnd.messages, ::testing::ElementsAre(text));
    EXPECT_THAT(frontEnd.messageTitles, ::testing::ElementsAre(kWarning));
    EXPECT_EQ(MaskList(), before);
    EXPECT_THAT(redrawn, ::testing::IsEmpty());
  }

  /// Draws a straight curve of `slope` per Hz over frequencies x0, x0 + step, ...
  static void DrawCurve(const GraphControl& graph, double x0, double step, int n, double slope,
                        const char* legend) {
    std::vector<double> x, y;
    for (int i = 0; i < n; ++i) {
      x.push_back(x0 + i * step);
      y.push_back(slope * x.back());
    }
    PlotXY(graph, x, y, PlotStyle::Line, 0, 0, legend);
  }

  TestMeasurement m;
  std::vector<int> redrawn;
};

}  // namespace sondera::testing
