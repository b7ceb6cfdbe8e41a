// ticks.cpp - see ticks.h.
#include "figure/ticks.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string_view>

namespace sondera {
namespace {

constexpr double kPlainFrom = 1e-3, kPlainBelow = 1e6;  // numbers written without a power of ten
constexpr double kSlack = 1e-9;                         // of a step: a limit on a tick counts as inside
constexpr int kMostDecimals = 17;
constexpr int kLeastExponent = -300;  // 10 to this power and to its negative are doubles
constexpr std::string_view kDegrees = "degrees";

/// A step, and the number of intervals of its small ticks.
struct Step {
  double size = 0.0;
  int parts = 1;
};

std::string Fixed(double value, int decimals) {
  std::array<char, 400> room;
  const auto done =
      std::to_chars(room.data(), room.data() + room.size(), value, std::chars_format::fixed, decimals);
  const std::string text(room.data(), done.ptr);
  return text.find_first_not_of("-0.") == std::string::npos && text[0] == '-' ? text.substr(1) : text;
}

std::string PowerOfTen(int exponent) {
  static constexpr std::array<std::string_view, 10> digits = {"⁰", "¹", "²", "³", "⁴",
                                                              "⁵", "⁶", "⁷", "⁸", "⁹"};
  std::string text = exponent < 0 ? "10⁻" : "10";
  for (const char digit : std::to_string(std::abs(exponent)))
    text += digits[static_cast<std::size_t>(digit - '0')];
  return text;
}

int Exponent(double value) {
  return static_cast<int>(std::floor(std::log10(value)));
}

/// Power of ten, limited so that a double can hold it and it is above 0.
double Power(int exponent) {
  return std::pow(10.0, exponent);
}

/// Decimals that a multiple of step needs.
int Decimals(double step) {
  int decimals = 0;
  for (double scaled = step; decimals < kMostDecimals; ++decimals, scaled *= 10.0)
    if (std::fabs(scaled - std::round(scaled)) < 1e-6 * scaled) break;
  return decimals;
}

/// Rounds up to 1, 2, 5 or 10 times a power of ten.
Step RoundStep(double least) {
  const double power = Power(Exponent(least));
  for (const Step& mantissa : {Step{1.0, 5}, Step{2.0, 4}, Step{5.0, 5}})
    if (mantissa.size * power >= least * (1.0 - kSlack)) return {mantissa.size * power, mantissa.parts};
  return {10.0 * power, 5};
}

Step DegreeStep(double least) {
  constexpr std::array<Step, 9> steps = {
      {{1, 5}, {2, 4}, {5, 5}, {10, 5}, {15, 3}, {30, 3}, {45, 3}, {90, 3}, {180, 2}}};
  if (least < 1.0) return RoundStep(least);
  for (const Step& step : steps)
    if (step.size >= least) return step;
  const Step turns = RoundStep(least / 360.0);
  return turns.size < 1.0 ? Step{360.0, 4} : Step{360.0 * turns.size, turns.parts};
}

bool IsMultiple(double value, double step) {
  const double times = value / step;
  return std::fabs(times - std::round(times)) < kSlack * std::max(1.0, std::fabs(times));
}

/// The step that the divisions of the axis suggest; 0 where it gives long numbers or too many.
double DividedStep(int divisions, double low, double high, int atMost) {
  if (divisions < 1 || divisions >= atMost) return 0.0;
  const double step = high / divisions - low / divisions;
  const bool twoFigures = IsMultiple(step, Power(Exponent(step) - 1));
  return twoFigures && IsMultiple(low, step) ? step : 0.0;
}

/// Multiples of a step within the limits.
double CountOf(double step, double low, double high) {
  return std::floor(high / step + kSlack) - std::ceil(low / step - kSlack) + 1.0;
}

/// The smallest round step with at most that many numbers.
Step LinearStep(const AxisModel& axis, double low, double high, int atMost) {
  const bool degrees = axis.unit == kDegrees && axis.factor == 1.0;
  const auto round = [&](double least) { return degrees ? DegreeStep(least) : RoundStep(least); };
  if (const double divided = DividedStep(axis.divisions, low, high, atMost); divided > 0.0 && !degrees) {
    const Step same = round(divided);
    return {divided, same.size == divided ? same.parts : 2};
  }
  // One step more would give too many numbers, wherever the limits lie.
  const double least = high / (atMost + 1) - low / (atMost + 1);
  if (!(least > 0.0)) return {};  // a range of the smallest numbers: no double lies between
  Step step = round(least);
  while (step.size > 0.0 && CountOf(step.size, low, high) > atMost) step = round(step.size * (1.0 + 1e-3));
  if (CountOf(step.size, low, high) >= 2.0) return step;
  // One number tells no scale: the limits, if they are short numbers.
  for (int divisions = atMost - 1; divisions > 0; --divisions)
    if (const double divided = DividedStep(divisions, low, high, atMost); divided > 0.0) return {divided, 2};
  return step;
}

/// Writes the numbers of one linear axis in the same form.
class LinearText {
 public:
  LinearText(double low, double high, double step) : step_(step) {
    const double size = std::max(std::fabs(low), std::fabs(high));
    if (size >= kPlainBelow || size < kPlainFrom) exponent_ = std::max(Exponent(size), kLeastExponent);
    scale_ = Power(-exponent_);
    decimals_ = Decimals(step_ * scale_);
  }
  std::string operator()(double value) const {
    if (exponent_ == 0 || value == 0.0) return value == 0.0 ? "0" : Fixed(value, decimals_);
    return Fixed(value * scale_, decimals_) + "×" + PowerOfTen(exponent_);
  }

 private:
  double step_, scale_ = 1.0;
  int exponent_ = 0, decimals_ = 0;
};

AxisTicks LinearTicks(const AxisModel& axis, double low, double high, int atMost) {
  AxisTicks ticks;
  const Step step = LinearStep(axis, low, high, atMost);
  const double small = step.size / step.parts;
  // Numbers that are equal as doubles have no ticks between them.
  if (!(small > 0.0) || std::max(std::fabs(low), std::fabs(high)) / small > 1e14) {
    for (const double end : {low, high}) ticks.numbers.push_back({end * axis.factor, ShortNumber(end, 17)});
    return ticks;
  }
  const LinearText text(low, high, step.size);
  const auto first = static_cast<std::int64_t>(std::ceil(low / small - kSlack));
  const auto last = static_cast<std::int64_t>(std::floor(high / small + kSlack));
  for (std::int64_t i = first; i <= last; ++i) {
    if (i % step.parts != 0) {
      ticks.between.push_back(static_cast<double>(i) * small * axis.factor);
      continue;
    }
    const std::int64_t steps = i / step.parts;
    const double value = static_cast<double>(steps) * step.size;
    ticks.numbers.push_back({value * axis.factor, text(value)});
  }
  return ticks;
}

struct DecadeNumber {
  int mantissa = 1, exponent = 0;
  double value() const { return mantissa * Power(exponent); }
  std::string text(bool powers) const {
    if (!powers || (exponent >= 0 && exponent <= 1 && mantissa == 1))
      return Fixed(value(), std::max(0, -exponent));
    return (mantissa == 1 ? "" : std::to_string(mantissa) + "×") + PowerOfTen(exponent);
  }
};

/// Numbers 1 to 9 times a power of ten within the limits, upward.
std::vector<DecadeNumber> DecadeNumbers(double low, double high) {
  std::vector<DecadeNumber> numbers;
  for (int exponent = Exponent(low); exponent <= Exponent(high) + 1; ++exponent) {
    for (int mantissa = 1; mantissa <= 9; ++mantissa) {
      const DecadeNumber number{mantissa, exponent};
      const double value = number.value();
      if (value > 0.0 && std::isfinite(value) && value >= low * (1.0 - kSlack) &&
          value <= high * (1.0 + kSlack))
        numbers.push_back(number);
    }
  }
  return numbers;
}

AxisTicks LogarithmicTicks(const AxisModel& axis, double low, double high, int atMost) {
  const std::vector<DecadeNumber> all = DecadeNumbers(low, high);
  const auto count = [&](auto wanted) {
    return static_cast<int>(std::count_if(all.begin(), all.end(), wanted));
  };
  const auto isPower = [](const DecadeNumber& n) { return n.mantissa == 1; };
  const auto isRound = [](const DecadeNumber& n) {
    return n.mantissa == 1 || n.mantissa == 2 || n.mantissa == 5;
  };
  const int powerCount = count(isPower), roundCount = count(isRound);
  if (roundCount < 3 && high / low < 10.0) return LinearTicks(axis, low, high, atMost);

  const bool rounds = roundCount <= atMost;
  const int every = rounds ? 1 : (powerCount + atMost - 1) / atMost;
  const bool powers = high >= kPlainBelow || low < kPlainFrom;
  AxisTicks ticks;
  for (const DecadeNumber& number : all) {
    const double at = number.value() * axis.factor;
    const bool numbered = rounds ? isRound(number) : isPower(number) && number.exponent % every == 0;
    if (numbered)
      ticks.numbers.push_back({at, number.text(powers)});
    else if (every == 1 || isPower(number))
      ticks.between.push_back(at);
  }
  return ticks;
}

}  // namespace

AxisTicks TicksOf(const AxisModel& axis, const AxisLimits& limits, int atMost) {
  const double low = limits.min / axis.factor, high = limits.max / axis.factor;
  if (!std::isfinite(high - low) || !(low < high) || (axis.logarithmic && !(low > 0.0))) return {};
  const int room = std::max(atMost, 2);
  return axis.logarithmic ? LogarithmicTicks(axis, low, high, room) : LinearTicks(axis, low, high, room);
}

std::string AxisTitle(const AxisModel& axis) {
  std::string unit = axis.prefix + axis.unit;
  for (std::size_t at; (at = unit.find("^2")) != std::string::npos;) unit.replace(at, 2, "²");
  if (axis.label.empty() || unit.empty()) return axis.label + unit;
  return axis.label + ", " + unit;
}

std::string ShortNumber(double value, int figures) {
  if (std::isnan(value)) return "no number";
  std::array<char, 40> room;
  const auto done = std::to_chars(room.data(), room.data() + room.size(), value == 0.0 ? 0.0 : value,
                                  std::chars_format::general, std::clamp(figures, 1, 17));
  return std::string(room.data(), done.ptr);
}

}  // namespace sondera
