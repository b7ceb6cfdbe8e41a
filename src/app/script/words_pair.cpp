// words_pair.cpp - the words about one receiver pair: pair, window, mask, phase, disperse, include, exclude,
// gabor.
#include <algorithm>
#include <array>
#include <cmath>

#include "app/script/control_values.h"
#include "app/script/fault.h"
#include "app/script/names.h"
#include "app/script/pairs.h"
#include "app/script/run.h"
#include "app/script/values.h"
#include "panels/sasw_masking.h"
#include "panels/trace_selection.h"
#include "records/curve_labels.h"
#include "records/session.h"
#include "runtime/catalogue/dispcurv.h"
#include "runtime/catalogue/gaborpnl.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/irfsetpnl.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/meassetup.h"
#include "runtime/catalogue/sasw.h"
#include "signal/irf.h"

namespace sondera::script {
namespace {

constexpr int kTraceB = 1;

// ---- pair -----------------------------------------------------------------------------------------------

/// Rings of one trace of the masking page.
struct TraceRings {
  const RingControl &id, &ref, &channel, &type;
};
constexpr TraceRings kTraces[] = {{sasw::DISPAID, sasw::DISPA_REFCHNL, sasw::DISPACHNL, sasw::DISPATYPE},
                                  {sasw::DISPBID, sasw::DISPB_REFCHNL, sasw::DISPBCHNL, sasw::DISPBTYPE}};

void Pair(Run& run, const Arguments& a) {
  const NamedPair pair = NamedPairOf(a);
  const int trace = a.has("trace") ? a.choice("trace") : 0;
  const TraceRings& rings = kTraces[trace];
  if (session.curMeasID != pair.id || GetLabelFromIndex(rings.id, GetCtrlIndex(rings.id)) != pair.id)
    run.choose(hmsetup::MEASIDLISTBOX, pair.id);  // also fills the rings with its channels
  SelectItem(rings.id, pair.id);
  WriteValue(rings.ref, std::to_string(pair.ref));
  WriteValue(rings.channel, std::to_string(pair.channel));
  if (a.has("display")) WriteValue(rings.type, a.text("display"));
  if (GetCtrlVal(sasw::TRACE_ONOFF) != trace) run.enter(sasw::TRACE_ONOFF, std::to_string(trace));
  run.press(a.has("display") ? rings.type : rings.channel);
}

// ---- window ---------------------------------------------------------------------------------------------

constexpr std::size_t kFour = 4;
using Fields = std::array<const NumericControl*, kFour>;
constexpr Fields kTimes = {&irfsetpnl::SMIRF_T1, &irfsetpnl::SMIRF_T2, &irfsetpnl::SMIRF_T3,
                           &irfsetpnl::SMIRF_T4};
constexpr Fields kEnhanced = {&irfsetpnl::SMIRF_V1, &irfsetpnl::SMIRF_V2, &irfsetpnl::SMIRF_V3,
                              &irfsetpnl::SMIRF_V4};
constexpr Fields kBackbone = {&irfsetpnl::BBIRF_V1, &irfsetpnl::BBIRF_V2, &irfsetpnl::BBIRF_V3,
                              &irfsetpnl::BBIRF_V4};
constexpr double kNoDelay = 1e30;  // velocity of a window that begins at once

void Fill(const Fields& fields, const std::vector<double>& values) {
  for (std::size_t k = 0; k < kFour; ++k) SetCtrlVal(*fields[k], values[k]);
}

void CheckTimes(const Arguments& a) {
  const std::vector<double>& t = a.numbers("times");
  if (t.front() < 0.0 || !std::is_sorted(t.begin(), t.end()))
    throw Fault("times= have to rise from 0 or more");
}
void CheckVelocities(const Arguments& a) {
  const std::vector<double>& v = a.numbers("velocities");
  if (!(v.back() > 0.0) || !std::is_sorted(v.rbegin(), v.rend()))
    throw Fault("velocities= have to fall, all above 0");
}

/// Opens the dialog of the filter for the pair on trace A.
IrfGeometry OpenFilter(Run& run, const Arguments& a) {
  if (GetCtrlVal(sasw::TRACE_ONOFF) == kTraceB) run.enter(sasw::TRACE_ONOFF, "0");
  IrfGeometry geometry;
  if (!GetIrfGeometry(FindCurrentPair(Panel::SASW), geometry)) throw Fault("there is no pair on trace A");
  run.press(sasw::MASKINGLIST);
  run.enter(irfsetpnl::IRFMODE, std::to_string(a.choice("MODE")));
  return geometry;
}

/// The enhanced window is set by times directly, the backbone window by the corresponding velocities.
void WindowByTimes(Run& run, const Arguments& a) {
  const IrfGeometry geometry = OpenFilter(run, a);
  std::vector<double> times = a.numbers("times");
  if (times.back() > geometry.total)
    throw Fault("times=: the record is " + TextOf(geometry.total) + " s long");
  if (a.choice("MODE") == kLowPass) {  // symmetric on the circular record
    times[2] = geometry.total - times[1];
    times[3] = geometry.total - times[0];
  }
  if (a.choice("WINDOW") == 0) {
    Fill(kTimes, times);
    run.press(irfsetpnl::APPLY);
  } else {
    for (double& t : times) t = t > 0.0 ? std::fabs(geometry.spacing) / t : kNoDelay;
    Fill(kBackbone, times);
    run.press(irfsetpnl::OK);
  }
  run.press(irfsetpnl::CANCEL);
}

void WindowByVelocities(Run& run, const Arguments& a) {
  OpenFilter(run, a);
  Fill(a.choice("WINDOW") == 0 ? kEnhanced : kBackbone, a.numbers("velocities"));
  run.press(irfsetpnl::OK);
  run.press(irfsetpnl::CANCEL);
}

// ---- mask -----------------------------------------------------------------------------------------------

/// Masks belong to the pair on trace A.
void UseTraceA(Run& run) {
  if (GetCtrlVal(sasw::TRACE_ONOFF) == kTraceB) run.enter(sasw::TRACE_ONOFF, "0");
}

void CheckRange(const Arguments& a) {
  if (a.number("FROM") < 0.0 || !(a.number("TO") > a.number("FROM")))
    throw Fault("a mask reaches from 0 Hz or more to a higher frequency");
  if (a.whole("jumps", 0) < 0) throw Fault("jumps= cannot be below 0");
}

void EnterRange(Run& run, const Arguments& a) {
  run.enter(sasw::MASKING_FREQINIT, TextOf(a.number("FROM")));
  run.enter(sasw::MASKING_FREQFINAL, TextOf(a.number("TO")));
  run.enter(sasw::MASKING_JUMPNO, TextOf(a.whole("jumps", 0)));
}

void PickMask(Run& run, double frequency) {
  UseTraceA(run);
  if (PickMaskOnGraph(frequency) != 0) throw Fault("the pair has no mask at " + TextOf(frequency) + " Hz");
  run.settle();
}

void MaskNew(Run& run, const Arguments& a) {
  UseTraceA(run);
  EnterRange(run, a);
  run.press(sasw::MASKINGNEW);
}

void MaskDelete(Run& run, const Arguments& a) {
  PickMask(run, a.number("HZ"));
  run.press(sasw::MASKINGDEL);
}

void MaskUpdate(Run& run, const Arguments& a) {
  PickMask(run, a.number("HZ"));
  EnterRange(run, a);
  run.press(sasw::MASKINGUPDATE);
}

bool HasMasks(const CurrentPair& pair) {
  for (const MaskingInfo& mask : MeasDB.maskingList)
    if (mask.key == pair.key && mask.refChan == pair.refChan && mask.dspChan == pair.dspChan) return true;
  return false;
}

void MaskClear(Run& run, const Arguments&) {
  UseTraceA(run);
  run.press(sasw::MASKINGRESET);
  if (HasMasks(FindCurrentPair(Panel::SASW))) throw Fault("the masks of the pair are still there");
}

void MaskAuto(Run& run, const Arguments&) {
  UseTraceA(run);
  run.dialogs().sayYes();  // how often it asks to extend its map depends on the data
  run.press(sasw::MASKINGAUTO);
}

// ---- curves of the pair -----------------------------------------------------------------------------------

void Phase(Run& run, const Arguments& a) {
  UseTraceA(run);
  run.enter(sasw::DISPCURV_OPTION, std::to_string(a.choice("WHICH")));
}

void CheckAlpha(const Arguments& a) {
  if (a.number("alpha", 0.0) < 0.0) throw Fault("alpha= cannot be below 0");
}

void Disperse(Run& run, const Arguments& a) {
  if (a.has("alpha")) run.enter(meassetup::HYX_WLENFILTER, TextOf(a.number("alpha")));
  run.press(sasw::MASKINGCALCDISP);
}

/// Item of a pair in one of the lists of the dispersion page, -1 without one.
int ItemOfPair(const ListControl& list, const PMeasInfo& pair) {
  for (int i = 0; i < GetNumListItems(list); ++i)
    if (PairOfLabel(GetLabelFromIndex(list, i)) == &pair) return i;
  return -1;
}

/// Moves a pair between the lists; does nothing when it is there already.
void MovePair(Run& run, const Arguments& a, const ListControl& from, const ListControl& to,
              const ButtonControl& button) {
  const PMeasInfo& pair = PairOfArguments(a);
  if (ItemOfPair(from, pair) < 0 && ItemOfPair(to, pair) < 0) run.press(dispcurv::REDRAW);  // fills the lists
  if (ItemOfPair(to, pair) >= 0) return;
  const int item = ItemOfPair(from, pair);
  if (item < 0) throw Fault("the pair has no dispersion curve");
  SetCtrlIndex(from, item);
  run.press(button);
}

void Include(Run& run, const Arguments& a) {
  MovePair(run, a, dispcurv::LIST_EXCLUDED, dispcurv::LIST_INCLUDED, dispcurv::INCLUDE);
}
void Exclude(Run& run, const Arguments& a) {
  MovePair(run, a, dispcurv::LIST_INCLUDED, dispcurv::LIST_EXCLUDED, dispcurv::EXCLUDE);
}

void Gabor(Run& run, const Arguments& a) {
  run.press(mainmenu::GABOR_SETUP);
  for (const auto& [control, value] : a.settings()) run.enter(*control, value);
  run.press(gaborpnl::CALC);
  run.press(gaborpnl::CLOSE);
}

}  // namespace

std::vector<WordForm> PairForms() {
  const ArgumentSpec id = Fixed("ID", Kind::Text), ref = Fixed("REF", Kind::Whole),
                     channel = Fixed("CHANNEL", Kind::Whole);
  const ArgumentSpec which = Fixed("WINDOW", Kind::Choice, "enhanced|backbone"),
                     mode = Fixed("MODE", Kind::Choice, "bandpass|lowpass");
  const ArgumentSpec from = Fixed("FROM", Kind::Number), to = Fixed("TO", Kind::Number),
                     hz = Fixed("HZ", Kind::Number), jumps = Optional(Named("jumps", Kind::Whole));
  std::vector<ArgumentSpec> gabor;
  AddSettingsOf(Panel::GABORPNL, gabor);
  return {
      {"pair",
       {id, ref, channel},
       {Optional(Named("trace", Kind::Choice, "A|B")), Optional(Named("display", Kind::Text, "TYPE"))},
       "Puts a pair on a trace of the masking page, on A by default; the words for masks, windows and curves "
       "work on it. TYPE is the number of a display or its caption.",
       Pair,
       CheckChannels},
      {"window",
       {which, mode},
       {List("times", Kind::Numbers, "T1,T2,T3,T4", kFour)},
       "One window of the filter by times in seconds. Of a low-pass window the last two follow from the "
       "first.",
       WindowByTimes,
       CheckTimes},
      {"window",
       {which, mode},
       {List("velocities", Kind::Numbers, "V1,V2,V3,V4", kFour)},
       "The same by pseudo velocities: spacing over delay, in length units per second.",
       WindowByVelocities,
       CheckVelocities},
      {"mask",
       {from, to},
       {jumps},
       "A new mask of the pair on trace A, in Hz, with the number of full cycles at its end (default 0).",
       MaskNew,
       CheckRange},
      {"mask", {Literal("delete"), hz}, {}, "Removes the mask at a frequency.", MaskDelete},
      {"mask",
       {Literal("update"), hz, from, to},
       {jumps},
       "Changes the range and the cycles of the mask at a frequency.",
       MaskUpdate,
       CheckRange},
      {"mask", {Literal("clear")}, {}, "Removes all masks of the pair.", MaskClear},
      {"mask",
       {Literal("auto")},
       {},
       "Masks the frequencies at which the Gabor map shows no wave; if it helps, the map is calculated again "
       "over a better range.",
       MaskAuto},
      {"phase",
       {Fixed("WHICH", Kind::Choice, "original|enhanced|backbone")},
       {},
       "The phase from which the curve of the pair is computed.",
       Phase},
      {"disperse",
       {},
       {Optional(Named("alpha", Kind::Number, "A"))},
       "Computes the dispersion curve of the pair; alpha= is the wavelength criterion, source distance over "
       "wavelength.",
       Disperse,
       CheckAlpha},
      {"include",
       {id, ref, channel},
       {},
       "Includes the curve of a pair in the representative curves.",
       Include,
       CheckChannels},
      {"exclude", {id, ref, channel}, {}, "Leaves it out.", Exclude, CheckChannels},
      {"gabor", {}, gabor, "Computes the Gabor map of the pair on display.", Gabor},
  };
}

}  // namespace sondera::script
