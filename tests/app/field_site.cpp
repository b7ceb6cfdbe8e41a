// field_site.cpp - see field_site.h.
#include "app/field_site.h"

#include "panels/one_click.h"
#include "records/inv_records.h"
#include "records/model_records.h"
#include "records/session.h"
#include "run/run_history.h"
#include "run/sweep_state.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/catalogue/loadtxdata.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/events.h"
#include "runtime/text_format.h"
#include "support/field_data.h"

namespace sondera::testing {

namespace {

const std::vector<MaskedPair> kWghsPairs = {{1, 3, 9.277, 0, 54.3},
                                            {2, 4, 16.113, 1, 48.0},
                                            {3, 5, 16.113, 2, 51.0},
                                            {4, 6, 9.277, 1, 27.5},
                                            {5, 6, 10.254, 1, 46.5}};

}  // namespace

const FieldSite kWghsThreePairs{
    "wghs_src-10m", -10.0, {0, 4, 10, 20, 30, 46}, {kWghsPairs.begin(), kWghsPairs.begin() + 3}};
const FieldSite kWghsFivePairs{"wghs_src-10m", -10.0, {0, 4, 10, 20, 30, 46}, kWghsPairs};
const FieldSite kOysandFivePairs{"oysand_src20m",
                                 0.0,
                                 {20, 24, 34, 40, 50, 66},
                                 {{1, 4, 7.324, 1, 51.5},
                                  {1, 5, 9.766, 2, 24.6},
                                  {2, 5, 9.766, 2, 27.5},
                                  {3, 6, 8.789, 2, 27.5},
                                  {4, 6, 7.324, 1, 27.5}}};

const std::vector<double> kSixLayers{1, 1.5, 2.5, 3, 4, 100}, kSevenLayers{1, 1.5, 2, 2.5, 3, 4, 100};

void FieldSiteTest::Import(const FieldSite& site) {
  using namespace loadtxdata;
  const std::string records = test::FieldData(site.folder)->string();
  Commit(mainmenu::LOAD_TWO_CHNL_DATA);
  SetCtrlVal(DATATYPE, 0);
  SetCtrlVal(NCHANS, 6);
  Commit(NCHANS);
  SetCtrlVal(MEASID, "six");
  const TextControl* const files[] = {&FNAMESRC, &FNAMECH1, &FNAMECH2, &FNAMECH3, &FNAMECH4, &FNAMECH5};
  const NumericControl* const places[] = {&LOC_REC1, &LOC_REC2, &LOC_REC3, &LOC_REC4, &LOC_REC5, &LOC_REC6};
  SetCtrlVal(LOC_SRC, site.source);
  for (std::size_t i = 0; i < 6; ++i) {
    SetCtrlVal(*files[i], records + FormatText("/rec%zu.tim", i + 1));
    SetCtrlVal(*places[i], site.locations[i]);
  }
  ASSERT_EQ(Commit(LOAD), 0);
  Commit(CANCEL);
  SetCtrlIndex(hmsetup::MEASIDLISTBOX, FindListItem(hmsetup::MEASIDLISTBOX, "six"));
  Commit(hmsetup::MEASIDLISTBOX);
}

void FieldSiteTest::ComputeCurve(const MaskedPair& pair) {
  using namespace sasw;
  SetCtrlVal(DISPA_REFCHNL, pair.reference - 1);
  SetCtrlVal(DISPACHNL, pair.display - 1);
  Commit(DISPACHNL);
  SetCtrlIndex(TRACE_ONOFF, 0);
  SetCtrlVal(DISPCURV_OPTION, 0);
  const auto addMask = [](double from, double to, int jumps) {
    SetCtrlVal(MASKING_FREQINIT, from);
    SetCtrlVal(MASKING_FREQFINAL, to);
    SetCtrlVal(MASKING_JUMPNO, jumps);
    ASSERT_EQ(Commit(MASKINGNEW), 0);
  };
  addMask(0.0, pair.bandBegin, pair.jumps);
  addMask(pair.bandEnd, 500.0, 0);
  ASSERT_EQ(Commit(MASKINGCALCDISP), 0);
}

void FieldSiteTest::Take(const FieldSite& site, const std::vector<double>& layers, double bulb) {
  session.projectFileName = "site.da";
  Import(site);
  for (const MaskedPair& pair : site.pairs) ComputeCurve(pair);
  const Press press = [bulb](const Control& control, long data) {
    EXPECT_EQ(Commit(control, data), 0) << control.name;
    if (&control == &exdthd::FMODELPARAM && bulb > 0.0) SetCtrlVal(fmodeling::E3D_FDB, bulb);
  };
  RunCalcVel(press);
  RunPreInversion(layers, press);
}

void FieldSiteTest::StartFromUniform(double Vs) {
  using namespace fmodeling;
  for (int row = 1; row <= FModelParam.nLayers; ++row) {
    SetTableCellVal(SOILPROFILE, row, 2, 0.0);
    SetTableCellVal(SOILPROFILE, row, 3, Vs);
  }
  ASSERT_EQ(Commit(UPDATE), 0);
}

void FieldSiteTest::SetDeviation(double part) {
  SetCtrlVal(inversion::CD_COV, 1);
  ASSERT_EQ(Commit(inversion::CD_COV), 0);
  SetCtrlVal(inversion::UF_VPH, part);
}

void FieldSiteTest::Invert() {
  complaints.clear();
  notes.clear();
  const int observer = AddWatcher([this](const Change& change) {
    if (change.control != &exdthd::STATUSMSG ||
        GetCtrlVal(exdthd::STATUSMSG).find("End of the iteration") != 0)
      return;
    if (!SweepReport().empty()) complaints.push_back(SweepReport());
    if (!sweepState.note.empty()) notes.push_back(sweepState.note);
  });
  const int result = Commit(inversion::PERFORMINV);
  RemoveObserver(observer);
  ASSERT_EQ(result, 0) << (frontEnd.messages.empty() ? "" : frontEnd.messages[0]);
}

std::vector<double> FieldSiteTest::Profile(int iteration) {
  std::vector<double> Vs;
  for (int l = 0; l < InvParam.nLayers; ++l) Vs.push_back(InvParam.Vs(iteration, l));
  return Vs;
}

std::vector<double> FieldSiteTest::Rms() {
  std::vector<double> rms;
  for (int k = 0; k <= LastIteration(); ++k) rms.push_back(InvParam.rms[k]);
  return rms;
}

std::vector<double> FieldSiteTest::Chi() {
  std::vector<double> chi;
  for (const IterationFit& fit : InversionHistories().back().iterations) chi.push_back(fit.chi);
  return chi;
}

std::vector<int> FieldSiteTest::Rows() {
  std::vector<int> rows;
  for (const IterationFit& fit : InversionHistories().back().iterations) rows.push_back(fit.rows);
  return rows;
}

int FieldSiteTest::LastIteration() {
  return GetNumListItems(exdthd::ITERNO) - 1;
}

}  // namespace sondera::testing
