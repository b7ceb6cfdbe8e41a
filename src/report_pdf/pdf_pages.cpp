// pdf_pages.cpp - functions that several kinds of pages need. See pdf_pages.h.
#include "report_pdf/pdf_pages.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "runtime/text_format.h"

namespace sondera {

PlotLook LookOfCurve(int number, PlotStyle style) {
  // Open and solid shapes in turn, and three dashes, so that curves differ on a grey print too.
  constexpr std::array<int, 10> kMarkerOrder = {10, 1, 8, 6, 0, 12, 5, 9, 16, 17};
  // Dark enough for thin lines on white.
  constexpr std::array<int, 6> kColorOrder = {0x0072B2, 0xD55E00, 0x007A58, 0xA0458A, 0x222222, 0x8B5A00};
  constexpr std::array<LineDash, 4> kDashOrder = {LineDash::Solid, LineDash::Dashed, LineDash::DashDotted,
                                                  LineDash::Dotted};
  PlotLook look;
  look.style = style;
  look.marker = kMarkerOrder[static_cast<std::size_t>(number) % kMarkerOrder.size()];
  look.color = kColorOrder[static_cast<std::size_t>(number) % kColorOrder.size()];
  look.dash = kDashOrder[static_cast<std::size_t>(number) % kDashOrder.size()];
  return look;
}

bool CoherenceIsKnown(const SpectrumTable& spectrum) {
  return std::any_of(spectrum.coherence.begin(), spectrum.coherence.end(),
                     [](double c) { return c < 1.0 - 1e-9; });
}

std::string NumberText(double value, int decimals) {
  if (!std::isfinite(value)) return "-";
  std::string text = FormatText("%.*f", decimals, value);
  return text.size() > 12 ? FormatText("%.*g", decimals + 2, value) : text;
}

}  // namespace sondera
