// record_ring.h - finite records, free or triggered, from a continuous stream of frames.
//
// The stream continues between two records: the search for the next one starts at the end of the last, so no
// blow in between is lost. A frame is one sample of every channel. Owns only its own state.
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

  /// Searches for the next record, from the end of the last one.
  void Arm();
  void Disarm() { armed_ = false; }

  /// Adds frames, one value of each channel after the other.
  void Feed(const double* frames, std::size_t nFrames);
  /// Samples were lost here: earlier frames belong to no later record, and a record that had begun is
  /// invalid.
  void Gap();

  /// The record is complete.
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
  std::int64_t search_ = 0;           // the search for the record or its trigger starts here
  std::int64_t begin_ = -1;
  bool armed_ = false, broken_ = false;
};

}  // namespace sondera
