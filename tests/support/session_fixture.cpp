// session_fixture.cpp - see session_fixture.h.
#include "support/session_fixture.h"

#include "app/startup.h"
#include "records/session.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/redraw.h"
#include "runtime/text_format.h"

namespace sondera::testing {
namespace {

/// Adds the id to a list where it is missing, and selects it.
void SelectID(const RingControl& list, const std::string& measID) {
  if (FindListItem(list, measID) < 0) InsertListItem(list, -1, measID, GetNumListItems(list));
  SetCtrlIndex(list, FindListItem(list, measID));
}

void FillChannels(const RingControl& ring, int nChannels, int selected) {
  ClearListCtrl(ring);
  for (int c = 0; c < nChannels; ++c) InsertListItem(ring, -1, FormatText("%3d", c + 1), c);
  SetCtrlVal(ring, selected);
}

}  // namespace

void ResetEverything() {
  ResetProgramState();
  InstallRedrawHandlers({});
}

TestMeasurement AddMeasurement(const MeasurementPlan& plan) {
  TestMeasurement m;
  m.projID = plan.projID;
  m.measID = plan.measID;
  m.key = InsertNewIDInfo(plan.projID, plan.measID);
  m.hw = SetupHWSetupArrays(m.key, plan.nChannels);
  m.hw->nLines = plan.nLines;
  m.hw->deltaT = plan.deltaT;
  m.hw->freqSpan = m.hw->stopFreq = 0.5 / plan.deltaT;
  m.hw->deltaF = m.hw->freqSpan / plan.nLines;
  m.hw->timeLength = (2 * plan.nLines - 1) * plan.deltaT;
  m.setup = SetupMSetupArrays(m.key);
  m.setup->srcLoc = plan.srcLoc;
  m.setup->lengthUnit = plan.lengthUnit;
  for (int c = 0; c < plan.nChannels; ++c) m.setup->recLoc[c] = plan.srcLoc + (c + 1) * plan.spacing;
  m.raw = SetupRawDataArrays(m.key);
  return m;
}

void SelectPair(const TestMeasurement& m, int refChan, int dspChan) {
  session.curProjID = m.projID;
  session.curMeasID = m.measID;
  SetCtrlVal(hmsetup::PROJID, m.projID);
  SetCtrlVal(hmsetup::MEASID, m.measID);
  for (const RingControl* list : {&sasw::DISPAID, &sasw::DISPBID, &measpanel::DISPAID, &measpanel::DISPBID})
    SelectID(*list, m.measID);
  for (const RingControl* ring : {&sasw::DISPA_REFCHNL, &measpanel::DISPA_REFCHNL})
    FillChannels(*ring, m.hw->nChannels, refChan);
  for (const RingControl* ring : {&sasw::DISPACHNL, &measpanel::DISPACHNL})
    FillChannels(*ring, m.hw->nChannels, dspChan);
  for (const RingControl* ring : {&sasw::DISPB_REFCHNL, &measpanel::DISPB_REFCHNL})
    FillChannels(*ring, m.hw->nChannels, 0);
  for (const RingControl* ring : {&sasw::DISPBCHNL, &measpanel::DISPBCHNL})
    FillChannels(*ring, m.hw->nChannels, 1);
}

std::vector<std::string> LabelsOf(const ListControl& list) {
  std::vector<std::string> labels;
  for (int i = 0; i < GetNumListItems(list); ++i) labels.push_back(GetLabelFromIndex(list, i));
  return labels;
}

std::string SessionTest::OnlyMessage() const {
  if (frontEnd.messages.size() == 1) return frontEnd.messages.front();
  return frontEnd.messages.empty() ? "(no message)" : "(more than one message)";
}
std::string SessionTest::OnlyMessageHead() const {
  const std::string text = OnlyMessage();
  return text.substr(0, text.find('\n'));
}
std::string SessionTest::OnlyMessageCause() const {
  const std::string text = OnlyMessage();
  const std::size_t end = text.find('\n');
  return end == std::string::npos ? std::string() : text.substr(end + 1);
}

}  // namespace sondera::testing
