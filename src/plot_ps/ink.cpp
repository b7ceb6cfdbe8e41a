// ink.cpp - see ink.h.
#include "plot_ps/ink.h"

#include <cmath>
#include <initializer_list>

#include "plot_ps/inclusion.h"
#include "plot_ps/path.h"
#include "plot_ps/state.h"
#include "plot_ps/statement.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr int kColourDecimals = 3, kLengthDecimals = 2, kGreyDecimals = 6;

void PutColour(std::initializer_list<float> parts, const char* word) {
  Statement line;
  for (const float part : parts) line.Number(HeldToOne(part), kColourDecimals);
  line.Put(word);
}

/// Whether a factor is finite and not written as 0 in the file.
bool IsFactor(float factor) {
  constexpr double kHalfOfLastDigit = 0.05;
  return std::isfinite(factor) && std::fabs(static_cast<double>(factor)) > kHalfOfLastDigit;
}

/// A length as "%.2f" prints it.
double Printed(double points) {
  return std::nearbyint(points * 100.0) / 100.0;
}

}  // namespace

int ps_pen(int n) {
  constexpr double kGreys[] = {0.0, 0.3, 0.7};
  if (n < 0 || n > 2) return 0;
  Statement().Number(kGreys[n], 1).Put("setgray\n");
  return 1;
}

void ps_gray(float g) {
  Statement().Number(HeldToOne(g), kGreyDecimals).Put("setgray\n");
}

void ps_line_width(float w) {
  StrokePath();
  Statement().Number(Length(w), kLengthDecimals).Put("setlinewidth\n");
}

void ps_dashed_line(float on, float off, float phase) {
  const double dash = Length(on * kPointsPerCm), space = Length(off * kPointsPerCm);
  // An array of zeros is an error of the printer.
  if (Printed(dash) == 0.0 && Printed(space) == 0.0) return ps_solid_line();
  PutLine(FormatText("[%.2f %.2f] %.2f setdash\n", dash, space,
                     static_cast<double>(Length(phase * kPointsPerCm))));
}

void ps_solid_line() {
  PutLine("[] 0 setdash\n");
}

void ps_scale(float x, float y) {
  if (!IsFactor(x) || !IsFactor(y)) {
    Complain("PLOT_PS: ps_scale warning: no scale of %g %g\n", static_cast<double>(x),
             static_cast<double>(y));
    return;
  }
  Statement().Tenths(x).Tenths(y).Put("scale\n");
}

void ps_rotate(float deg) {
  Statement().Whole(WholeDegrees(deg)).Put("rotate\n");
}

void ps_set_rgb_color(float r, float g, float b) {
  PutColour({r, g, b}, "setrgbcolor\n");
}
void ps_set_hsb_color(float h, float s, float b) {
  PutColour({h, s, b}, "sethsbcolor\n");
}

void ps_set_cmyk_color(float c, float m, float y, float k) {
  if (!plotPs.cmykDefined) ps_code("/setcymkcolor { setcmykcolor } bind def\n");
  plotPs.cmykDefined = 1;
  PutColour({c, m, y, k}, "setcymkcolor\n");
}

}  // namespace sondera
