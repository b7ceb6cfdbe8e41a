// trace_plot.h - graphs A and B of the measurement page and the masking page: which data of the selected
// measurement and pair go on them, over which axis.
//
// Registered behind the DoPlotting notice. A display of transfer function or impulse response makes the pair
// record when there is none and refreshes it from the averages; a phase display also brings the band limits
// of a measured record up to date. Nothing else leaves a mark.
#pragma once

namespace sondera {

/// Display types, the items of the rings DISPATYPE and DISPBTYPE.
enum class DisplayType : int {
  TimeTrace = 0,
  LinearPhase,
  LinearAmplitude,
  TransferPhase,
  TransferAmplitude,
  PowerSpectrum,
  CrossPhase,
  CrossAmplitude,
  Coherence,
  ImpulseResponse,
  Gabor
};

/// Draws both graphs of a page: 1 the masking page, any other the measurement page. 0; -1 when one of them
/// has no measurement to show; -2 when a Gabor map is asked for that cannot be shown.
int DrawTraces(int page);

/// First two channels of the record under preview, on the measurement page.
void DrawPreview();

}  // namespace sondera
