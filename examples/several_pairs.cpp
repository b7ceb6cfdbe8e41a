// several_pairs.cpp - six time records of one blow, masks, the dispersion curves of five pairs, and the
// profile that fits them all, by the settings and buttons that a person would use. First it shows what
// becomes of the curves without masks. The result files of the inversion go to the current folder.
//   several_pairs <folder of make_records> <project file to write>
#include <cstdio>
#include <string>

#include "app/console.h"
#include "app/startup.h"
#include "curve_report.h"
#include "forward/site_files.h"
#include "panels/one_click.h"
#include "records/session.h"
#include "run/sweep_state.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/loadtxdata.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/dialogs.h"
#include "runtime/files.h"

namespace {

using namespace sondera;
using namespace sondera::example;

constexpr int kTimeHistories = 0;
constexpr double kTopFrequency = 500.0;  // Hz, end of the records' band

/// A pair (receivers counted from 1) with its two masks. The first, from 0 Hz on, covers lines without a
/// clear wave and says how many cycles have passed at its end; the second covers all above the band in which
/// the phase holds.
struct PairPlan {
  int reference, display;
  double bandBegin;  ///< Hz
  int jumps;
  double bandEnd;  ///< Hz
};
constexpr PairPlan kPairs[] = {{1, 2, 14.0, 0, 48.0},
                               {1, 3, 7.0, 0, 48.0},
                               {2, 4, 7.0, 0, 40.0},
                               {3, 5, 7.0, 1, 40.0},
                               {4, 6, 7.0, 1, 40.0}};

/// Layers of the model, m. The last one stands for the half-space and is thick, so that the mesh of the
/// solver finds ground down to two of the longest wavelengths.
const std::vector<double> kLayers = {2, 2, 3, 3, 4, 100};

bool Import(const std::string& folder) {
  using namespace loadtxdata;
  const SiteRecording recording = ExampleRecording();
  Commit(mainmenu::LOAD_TWO_CHNL_DATA);
  SetCtrlVal(DATATYPE, kTimeHistories);
  SetCtrlVal(NCHANS, 6);
  Commit(NCHANS);
  SetCtrlVal(MEASID, "six");
  const TextControl* const files[] = {&FNAMESRC, &FNAMECH1, &FNAMECH2, &FNAMECH3, &FNAMECH4, &FNAMECH5};
  const NumericControl* const locations[] = {&LOC_REC1, &LOC_REC2, &LOC_REC3,
                                             &LOC_REC4, &LOC_REC5, &LOC_REC6};
  SetCtrlVal(LOC_SRC, recording.source);
  for (std::size_t i = 0; i < std::size(files); ++i) {
    SetCtrlVal(*files[i], JoinPath(folder, FormatText("rec%zu.tim", i + 1)));
    SetCtrlVal(*locations[i], recording.receivers[i]);
  }
  const int result = Commit(LOAD);
  Commit(CANCEL);
  return result == 0;
}

bool AddMask(double from, double to, int jumps) {
  using namespace sasw;
  SetCtrlVal(MASKING_FREQINIT, from);
  SetCtrlVal(MASKING_FREQFINAL, to);
  SetCtrlVal(MASKING_JUMPNO, jumps);
  return Commit(MASKINGNEW) == 0;
}

/// Shows the pair and computes its curve from the phase as it was measured.
bool ComputeCurve(const PairPlan& plan, bool withMasks) {
  using namespace sasw;
  SetCtrlVal(DISPA_REFCHNL, plan.reference - 1);
  SetCtrlVal(DISPACHNL, plan.display - 1);
  Commit(DISPACHNL);
  SetCtrlIndex(TRACE_ONOFF, 0);
  SetCtrlVal(DISPCURV_OPTION, 0);
  if (withMasks && (!AddMask(0.0, plan.bandBegin, plan.jumps) || !AddMask(plan.bandEnd, kTopFrequency, 0)))
    return false;
  return Commit(MASKINGCALCDISP) == 0;
}

void PrintCurves(const char* title, const std::vector<CurvePoint>& truth) {
  std::printf("%s\n", title);
  PrintTableHead();
  for (const PMeasInfo& pair : MeasDB.pMeasList)
    if (pair.nDispPoints > 0) PrintTableRow(PairLabel(pair), PointsOf(pair), truth);
  PrintTableRow("the ground", truth, truth);
}

/// From the five curves to a profile: representative curves, starting profiles, inversion, result files.
bool Invert() {
  bool good = true;
  const Press press = [&good](const Control& control, long data) {
    if (Commit(control, data) < 0) good = false;
  };
  SetCtrlVal(hmsetup::PROJID, "site");  // first part of the names of the result files
  press(hmsetup::PROJID, 0);
  RunCalcVel(press);
  RunPreInversion(kLayers, press);
  RunInversionAndSave(press);
  FinishProgressLine();
  const std::string doubts = SweepReport();
  if (!doubts.empty()) std::fprintf(stderr, "several_pairs: in the last analysis: %s.\n", doubts.c_str());
  return good;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("several_pairs <folder of make_records> <project file>\n", stderr);
    return 1;
  }
  const std::string folder = argv[1];
  const std::vector<CurvePoint> truth = ReadCurve(JoinPath(folder, "true_curve.txt"));
  if (truth.empty()) {
    std::fprintf(stderr, "several_pairs: there are no records of make_records in %s\n", argv[1]);
    return 1;
  }
  InstallConsole({});
  StartSession();
  if (!Import(folder)) return 1;
  SetCtrlIndex(hmsetup::MEASIDLISTBOX, FindListItem(hmsetup::MEASIDLISTBOX, "six"));
  Commit(hmsetup::MEASIDLISTBOX);

  for (const PairPlan& plan : kPairs)
    if (!ComputeCurve(plan, false)) return 1;
  PrintCurves("Without masks, noise of the low band is counted as cycles:", truth);
  for (const PairPlan& plan : kPairs)
    if (!ComputeCurve(plan, true)) return 1;
  PrintCurves("With a mask up to 7 Hz and one above the band of each pair:", truth);
  std::fflush(stdout);

  session.projectFileName = argv[2];
  if (Commit(measpanel::F6) < 0) return 1;
  return Invert() ? 0 : 1;
}
