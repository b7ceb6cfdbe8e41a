// palette.cpp - see palette.h.
#include "figure/palette.h"

#include <algorithm>
#include <cmath>

namespace sondera {
namespace {

constexpr int kEdgeGrey = 0x777777;  // visible on white and on the dark backgrounds of desktops
constexpr double kOffset = 0.05;     // of the contrast formula: light that a screen always reflects

constexpr int Channel(int color, int which) {
  return (color >> (16 - 8 * which)) & 0xFF;
}

double Linear(int channel) {
  const double share = channel / 255.0;
  return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double Luminance(int color) {
  return 0.2126 * Linear(Channel(color, 0)) + 0.7152 * Linear(Channel(color, 1)) +
         0.0722 * Linear(Channel(color, 2));
}

bool IsGrey(int color) {
  return Channel(color, 0) == Channel(color, 1) && Channel(color, 1) == Channel(color, 2);
}

int Lightened(int color, int background) {
  constexpr int steps = 20;
  for (int i = 0; i <= steps; ++i) {
    const int lighter = MixColors(color, 0xFFFFFF, static_cast<double>(i) / steps);
    if (Contrast(lighter, background) >= kLeastContrast) return lighter;
  }
  return 0xFFFFFF;
}

}  // namespace

int OrderColor(int n) {
  constexpr int count = static_cast<int>(kOrderColors.size());
  return kOrderColors[static_cast<std::size_t>(((n % count) + count) % count)];
}

double Contrast(int a, int b) {
  const double first = Luminance(a) + kOffset, second = Luminance(b) + kOffset;
  return std::max(first, second) / std::min(first, second);
}

int MixColors(int a, int b, double share) {
  int mixed = 0;
  for (int which = 0; which < 3; ++which) {
    const double from = Channel(a, which), to = Channel(b, which);
    mixed = (mixed << 8) | static_cast<int>(std::lround(from + std::clamp(share, 0.0, 1.0) * (to - from)));
  }
  return mixed;
}

Ink InkFor(int color, int background) {
  const int plain = color & 0xFFFFFF;
  if (!IsDark(background)) return {plain, Contrast(plain, background) < kLeastContrast, kEdgeGrey};
  const bool dark = Contrast(plain, background) < kLeastContrast;
  const int turned = dark && IsGrey(plain) ? 0xFFFFFF - plain : plain;
  return {Lightened(turned, background), false, kEdgeGrey};
}

int MapColor(std::span<const ColorLevel> levels, double value, int missing) {
  if (levels.empty() || std::isnan(value)) return missing;
  const ColorLevel *below = nullptr, *above = nullptr;
  for (const ColorLevel& level : levels) {
    if (level.level <= value && (!below || level.level >= below->level)) below = &level;
    if (level.level >= value && (!above || level.level < above->level)) above = &level;
  }
  if (!below && !above) return missing;
  if (!below || !above || above->level <= below->level) return (below ? below : above)->color & 0xFFFFFF;
  // Each term separately: the distance of two levels may exceed a double.
  const double range = above->level / 2.0 - below->level / 2.0;
  return MixColors(below->color, above->color, (value / 2.0 - below->level / 2.0) / range);
}

std::vector<ColorLevel> EvenScale(double low, double high) {
  constexpr std::array<int, 9> colors = {0x440154, 0x472D7B, 0x3B528B, 0x2C728E, 0x21918C,
                                         0x28AE80, 0x5EC962, 0xADDC30, 0xFDE725};
  std::vector<ColorLevel> levels;
  for (std::size_t i = 0; i < colors.size(); ++i) {
    const double share = static_cast<double>(i) / (colors.size() - 1);
    levels.push_back({low * (1.0 - share) + high * share, colors[i]});
  }
  return levels;
}

}  // namespace sondera
