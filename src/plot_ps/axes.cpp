// axes.cpp - see axes.h.
#include "plot_ps/axes.h"

#include <cmath>
#include <string>

#include "plot_ps/moves.h"
#include "plot_ps/page_text.h"
#include "plot_ps/path.h"
#include "plot_ps/shapes.h"
#include "plot_ps/state.h"
#include "plot_ps/statement.h"
#include "plot_ps/text.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr int kMostTicks = 10000;
constexpr int kMediumEvery = 5, kBigEvery = 10;
constexpr float kUpwards = 90.0f;

/// One axis on the page: a base, and directions along it and away from the graph (down, or left).
struct Axis {
  PagePoint base;
  PagePoint along;  // points per unit of the mode
  PagePoint away;   // points per cm
  bool vertical;

  PagePoint At(double distance, double awayCm, double alongCm = 0.0) const {
    const double length = std::hypot(along.x, along.y),
                 cm = alongCm * static_cast<double>(kPointsPerCm) / length;
    return {static_cast<float>(base.x + along.x * (distance + cm) + away.x * awayCm),
            static_cast<float>(base.y + along.y * (distance + cm) + away.y * awayCm)};
  }
};

Axis AxisHere(bool vertical) {
  const float cosA = plotPs.cmMode ? 1.0f : plotPs.cosA, sinA = plotPs.cmMode ? 0.0f : plotPs.sinA;
  const PagePoint down = {sinA * kPointsPerCm, -cosA * kPointsPerCm};
  const PagePoint left = {-cosA * kPointsPerCm, -sinA * kPointsPerCm};
  return {.base = {plotPs.curX, plotPs.curY},
          .along = vertical ? StepToPage(0.0f, 1.0f) : StepToPage(1.0f, 0.0f),
          .away = vertical ? left : down,
          .vertical = vertical};
}

/// Whether a format has exactly one conversion, for a real number.
bool IsRealFormat(std::string_view format) {
  constexpr std::size_t kLongest = 40;
  int conversions = 0;
  for (std::size_t i = 0; i < format.size(); ++i) {
    if (format[i] != '%') continue;
    if (++i < format.size() && format[i] == '%') continue;
    const auto skip = [&](std::string_view set, std::size_t most) {
      for (std::size_t k = 0; k < most && i < format.size() && set.find(format[i]) != set.npos; ++k) ++i;
    };
    skip("-+ #0", 5);
    skip("0123456789", 2);
    if (i < format.size() && format[i] == '.') {
      ++i;
      skip("0123456789", 2);
    }
    if (i >= format.size() || std::string_view("eEfFgG").find(format[i]) == std::string_view::npos)
      return false;
    ++conversions;
  }
  return conversions == 1 && format.size() <= kLongest;
}

const char* NumberFormat(const char* format) {
  constexpr unsigned char kNoFormat = 0xFF;
  if (!format || static_cast<unsigned char>(format[0]) == kNoFormat) return "%.2f";
  return IsRealFormat(format) ? format : "%g";
}

/// Step between ticks of an axis of this length: a tenth of the power of ten at or below it.
double TickStep(double length) {
  double m = length;
  while (m < 1.0) m *= 10.0;
  while (m > 10.0) m /= 10.0;
  return length / (10.0 * m);
}

double TextWidth(std::string_view text, float height) {
  return static_cast<double>(text.size()) * height * kLetterWidth;
}

void DrawTicks(const Axis& axis, double first, double start, double span, double step, double tick,
               const char* format, float height) {
  constexpr double kMargin = 1e-6, kBelow = 1.2, kHalf = 0.5;
  for (int k = 0; k < kMostTicks && k * step < span - kMargin * step; ++k) {
    const double distance = first + k * step;
    const bool big = k % kBigEvery == 0;
    const double size = big ? 3.0 * tick : k % kMediumEvery == 0 ? 2.0 * tick : tick;
    MoveTo(axis.At(distance, 0.0));
    DrawTo(axis.At(distance, size));
    if (!big) continue;
    const std::string text = FormatText(format, start + k * step);
    const double width = TextWidth(text, height);
    if (axis.vertical)
      WriteAt(axis.At(distance, size + width), text, height, 0.0f);
    else
      WriteAt(axis.At(distance, size + kBelow * height, -kHalf * width), text, height, 0.0f);
  }
}

void DrawAxis(bool vertical, double min, double max, float tick, double start, double end,
              std::string_view title, const char* format, float height) {
  const double length = max - min;
  if (!std::isfinite(length) || length <= 0.0) {
    Complain("\aPLOT_PS: ps_%c_axis: null axis length! (min = max)\n", vertical ? 'Y' : 'X');
    return;
  }
  if (plotPs.gap) return;
  if (!std::isfinite(height) || height <= 0.0f) height = plotPs.charHeight;
  if (!std::isfinite(tick)) tick = 0.0f;
  const Axis axis = AxisHere(vertical);
  MoveTo(axis.base);
  DrawTo(axis.At(length, 0.0));
  MoveTo(axis.base);
  DrawTicks(axis, start - min, start, end - start, TickStep(length), tick, NumberFormat(format), height);
  constexpr double kTitleStart = 0.1;
  const double across = 2.0 * height + 4.0 * tick, back = -TextWidth(title, height);
  WriteAt(axis.At(length, across, vertical ? back : back + kTitleStart), title, height,
          vertical ? kUpwards : 0.0f);
  MoveTo(axis.base);
}

}  // namespace

void ps_X_axis(float min, float max, float tick, float start, float end, std::string_view title,
               const char* format, float height) {
  DrawAxis(false, min, max, tick, start, end, title, format, height);
}

void ps_Y_axis(float min, float max, float tick, float start, float end, std::string_view title,
               const char* format, float height) {
  DrawAxis(true, min, max, tick, start, end, title, format, height);
}

void ps_axes(float w, float h, float xmin, float xmax, float ymin, float ymax, std::string_view xtitle,
             std::string_view ytitle, float height, int boxed) {
  constexpr float kTitleGap = 0.6f, kQuarter = 0.25f;
  if (plotPs.gap) return;
  const PagePoint base = {plotPs.curX, plotPs.curY};
  const auto at = [&](float x, float y) {
    return PagePoint{base.x + x * kPointsPerCm, base.y + y * kPointsPerCm};
  };
  WriteAt(at(w * kQuarter, -(height + kTitleGap)), xtitle, height, 0.0f);
  WriteAt(at(-(height + kTitleGap), h * kQuarter), ytitle, height, kUpwards);
  if (boxed) {
    MoveTo(base);
    for (const PagePoint corner : {at(0.0f, h), at(w, h), at(w, 0.0f), base}) DrawTo(corner);
  }
  if (xmin < 0.0f && xmax > 0.0f) {
    const float zero = w * -xmin / (xmax - xmin);
    MoveTo(at(zero, 0.0f));
    DrawTo(at(zero, h));
  }
  if (ymin < 0.0f && ymax > 0.0f) {
    const float zero = h * -ymin / (ymax - ymin);
    MoveTo(at(0.0f, zero));
    DrawTo(at(w, zero));
  }
  MoveTo(base);
}

void ps_ticked_axes(float xmin, float xmax, float ymin, float ymax, float tick, std::string_view xtitle,
                    std::string_view ytitle, const char* xformat, const char* yformat, float height,
                    int boxed) {
  ps_X_axis(xmin, xmax, tick, xmin, xmax, xtitle, xformat, height);
  ps_Y_axis(ymin, ymax, tick, ymin, ymax, ytitle, yformat, height);
  if (!boxed || plotPs.gap) return;
  const PagePoint base = {plotPs.curX, plotPs.curY};
  ps_frame(xmax - xmin, ymax - ymin);
  MoveTo(base);
}

}  // namespace sondera
