// masking.cpp - see masking.h. Owns no state; the masks are in MeasDB, the picked one in the session.
// Odd on purpose: whole hertz in the line indices, DeleteAllMask.
#include "signal/masking.h"

#include "numeric/scale_arithmetic.h"
#include "records/session.h"

namespace sondera {
namespace {

constexpr int kAnySame = mask_check::kSameInit | mask_check::kSameFinal | mask_check::kSameJump;

template <class Mask>
bool IsOfPair(const Mask& mask, int key, int refChan, int dspChan) {
  return mask.key == key && mask.refChan == refChan && mask.dspChan == dspChan;
}

bool CollidesWith(const MaskingInfo& mask, double freqInit, double freqFinal) {
  const auto inside = [&](double freq) { return mask.freqInit <= freq && freq <= mask.freqFinal; };
  return inside(freqInit) || inside(freqFinal) || (freqInit < mask.freqInit && mask.freqFinal < freqFinal);
}

/// selMask no longer refers to a mask of the list.
bool PickedMaskIsGone(int pickedBits) {
  return (pickedBits & kAnySame) == 0;
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

int CheckMaskingData(const MaskRequest& range) {
  int bits = 0;
  const bool bothZero = range.freqInit == 0.0 && range.freqFinal == 0.0;
  if (!(range.freqFinal > range.freqInit) && !bothZero) bits |= mask_check::kBadRange;
  for (const MaskingInfo& mask : MeasDB.maskingList) {
    if (!IsOfPair(mask, range.key, range.refChan, range.dspChan)) continue;
    if (range.freqInit == mask.freqInit) bits |= mask_check::kSameInit;
    if (range.freqFinal == mask.freqFinal) bits |= mask_check::kSameFinal;
    if (range.jumpNo == mask.jumpNo) bits |= mask_check::kSameJump;
    if (CollidesWith(mask, range.freqInit, range.freqFinal)) bits |= mask_check::kBadRange;
  }
  return bits;
}

Refusal NewMask(const MaskRequest& wanted, double deltaF) {
  const int bits = CheckMaskingData(wanted);
  if (bits & ~mask_check::kSameJump) {
    if (bits & mask_check::kSameInit) return "Invalid initial freq.: overlapped !";
    if (bits & mask_check::kSameFinal) return "Invalid final freq.: overlapped !";
    return "Invalid freqeuncy range !";
  }
  MaskingInfo& mask = *MeasDB.maskingList.append();
  mask.key = wanted.key;
  mask.refChan = wanted.refChan;
  mask.dspChan = wanted.dspChan;
  mask.freqInit = wanted.freqInit;
  mask.freqFinal = wanted.freqFinal;
  mask.jumpNo = wanted.jumpNo;
  // Kept: truncated to whole hertz first. The unwrapper uses the frequencies, so this only shows in stored
  // line numbers.
  // numbers.
  mask.lineInit = TruncToInt(TruncToInt(wanted.freqInit) / deltaF);
  mask.lineFinal = TruncToInt(TruncToInt(wanted.freqFinal) / deltaF);
  return {};
}

Refusal UpdateMask(const CurrentPair& current, int pickedBits, const MaskRequest& fields) {
  if (MeasDB.maskingList.empty()) return Refusal::WithoutReason();
  const int position = PickedMaskIsGone(pickedBits) ? -1 : FindPickedMask(current);
  if (position < 0) return "Selected masking can not be updated.";
  // The cut at the limit of the display may lie below the initial frequency: no mask has its ends reversed.
  if (!(fields.freqFinal > fields.freqInit)) return "Please set both markers properly.";
  MaskingInfo& mask = *MeasDB.maskingList.at(position);
  mask.freqInit = session.selMask.freqInit = fields.freqInit;
  mask.freqFinal = session.selMask.freqFinal = fields.freqFinal;
  mask.jumpNo = session.selMask.jumpNo = fields.jumpNo;
  return {};
}

Refusal DeleteMask(const CurrentPair& current, int pickedBits) {
  if (MeasDB.maskingList.empty()) return Refusal::WithoutReason();
  if (PickedMaskIsGone(pickedBits)) return "The selected masking can not be deleted.";
  const int position = FindPickedMask(current);
  if (position < 0) return "The selected masking is not in the list.\n";
  MeasDB.maskingList.remove(position);
  return {};
}

Refusal DeleteAllMaskInChannelCombination(const CurrentPair& current, int pickedBits) {
  if (MeasDB.maskingList.empty()) return Refusal::WithoutReason();
  // It stops only when the range collides but equals no mask: the picked mask was changed meanwhile.
  if (pickedBits > 0 && !(pickedBits & kAnySame)) return "The selected masking can not be deleted.";
  for (int i = MeasDB.maskingList.count(); i >= 1; --i)
    if (IsOfPair(*MeasDB.maskingList.at(i), current.key, current.refChan, current.dspChan))
      MeasDB.maskingList.remove(i);
  return {};
}

Refusal DeleteAllMask(int pickedBits) {
  if (MeasDB.maskingList.empty()) return Refusal::WithoutReason();
  if (PickedMaskIsGone(pickedBits)) return "The selected masking can not be deleted.";
  // Kept: after each removal the next mask moves into the free place and is skipped.
  for (int i = 1; i <= MeasDB.maskingList.count(); ++i) MeasDB.maskingList.remove(i);
  return {};
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

int PickUpMasking(const CurrentPair& current, double freq) {
  PickedMask picked{.key = current.key, .refChan = current.refChan, .dspChan = current.dspChan};
  const int found = GetMaskInform(current.key, current.refChan, current.dspChan, freq, picked.jumpNo,
                                  picked.freqInit, picked.freqFinal);
  if (found == 0) session.selMask = picked;
  return found;
}

}  // namespace sondera
