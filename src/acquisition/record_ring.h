// record_ring.h - finite records, free or triggered, out of a stream of frames that never stops.
//
// The stream runs on between two records: the next one is looked for from the end of the last, so that a blow
// in between is not lost. A frame is one sample of every channel. Owns no state beside its own.
#pragma once

#include <cstdint>
#include <vector>

namespace sondera {

class RecordRing {
 public:
  struct Plan {
    int channels = 1;
    int samples = 1024;  ///< of a record, per channel
    int trigger = -1;    ///< channel whose rise through the level triggers; -1: a record begins at once
    double level = 0.0;
    int preTrigger = 0;  ///< samples before the trigger's, below `samples`
  };

  RecordRing() = default;
  explicit RecordRing(const Plan& plan) : plan_(plan) {}

  /// Looks for the next record, from the end of the last one.
  void Arm();
  void Disarm() { armed_ = false; }

  /// Takes frames, one value of each channel behind the other.
  void Feed(const double* frames, std::size_t nFrames);
  /// Samples were lost here: what is before belongs to no later record, and one that had begun is broken.
  void Gap();

  /// The record is whole.
  bool Ready() const { return armed_ && begin_ >= 0 && end_ >= begin_ + plan_.samples; }
  /// Samples were lost in the record since Arm.
  bool Broken() const { return broken_; }
  /// Number of the record's first frame, counted from the last gap. -1 until its trigger is found.
  std::int64_t Begin() const { return begin_; }
  /// Copies the record, channel after channel, and disarms. Only when Ready().
  void Take(double* buf);

 private:
  double At(std::int64_t frame, int channel) const;
  void FindTrigger();
  void DropOld();

  Plan plan_;
  std::vector<double> frames_;        // frames first_ to end_ - 1
  std::int64_t first_ = 0, end_ = 0;  // counted from the last gap
  std::int64_t search_ = 0;           // the record or its trigger is looked for from here
  std::int64_t begin_ = -1;
  bool armed_ = false, broken_ = false;
};

}  // namespace sondera
