// random_numbers.h - random numbers that are the same everywhere for the same seed.
//
// The standard fixes the generators of its library but not the distributions. Used wherever records are
// generated.
#pragma once

#include <cmath>
#include <cstdint>
#include <numbers>

namespace sondera {

/// SplitMix64 (Steele, Lea and Flood, 2014): 64 bits of state, every seed works. Not for secrets.
class RandomNumbers {
 public:
  explicit RandomNumbers(std::uint64_t seed) : state_(seed) {}
  /// One of many independent sequences of a seed.
  RandomNumbers(std::uint64_t seed, std::uint64_t stream) : state_(Mix(seed + kStep) ^ Mix(~stream)) {}

  std::uint64_t Next() { return Mix(state_ += kStep); }

  /// Uniform between 0 and 1, both ends excluded.
  double Uniform() { return (static_cast<double>(Next() >> 11) + 0.5) * 0x1p-53; }

  /// Normal with mean 0 and deviation 1 (Box and Muller, 1958). At most 8.6 in size.
  double Normal() {
    if (hasSpare_) {
      hasSpare_ = false;
      return spare_;
    }
    const double radius = std::sqrt(-2.0 * std::log(Uniform())), angle = 2.0 * std::numbers::pi * Uniform();
    spare_ = radius * std::sin(angle);
    hasSpare_ = true;
    return radius * std::cos(angle);
  }

 private:
  static constexpr std::uint64_t kStep = 0x9e3779b97f4a7c15u;
  static std::uint64_t Mix(std::uint64_t z) {
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9u;
    z = (z ^ (z >> 27)) * 0x94d049bb133111ebu;
    return z ^ (z >> 31);
  }

  std::uint64_t state_;
  double spare_ = 0.0;
  bool hasSpare_ = false;
};

}  // namespace sondera
