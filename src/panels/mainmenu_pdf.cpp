// mainmenu_pdf.cpp - see mainmenu_pdf.h.
#include "panels/mainmenu_pdf.h"

#include <algorithm>

#include "inversion/run_doubts.h"
#include "panels/entry_lists.h"
#include "panels/mainmenu_project.h"
#include "records/inv_records.h"
#include "records/model_records.h"
#include "records/session.h"
#include "report/fit_curves.h"
#include "run/model_numbers.h"
#include "run/run_history.h"
#include "run/run_state.h"
#include "runtime/atomic_writer.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/dialogs.h"
#include "runtime/findings.h"
#include "runtime/paths.h"
#include "runtime/text_format.h"
#include "runtime/version.h"
#include "runtime/written_files.h"

namespace sondera {
namespace {

constexpr int kLongestAnswer = 200;

std::string LabelOfValue(const RingControl& ring, int value) {
  for (int i = 0; i < GetNumListItems(ring); ++i)
    if (GetValueFromIndex(ring, i) == value) return GetLabelFromIndex(ring, i);
  return {};
}

std::string SolverName(int analysis) {
  switch (analysis) {
    case 2:
      return "plane waves";
    case 3:
      return "point load, wave field";
    case 4:
      return "point load, wave field on a graded mesh";
    default:
      return "not known";
  }
}

std::string StartName(int selected) {
  if (selected == 0) return "the given model";
  return selected > 0 ? FormatText("iteration %d of the run before", selected)
                      : FormatText("starting profile %d", -selected);
}

std::string HashOfProject() {
  AtomicWriter bytes{AtomicWriter::DigestOnly{}};
  StoreProject(bytes);
  return FormatText("%016llx", static_cast<unsigned long long>(bytes.Digest()));
}

std::string Range(double from, double to, const std::string& unit) {
  return FormatText("%.6g to %.6g %s", from, to, unit.c_str());
}

/// The project does not hold the deviations that a run used.
std::string WeightedMisfit(int iteration) {
  if (InversionHistories().empty()) return "known only to the session that computed the profile";
  for (const IterationFit& fit : InversionHistories().back().iterations)
    if (fit.iteration == iteration && fit.chi >= 0.0) return FormatText("%.3g", fit.chi);
  return "not known";
}

void AddInversionFacts(const PdfReport& report, std::vector<Fact>& facts) {
  const ProfileTable* profile = ReportedProfile(report);
  if (!profile || profile->iteration < 0) return;
  const InvRecord& r = InvParam;
  const std::string unit = UnitSymbol(report.tables.lengthUnit);
  facts.push_back({"Solver", SolverName(TheoDispInfo.analysis)});
  facts.push_back({"Data", FModelParam.dispCurvType == 1 ? "the representative curve" : "array curves"});
  facts.push_back({"Starting model", StartName(r.iSelected)});
  facts.push_back({"What is varied", LabelOfValue(inversion::MODELPARM, r.MODELPARM)});
  facts.push_back(
      {"Covariance of the data", GetLabelFromIndex(inversion::CD_COV, GetCtrlIndex(inversion::CD_COV))});
  facts.push_back(
      {"Covariance of the model", GetLabelFromIndex(inversion::CM_COV, GetCtrlIndex(inversion::CM_COV)) +
                                      FormatText(": %.4g for thickness, %.4g for Vs", r.ufH, r.ufVs)});
  facts.push_back({"Bounds of thickness", Range(r.minH, r.maxH, unit)});
  facts.push_back({"Bounds of Vs", Range(r.minVs, r.maxVs, unit + "/s")});
  std::string fixed;
  for (std::size_t i = 0; i < profile->layers.size(); ++i)
    if (profile->layers[i].isFixed) fixed += (fixed.empty() ? "" : ", ") + std::to_string(i + 1);
  facts.push_back({"Layers kept", fixed.empty() ? "none" : fixed});
  facts.push_back({"Weighted misfit", WeightedMisfit(profile->iteration)});
  facts.push_back({"Iterations",
                   FormatText("%d wanted; this report is of iteration %d", r.nEntries, profile->iteration)});
}

std::vector<Fact> MakingOf(const PdfReport& report) {
  std::vector<Fact> facts;
  facts.push_back({"Program", std::string(kAppTitle)});
  facts.push_back({"Project", report.projectFile.empty() ? "never saved" : report.projectFile});
  facts.push_back({"Hash of the project",
                   HashOfProject() + (ProjectDiffersFromSaved() ? ", with changes that are not saved" : "")});
  AddInversionFacts(report, facts);
  std::string files;
  for (const std::string& file : WrittenFiles()) files += (files.empty() ? "" : ", ") + FileNameOf(file);
  if (!files.empty()) facts.push_back({"Files of this session", files});
  return facts;
}

}  // namespace

Refusal CollectPdfReport(const PdfWishes& wishes, PdfReport& report) {
  TableChoices choices;
  choices.iterations = StoredEntries();
  if (wishes.entry) {
    const auto chosen = std::find(choices.iterations.begin(), choices.iterations.end(), *wishes.entry);
    if (chosen == choices.iterations.end())
      return FormatText("The project has no iteration %d.", *wishes.entry);
    choices.iterations.erase(chosen + 1, choices.iterations.end());
  }
  int count = 0;
  choices.fixedLayers = RetrieveLayerNoFromStr(GetCtrlVal(inversion::CONST_MP_VS), count);
  choices.run = &run;
  report.tables = CollectTables(choices);
  report.projectFile = session.projectFileName;
  report.texts = ReadSiteTexts(session.projectFileName);
  report.longestWavelength = LongestWavelength();
  const ProfileTable* profile = ReportedProfile(report);
  if (profile && profile->iteration >= 0) {
    report.measured = MeasuredCurves();
    report.computed = ComputedCurves(profile->iteration);
  }
  report.making = MakingOf(report);
  DoubtResults();
  if (profile && profile->iteration >= 0 && InversionHistories().empty()) DoubtEntry(profile->iteration);
  for (const Finding& finding : Findings())
    if (finding.kind == FindingKind::Doubt) report.doubts.push_back(finding.text);
  return {};
}

int PrintPdfReport(const std::string& path, const PdfWishes& wishes) {
  if (!HavePdfAndPng()) return Refuse(kNoPdfAndPng);
  PdfReport report;
  if (const Refusal refusal = CollectPdfReport(wishes, report)) return ShowRefusal(refusal);
  SetWaitCursor(true);
  const Refusal refusal = WritePdfReport(path, report, wishes.paper);
  SetWaitCursor(false);
  return ShowRefusal(refusal);
}

void AskForSiteTexts() {
  const std::string file = SiteTextsFile(session.projectFileName);
  if (file.empty() || MayExist(file)) return;
  struct Question {
    const char* text;
    std::string SiteTexts::*answer;
  };
  constexpr Question kQuestions[] = {{"Title of the report:", &SiteTexts::title},
                                     {"Site:", &SiteTexts::site},
                                     {"Client:", &SiteTexts::client},
                                     {"Operator:", &SiteTexts::operatorName},
                                     {"Date of the measurements:", &SiteTexts::date}};
  SiteTexts texts;
  bool any = false;
  for (const Question& question : kQuestions) {
    const std::optional<std::string> answer = PromptPopup(session.appTitle, question.text, kLongestAnswer);
    if (!answer) break;
    texts.*question.answer = *answer;
    any = true;
  }
  if (any) ShowRefusal(WriteSiteTexts(session.projectFileName, texts));
}

}  // namespace sondera
