// sasw_mask_list.cpp - see sasw_mask_list.h. Owns no state; the masks are in MeasDB, the picked one in the session.
// Odd on purpose: the update that accepts faults, the reset that returns 1.
#include "panels/sasw_mask_list.h"

#include <optional>
#include <string_view>

#include "panels/trace_selection.h"
#include "records/kinds.h"
#include "records/session.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/dialogs.h"
#include "runtime/graphs.h"
#include "signal/masking.h"

namespace sondera {
namespace {

constexpr std::string_view kWarningTitle = "Sondera - Warning";

void Warn(std::string_view text) {
  MessagePopup(kWarningTitle, text);
}

/// Shows the reason of a refusal, if it has one. 0 for success, else 1.
int ShowWarning(const Refusal& refusal) {
  if (refusal && !refusal.reason().empty()) Warn(refusal.reason());
  return refusal ? 1 : 0;
}

std::optional<double> UpperFrequency(const CurrentPair& current) {
  const auto shown = static_cast<DisplayType>(GetCtrlVal(sasw::DISPATYPE));
  if (!IsOverTime(shown)) {
    if (const auto limit = UpperXLimit(sasw::DISPLAY_A)) return limit;
  }
  if (current.key == -1 || current.records.hwPos < 0) return std::nullopt;
  return BandEnd(*current.records.hwSetup);
}

int CheckPickedMask() {
  const PickedMask& picked = session.selMask;
  return CheckMaskingData(picked.refChan, picked.dspChan, picked.jumpNo, picked.freqInit, picked.freqFinal);
}

}  // namespace

double CutFinalFrequency(const CurrentPair& current, double freqFinal) {
  const auto limit = UpperFrequency(current);
  if (!limit || !(freqFinal > *limit)) return freqFinal;
  SetCtrlVal(sasw::MASKING_FREQFINAL, *limit);
  return *limit;
}

int CheckMaskingData(int refChan, int dspChan, int jumpNo, double freqInit, double freqFinal) {
  const CurrentPair current = FindCurrentPair(Panel::SASW);
  freqFinal = CutFinalFrequency(current, freqFinal);
  return CheckMaskingData({current.key, refChan, dspChan, freqInit, freqFinal, jumpNo});
}

int NewMask(int refChan, int dspChan, int jumpNo, double freqInit, double freqFinal) {
  const CurrentPair current = FindCurrentPair(Panel::SASW);
  if (current.key == -1 || current.records.hwPos < 0) return 1;
  freqFinal = CutFinalFrequency(current, freqFinal);
  return ShowWarning(
      NewMask({current.key, refChan, dspChan, freqInit, freqFinal, jumpNo}, current.records.hwSetup->deltaF));
}

int CheckCurMaskingState() {
  const double freqInit = GetCtrlVal(sasw::MASKING_FREQINIT);
  const double freqFinal = GetCtrlVal(sasw::MASKING_FREQFINAL);
  if (!(freqInit >= 0.0) || !(freqFinal > freqInit)) {
    Warn("Please set both markers properly.");
    return 1;
  }
  // Kept: the warning does not stop the update.
  if (GetCtrlVal(sasw::MASKING_JUMPNO) < 0) Warn("Please enter No. of jumps properly.");
  return 0;
}

int UpdateMask() {
  const CurrentPair current = FindCurrentPair(Panel::SASW);
  MaskRequest fields{current.key, current.refChan, current.dspChan};
  fields.freqInit = GetCtrlVal(sasw::MASKING_FREQINIT);
  fields.freqFinal = CutFinalFrequency(current, GetCtrlVal(sasw::MASKING_FREQFINAL));
  fields.jumpNo = GetCtrlVal(sasw::MASKING_JUMPNO);
  if (MeasDB.maskingList.empty()) return 1;
  return ShowWarning(UpdateMask(current, CheckPickedMask(), fields));
}

int DeleteMask() {
  if (MeasDB.maskingList.empty()) return 1;
  return ShowWarning(DeleteMask(FindCurrentPair(Panel::SASW), CheckPickedMask()));
}

int DeleteAllMaskInChannelCombination() {
  if (!MeasDB.maskingList.empty())
    ShowWarning(DeleteAllMaskInChannelCombination(FindCurrentPair(Panel::SASW), CheckPickedMask()));
  return 1;
}

int DeleteAllMask() {
  return MeasDB.maskingList.empty() ? 1 : ShowWarning(DeleteAllMask(CheckPickedMask()));
}

int PickUpMasking(double freq) {
  return PickUpMasking(FindCurrentPair(Panel::SASW), freq);
}

}  // namespace sondera
