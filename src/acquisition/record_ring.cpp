// record_ring.cpp - the trigger on a stream. Owns no state.
#include "acquisition/record_ring.h"

#include <algorithm>

namespace sondera {

void RecordRing::Arm() {
  armed_ = true;
  broken_ = false;
  begin_ = -1;
  FindTrigger();
}

double RecordRing::At(std::int64_t frame, int channel) const {
  return frames_[static_cast<std::size_t>(frame - first_) * static_cast<std::size_t>(plan_.channels) +
                 static_cast<std::size_t>(channel)];
}

void RecordRing::Feed(const double* frames, std::size_t nFrames) {
  DropOld();
  frames_.insert(frames_.end(), frames, frames + nFrames * static_cast<std::size_t>(plan_.channels));
  end_ += static_cast<std::int64_t>(nFrames);
  if (armed_) FindTrigger();
}

void RecordRing::FindTrigger() {
  if (begin_ >= 0) return;
  if (plan_.trigger < 0) {
    if (end_ > search_) begin_ = std::max(search_, first_);
    return;
  }
  // A crossing counts only after enough samples before it, as on a board with a reference trigger.
  std::int64_t frame = std::max({search_, first_ + plan_.preTrigger, first_ + 1});
  for (; frame < end_; ++frame) {
    if (!(At(frame - 1, plan_.trigger) < plan_.level && At(frame, plan_.trigger) >= plan_.level)) continue;
    begin_ = frame - plan_.preTrigger;
    return;
  }
  search_ = std::max(search_, end_);
}

void RecordRing::Gap() {
  if (armed_ && begin_ >= 0 && !Ready()) broken_ = true;
  if (Ready()) return;  // complete before the gap: it can still be used
  frames_.clear();
  first_ = end_ = search_ = 0;
  begin_ = -1;
}

void RecordRing::Take(double* buf) {
  for (int c = 0; c < plan_.channels; ++c)
    for (int i = 0; i < plan_.samples; ++i) *buf++ = At(begin_ + i, c);
  search_ = begin_ + plan_.samples;
  armed_ = false;
  begin_ = -1;
}

/// Keeps the samples that a record may still need: those before its trigger, and of a stream that nobody
/// reads the length of a record. Moves the rest to the front only when that halves the size, so a frame is
/// moved once at most.
void RecordRing::DropOld() {
  std::int64_t keep = begin_;
  if (begin_ < 0) {
    if (!armed_) search_ = std::max(search_, end_ - plan_.samples);
    keep = search_ - plan_.preTrigger - 1;
  }
  const std::int64_t drop = std::clamp<std::int64_t>(keep - first_, 0, end_ - first_);
  if (2 * drop < end_ - first_) return;
  const auto values = static_cast<std::ptrdiff_t>(drop * plan_.channels);
  frames_.erase(frames_.begin(), frames_.begin() + values);
  first_ += drop;
}

}  // namespace sondera
