// catalogue.cpp - the table of all panels. A panel is added here, as an entry of Panel and as a header of its
// own; catalogue_test holds the three against each other.
#include "runtime/panels/catalogue.h"

#include <cstddef>
#include <iterator>

#include "runtime/panels/devpanel.h"
#include "runtime/panels/dispcurv.h"
#include "runtime/panels/exdthd.h"
#include "runtime/panels/gaborpnl.h"
#include "runtime/panels/hmsetup.h"
#include "runtime/panels/hwsetup.h"
#include "runtime/panels/irfsetpnl.h"
#include "runtime/panels/irfsetpnl2.h"
#include "runtime/panels/loadtxdata.h"
#include "runtime/panels/mainmenu.h"
#include "runtime/panels/measpanel.h"
#include "runtime/panels/meassetup.h"
#include "runtime/panels/panel.h"
#include "runtime/panels/sasw.h"

namespace sondera {
namespace {

struct PanelEntry {
  Panel panel;
  std::string_view name;
  std::string_view title;
  bool shown;
  std::span<const Control* const> controls;
};

/// In the order of Panel, so that a panel is found by its number.
constexpr PanelEntry kPanels[] = {
    {Panel::PANEL, "PANEL", "Sondera 4.1", true, panel::kControls},
    {Panel::MEASPANEL, "MEASPANEL", "Measurements", true, measpanel::kControls},
    {Panel::SASW, "SASW", "Interactive Masking", true, sasw::kControls},
    {Panel::DISPCURV, "DISPCURV", "Dispersion Curve", true, dispcurv::kControls},
    {Panel::EXDTHD, "EXDTHD", "F. Modeling and Inv. Analysis", true, exdthd::kControls},
    {Panel::HMSETUP, "HMSETUP", "Hardware and Measurement Setup", false, hmsetup::kControls},
    {Panel::HWSETUP, "HWSETUP", "Hardware Setup", true, hwsetup::kControls},
    {Panel::MEASSETUP, "MEASSETUP", "Measurement Setup", true, meassetup::kControls},
    {Panel::LOADTXDATA, "LOADTXDATA", "Load Measurement Data (Text Format)", false, loadtxdata::kControls},
    {Panel::LOAD2CHNL, "LOAD2CHNL", "Load Two-Channel Freq. Resp. Data", false, {}},
    {Panel::LOADEXD, "LOADEXD", "Load EXD File from Sondera Ver. 1", false, {}},
    {Panel::ASAVEDLG, "ASAVEDLG", "Automated Save", false, {}},
    {Panel::DEVPANEL, "DEVPANEL", "DAQ Boards Installed ... ", false, devpanel::kControls},
    {Panel::IRFSETPNL, "IRFSETPNL", "Parameters of IR Filtration (IRF)", false, irfsetpnl::kControls},
    {Panel::IRFSETPNL2, "IRFSETPNL2", "Parameters of IR Filtration (IRF)", false, irfsetpnl2::kControls},
    {Panel::GABORPNL, "GABORPNL", "Parameters of Gabor Spectrum", false, gaborpnl::kControls},
    {Panel::CDISPPNL, "CDISPPNL", "Representative Disp. Curve", false, {}},
    {Panel::TMGRAFPNL, "TMGRAFPNL", "Tomographic Image of Phase Velocity", false, {}},
    {Panel::FMODELING, "FMODELING", "Parameters for Forward Modeling Analysis", false, {}},
    {Panel::INVERSION, "INVERSION", "Parameters for Inversion Analysis", false, {}},
    {Panel::ANALRESULT, "ANALRESULT", "Tables of Analysis Results", false, {}},
    {Panel::PULSE, "PULSE", "Generation of Waveform", false, {}},
    {Panel::MSCALEPNL, "MSCALEPNL", "Axis Attributes", false, {}},
    {Panel::DSP_MSCALE, "DSP_MSCALE", "Axis Attributes", false, {}},
    {Panel::EXD_SCALE, "EXD_SCALE", "Axis Attributes", false, {}},
    {Panel::ABOUTPNL, "ABOUTPNL", "About Sondera 4", false, {}},
    {Panel::CHANGEID, "CHANGEID", "Change ID ...", false, {}},
    {Panel::CHANGEID_1, "CHANGEID_1", "Change ID ...", false, {}},
    {Panel::CONFIRMPNL, "CONFIRMPNL", "Sondera 3.0: Confirm", false, {}},
    {Panel::MESSAGEPNL, "MESSAGEPNL", "Sondera 3.0", false, {}},
    {Panel::MAINMENU, "MAINMENU", "Sondera Menu", true, mainmenu::kControls},
};
static_assert(std::size(kPanels) == kPanelCount);

constexpr bool InOrder() {
  for (std::size_t i = 0; i < std::size(kPanels); ++i) {
    if (static_cast<std::size_t>(kPanels[i].panel) != i) return false;
  }
  return true;
}
static_assert(InOrder());

const PanelEntry& EntryOf(Panel p) {
  return kPanels[static_cast<std::size_t>(p)];
}

}  // namespace

std::span<const Control* const> ControlsOf(Panel p) {
  return EntryOf(p).controls;
}
std::string_view PanelName(Panel p) {
  return EntryOf(p).name;
}
std::string_view DefaultPanelTitle(Panel p) {
  return EntryOf(p).title;
}
bool PanelStartsShown(Panel p) {
  return EntryOf(p).shown;
}

}  // namespace sondera
