// state.cpp - see state.h.
#include "plot_ps/state.h"

namespace sondera {

PlotPsState plotPs;

void ResetPlotPs() {
  plotPs = PlotPsState{};
}

}  // namespace sondera
