// catalogue.cpp - the table of all panels. To add a panel, add an entry of Panel and a header of its own, and
// name it here; catalogue_test compares the three.
#include "runtime/control.h"
#include "runtime/version.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string>

#include "runtime/catalogue/aboutpnl.h"
#include "runtime/catalogue/analresult.h"
#include "runtime/catalogue/asavedlg.h"
#include "runtime/catalogue/cdisppnl.h"
#include "runtime/catalogue/changeid.h"
#include "runtime/catalogue/changeid_1.h"
#include "runtime/catalogue/confirmpnl.h"
#include "runtime/catalogue/devpanel.h"
#include "runtime/catalogue/dispcurv.h"
#include "runtime/catalogue/dsp_mscale.h"
#include "runtime/catalogue/exd_scale.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/gaborpnl.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/hwsetup.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/catalogue/irfsetpnl.h"
#include "runtime/catalogue/irfsetpnl2.h"
#include "runtime/catalogue/load2chnl.h"
#include "runtime/catalogue/loadexd.h"
#include "runtime/catalogue/loadshots.h"
#include "runtime/catalogue/loadtxdata.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/meassetup.h"
#include "runtime/catalogue/messagepnl.h"
#include "runtime/catalogue/mscalepnl.h"
#include "runtime/catalogue/panel.h"
#include "runtime/catalogue/pulse.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/catalogue/tmgrafpnl.h"

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
    {Panel::PANEL, "PANEL", kAppTitle, true, panel::kControls},
    {Panel::MEASPANEL, "MEASPANEL", "Measurements", true, measpanel::kControls},
    {Panel::SASW, "SASW", "Interactive Masking", true, sasw::kControls},
    {Panel::DISPCURV, "DISPCURV", "Dispersion Curve", true, dispcurv::kControls},
    {Panel::EXDTHD, "EXDTHD", "F. Modeling and Inv. Analysis", true, exdthd::kControls},
    {Panel::HMSETUP, "HMSETUP", "Hardware and Measurement Setup", false, hmsetup::kControls},
    {Panel::HWSETUP, "HWSETUP", "Hardware Setup", true, hwsetup::kControls},
    {Panel::MEASSETUP, "MEASSETUP", "Measurement Setup", true, meassetup::kControls},
    {Panel::LOADTXDATA, "LOADTXDATA", "Load Measurement Data (Text Format)", false, loadtxdata::kControls},
    {Panel::LOAD2CHNL, "LOAD2CHNL", "Load Two-Channel Freq. Resp. Data", false, load2chnl::kControls},
    {Panel::LOADEXD, "LOADEXD", "Load EXD File from Sondera Ver. 1", false, loadexd::kControls},
    {Panel::ASAVEDLG, "ASAVEDLG", "Automated Save", false, asavedlg::kControls},
    {Panel::DEVPANEL, "DEVPANEL", "DAQ Boards Installed ... ", false, devpanel::kControls},
    {Panel::IRFSETPNL, "IRFSETPNL", "Parameters of IR Filtration (IRF)", false, irfsetpnl::kControls},
    {Panel::IRFSETPNL2, "IRFSETPNL2", "Parameters of IR Filtration (IRF)", false, irfsetpnl2::kControls},
    {Panel::GABORPNL, "GABORPNL", "Parameters of Gabor Spectrum", false, gaborpnl::kControls},
    {Panel::CDISPPNL, "CDISPPNL", "Representative Disp. Curve", false, cdisppnl::kControls},
    {Panel::TMGRAFPNL, "TMGRAFPNL", "Tomographic Image of Phase Velocity", false, tmgrafpnl::kControls},
    {Panel::FMODELING, "FMODELING", "Parameters for Forward Modeling Analysis", false, fmodeling::kControls},
    {Panel::INVERSION, "INVERSION", "Parameters for Inversion Analysis", false, inversion::kControls},
    {Panel::ANALRESULT, "ANALRESULT", "Tables of Analysis Results", false, analresult::kControls},
    {Panel::PULSE, "PULSE", "Generation of Waveform", false, pulse::kControls},
    {Panel::MSCALEPNL, "MSCALEPNL", "Axis Attributes", false, mscalepnl::kControls},
    {Panel::DSP_MSCALE, "DSP_MSCALE", "Axis Attributes", false, dsp_mscale::kControls},
    {Panel::EXD_SCALE, "EXD_SCALE", "Axis Attributes", false, exd_scale::kControls},
    {Panel::ABOUTPNL, "ABOUTPNL", "About Sondera 4", false, aboutpnl::kControls},
    {Panel::CHANGEID, "CHANGEID", "Change ID ...", false, changeid::kControls},
    {Panel::CHANGEID_1, "CHANGEID_1", "Change ID ...", false, changeid_1::kControls},
    {Panel::CONFIRMPNL, "CONFIRMPNL", "Sondera 3.0: Confirm", false, confirmpnl::kControls},
    {Panel::MESSAGEPNL, "MESSAGEPNL", "Sondera 3.0", false, messagepnl::kControls},
    {Panel::MAINMENU, "MAINMENU", "Sondera Menu", true, mainmenu::kControls},
    {Panel::LOADSHOTS, "LOADSHOTS", "Load Shots of a Line", false, loadshots::kControls},
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
ControlId FindControl(Panel p, std::string_view name) {
  for (ControlId c : ControlsOf(p))
    if (c->name == name) return c;
  return nullptr;
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

Panel WindowOf(Panel p) {
  switch (p) {
    case Panel::MEASPANEL:
    case Panel::SASW:
    case Panel::DISPCURV:
    case Panel::EXDTHD:
      return Panel::PANEL;
    case Panel::HWSETUP:
    case Panel::MEASSETUP:
      return Panel::HMSETUP;
    default:
      return p;
  }
}

std::string SpokenName(const Control& c) {
  if (!c.facts.spoken.empty()) return std::string(c.facts.spoken);
  std::string name;
  if (c.kind == ControlKind::Menu) {
    for (const char letter : c.text) name += letter == '/' ? std::string(", ") : std::string(1, letter);
    name += ", ";
  }
  std::string_view caption = c.label;
  caption.remove_prefix(std::min(caption.find_first_not_of(" -"), caption.size()));
  const std::size_t last = caption.find_last_not_of(" :=");
  return name.append(caption.substr(0, last == std::string_view::npos ? 0 : last + 1));
}

}  // namespace sondera
