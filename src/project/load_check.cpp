// load_check.cpp - see load_check.h.
#include "project/load_check.h"

#include <algorithm>

#include "records/measdb.h"
#include "records/measurement_rules.h"
#include "runtime/findings.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

bool HasData(const RawData& raw) {
  return std::any_of(kRawBlocks.begin(), kRawBlocks.end(), [&](auto block) {
    const std::vector<double>& values = raw.*block;
    return std::any_of(values.begin(), values.end(), [](double v) { return v != 0.0; });
  });
}

/// An empty measurement has no places and often no board yet; it gives no curve anyway.
void CheckMeasurement(const IDInfo& id, std::vector<std::string>& doubts) {
  const RawData* raw = MeasDB.rawDataList.at(MeasDB.rawDataList.findKey(id.key));
  if (!raw || !HasData(*raw)) return;
  const std::string name = "The measurement " + id.MeasID + " ", fault = MeasurementFault(id.key);
  if (!fault.empty()) {
    doubts.push_back(name + fault + ": no curve is made from it.");
    return;
  }
  const MeasSetup* setup = MeasDB.measSetupList.at(MeasDB.measSetupList.findKey(id.key));
  const std::string places = setup ? ReceiversFault(*setup) : std::string();
  if (!places.empty()) doubts.push_back(name + places + ": they give no curve together.");
}

/// Counts records of one kind on channels that their measurement does not have, and names the first.
template <class List>
void CheckChannels(const List& list, const char* what, std::vector<std::string>& doubts) {
  int count = 0;
  std::string first;
  for (const auto& record : list) {
    const int position = MeasDB.idList.findKey(record.key);
    const HWSetup* hw = MeasDB.hwSetupList.at(MeasDB.hwSetupList.findKey(record.key));
    if (position < 0 || !hw) continue;
    if (std::min(record.refChan, record.dspChan) >= 0 &&
        std::max(record.refChan, record.dspChan) < hw->nChannels)
      continue;
    if (++count > 1) continue;
    first = FormatText("the channels %lld and %lld of the measurement %s, which has %d", record.refChan + 1LL,
                       record.dspChan + 1LL, MeasDB.idList.at(position)->MeasID.c_str(), hw->nChannels);
  }
  if (count == 1) doubts.push_back(FormatText("One %s is on ", what) + first + ": it is not used.");
  if (count > 1)
    doubts.push_back(FormatText("%d %ss are on channels that do not exist, the first on ", count, what) +
                     first + ": they are not used.");
}

void CheckCurves(std::vector<std::string>& doubts) {
  for (const PMeasInfo& pair : MeasDB.pMeasList) {
    if (CurveIsFinite(pair)) continue;
    std::string projID, measID;
    GetIDfromKey(pair.key, projID, measID);
    doubts.push_back(
        FormatText("The curve of the channels %lld and %lld of the measurement %s has points that "
                   "are not finite: they do not count.",
                   pair.refChan + 1LL, pair.dspChan + 1LL, measID.c_str()));
  }
}

}  // namespace

void DropLinesWithoutData(SectionReader& file) {
  for (const IDInfo& id : MeasDB.idList) {
    HWSetup* hw = MeasDB.hwSetupList.at(MeasDB.hwSetupList.findKey(id.key));
    if (!hw || hw->nLines == 0 || MeasDB.rawDataList.findKey(id.key) > 0) continue;
    file.Note(FormatText("The measurement %s has %d lines and no raw data; it counts as one without lines.",
                         id.MeasID.c_str(), hw->nLines));
    hw->nLines = 0;
  }
}

std::vector<std::string> ProjectDoubts(const SectionReader& file) {
  std::vector<std::string> doubts;
  for (const IDInfo& id : MeasDB.idList) CheckMeasurement(id, doubts);
  CheckChannels(MeasDB.maskingList, "mask", doubts);
  CheckChannels(MeasDB.pMeasList, "pair record", doubts);
  CheckChannels(MeasDB.aDispList, "array curve", doubts);
  CheckCurves(doubts);
  if (!file.NotFinite().empty()) doubts.insert(doubts.begin(), file.NotFinite());
  if (doubts.size() > kMostDoubts) {
    const std::size_t more = doubts.size() - (kMostDoubts - 1);
    doubts.resize(kMostDoubts - 1);
    doubts.push_back(FormatText("There are %zu more of these.", more));
  }
  return doubts;
}

LoadOutcome OutcomeOf(const std::string& notWhole, const SectionReader& file) {
  const bool whole = file.Trouble().empty();
  const std::vector<std::string> doubts = ProjectDoubts(file);
  if (whole && doubts.empty()) return {};
  std::string text = whole ? "The file was read, but not all of it can be used." : notWhole;
  for (const std::string& doubt : doubts) {
    AddDoubt(doubt);
    text += "\n" + doubt;
  }
  return {whole, text};
}

}  // namespace sondera
