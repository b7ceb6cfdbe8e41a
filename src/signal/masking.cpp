// masking.cpp - see masking.h. Owns no state; the masks are in MeasDB, the picked one in the session.
// Odd on purpose: whole hertz in the line indices, the forgiving update, the reset that returns 1,
// DeleteAllMask.
#include "signal/masking.h"

#include <optional>
#include <string_view>

#include "numeric/scale_arithmetic.h"
#include "records/session.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/dialogs.h"
#include "runtime/graphs.h"

namespace sondera {
namespace {

constexpr std::string_view kWarningTitle = "Sondera - Warning";

// Display types whose abscissa is time.
constexpr int kTimeTraceType = 0;
constexpr int kImpulseResponseType = 9;

void Warn(std::string_view text) {
  MessagePopup(kWarningTitle, text);
}

template <class Mask>
bool IsOfPair(const Mask& mask, int key, int refChan, int dspChan) {
  return mask.key == key && mask.refChan == refChan && mask.dspChan == dspChan;
}

std::optional<double> UpperFrequency(const CurrentPair& current) {
  const int shown = GetCtrlVal(sasw::DISPATYPE);
  if (shown != kTimeTraceType && shown != kImpulseResponseType) {
    if (const auto limit = UpperXLimit(sasw::DISPLAY_A)) return limit;
  }
  if (current.key == -1 || current.records.hwPos < 0) return std::nullopt;
  return BandEnd(*current.records.hwSetup);
}

bool CollidesWith(const MaskingInfo& mask, double freqInit, double freqFinal) {
  const auto inside = [&](double freq) { return mask.freqInit <= freq && freq <= mask.freqFinal; };
  return inside(freqInit) || inside(freqFinal) || (freqInit < mask.freqInit && mask.freqFinal < freqFinal);
}

int CheckPickedMask() {
  const PickedMask& picked = session.selMask;
  return CheckMaskingData(picked.refChan, picked.dspChan, picked.jumpNo, picked.freqInit, picked.freqFinal);
}

constexpr int kAnySame = mask_check::kSameInit | mask_check::kSameFinal | mask_check::kSameJump;

/// Nothing of selMask is in the list any more.
bool PickedMaskIsGone() {
  return (CheckPickedMask() & kAnySame) == 0;
}

/// Position of the mask of the current pair that equals selMask, -1 without one.
int FindPickedMask(const CurrentPair& current) {
  const PickedMask& picked = session.selMask;
  for (int i = 1; i <= MeasDB.maskingList.count(); ++i) {
    const MaskingInfo& mask = *MeasDB.maskingList.at(i);
    if (IsOfPair(mask, current.key, current.refChan, current.dspChan) && mask.freqInit == picked.freqInit &&
        mask.freqFinal == picked.freqFinal && mask.jumpNo == picked.jumpNo)
      return i;
  }
  return -1;
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
  int bits = 0;
  const bool bothZero = freqInit == 0.0 && freqFinal == 0.0;
  if (!(freqFinal > freqInit) && !bothZero) bits |= mask_check::kBadRange;
  for (const MaskingInfo& mask : MeasDB.maskingList) {
    if (!IsOfPair(mask, current.key, refChan, dspChan)) continue;
    if (freqInit == mask.freqInit) bits |= mask_check::kSameInit;
    if (freqFinal == mask.freqFinal) bits |= mask_check::kSameFinal;
    if (jumpNo == mask.jumpNo) bits |= mask_check::kSameJump;
    if (CollidesWith(mask, freqInit, freqFinal)) bits |= mask_check::kBadRange;
  }
  return bits;
}

int NewMask(int refChan, int dspChan, int jumpNo, double freqInit, double freqFinal) {
  const CurrentPair current = FindCurrentPair(Panel::SASW);
  if (current.key == -1 || current.records.hwPos < 0) return 1;
  freqFinal = CutFinalFrequency(current, freqFinal);
  const int bits = CheckMaskingData(refChan, dspChan, jumpNo, freqInit, freqFinal);
  if (bits & ~mask_check::kSameJump) {
    if (bits & mask_check::kSameInit)
      Warn("Invalid initial freq.: overlapped !");
    else if (bits & mask_check::kSameFinal)
      Warn("Invalid final freq.: overlapped !");
    else
      Warn("Invalid freqeuncy range !");
    return 1;
  }
  const double deltaF = current.records.hwSetup->deltaF;
  MaskingInfo& mask = *MeasDB.maskingList.append();
  mask.key = current.key;
  mask.refChan = refChan;
  mask.dspChan = dspChan;
  mask.freqInit = freqInit;
  mask.freqFinal = freqFinal;
  mask.jumpNo = jumpNo;
  // Kept: whole hertz first. The unwrapper works from the frequencies, so this only shows in stored line
  // numbers.
  mask.lineInit = TruncToInt(TruncToInt(freqInit) / deltaF);
  mask.lineFinal = TruncToInt(TruncToInt(freqFinal) / deltaF);
  return 0;
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
  const double freqInit = GetCtrlVal(sasw::MASKING_FREQINIT);
  const double freqFinal = CutFinalFrequency(current, GetCtrlVal(sasw::MASKING_FREQFINAL));
  const int jumpNo = GetCtrlVal(sasw::MASKING_JUMPNO);
  if (MeasDB.maskingList.empty()) return 1;
  const int position = PickedMaskIsGone() ? -1 : FindPickedMask(current);
  if (position < 0) {
    Warn("Selected masking can not be updated.");
    return 1;
  }
  if (!(freqFinal > freqInit)) {  // the cut may have passed the initial frequency: no mask runs backwards
    Warn("Please set both markers properly.");
    return 1;
  }
  MaskingInfo& mask = *MeasDB.maskingList.at(position);
  mask.freqInit = session.selMask.freqInit = freqInit;
  mask.freqFinal = session.selMask.freqFinal = freqFinal;
  mask.jumpNo = session.selMask.jumpNo = jumpNo;
  return 0;
}

int DeleteMask() {
  if (MeasDB.maskingList.empty()) return 1;
  if (PickedMaskIsGone()) {
    Warn("The selected masking can not be deleted.");
    return 1;
  }
  const int position = FindPickedMask(FindCurrentPair(Panel::SASW));
  if (position < 0) {
    Warn("The selected masking is not in the list.\n");
    return 1;
  }
  MeasDB.maskingList.remove(position);
  return 0;
}

int DeleteAllMaskInChannelCombination() {
  if (MeasDB.maskingList.empty()) return 1;
  // Only a range without any coincidence but a collision stops it: a picked mask that was changed since.
  const int bits = CheckPickedMask();
  if (bits > 0 && !(bits & kAnySame)) {
    Warn("The selected masking can not be deleted.");
    return 1;
  }
  const CurrentPair current = FindCurrentPair(Panel::SASW);
  for (int i = MeasDB.maskingList.count(); i >= 1; --i)
    if (IsOfPair(*MeasDB.maskingList.at(i), current.key, current.refChan, current.dspChan))
      MeasDB.maskingList.remove(i);
  return 1;
}

int DeleteAllMask() {
  if (MeasDB.maskingList.empty()) return 1;
  if (PickedMaskIsGone()) {
    Warn("The selected masking can not be deleted.");
    return 1;
  }
  // Kept: after each removal the next mask has moved into the place just left, and is stepped over.
  for (int i = 1; i <= MeasDB.maskingList.count(); ++i) MeasDB.maskingList.remove(i);
  return 0;
}

int GetMaskInform(int key, int refChan, int dspChan, double freq, int& jumpNo, double& freqInit,
                  double& freqFinal) {
  if (MeasDB.maskingList.empty()) return -1;
  for (const MaskingInfo& mask : MeasDB.maskingList) {
    if (!IsOfPair(mask, key, refChan, dspChan) || !(mask.freqInit <= freq && freq <= mask.freqFinal))
      continue;
    jumpNo = mask.jumpNo;
    freqInit = mask.freqInit;
    freqFinal = mask.freqFinal;
    return 0;
  }
  return 1;
}

int PickUpMasking(double freq) {
  const CurrentPair current = FindCurrentPair(Panel::SASW);
  PickedMask picked{.key = current.key, .refChan = current.refChan, .dspChan = current.dspChan};
  const int found = GetMaskInform(current.key, current.refChan, current.dspChan, freq, picked.jumpNo,
                                  picked.freqInit, picked.freqFinal);
  if (found == 0) session.selMask = picked;
  return found;
}

}  // namespace sondera
