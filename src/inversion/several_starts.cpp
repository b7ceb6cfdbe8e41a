// several_starts.cpp - see several_starts.h.
#include "inversion/several_starts.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>

#include "inversion/sensitivity.h"
#include "inversion/update_bounds.h"
#include "records/inv_records.h"
#include "run/system_state.h"
#include "runtime/findings.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr double kRayleighOverShear = 0.93;

/// Saves the state that the starts change, and restores it.
class RunKeeper {
 public:
  explicit RunKeeper(Run& run)
      : run_(run),
        model_(PresentModel(run.ground, run.parameters)),
        prior_(run.parameters.rModelPrior),
        out_(run.observations.iNoVelocity),
        switches_(run.switches.reportSwitch),
        iteration_(run.course.iCurIterNo),
        traps_(run.course.iTrapCount) {
    run.switches.withoutResults = true;
    run.switches.reportSwitch = {};
  }
  ~RunKeeper() {
    PutModelBack(model_, run_.ground, run_.parameters);
    run_.parameters.rModelPrior = prior_;
    run_.observations.iNoVelocity = out_;
    run_.switches.reportSwitch = switches_;
    run_.course.iCurIterNo = iteration_;
    run_.course.iTrapCount = traps_;
    run_.switches.withoutResults = false;
  }
  RunKeeper(const RunKeeper&) = delete;
  RunKeeper& operator=(const RunKeeper&) = delete;

 private:
  Run& run_;
  ModelState model_;
  OffsetVector<double> prior_;
  OffsetVector<int> out_;
  decltype(run_.switches.reportSwitch) switches_;
  int iteration_, traps_;
};

std::vector<double> PresentVs(const Run& run) {
  std::vector<double> Vs;
  for (int l = 1; l <= run.ground.nLayersCur; ++l) Vs.push_back(run.ground.layerVs[l]);
  return Vs;
}

bool AnyVsIsFree(const Run& run) {
  for (int l = 1; l <= run.ground.nLayersCur; ++l)
    if (run.parameters.MapEntry(kQuantityVs, l) != 0) return true;
  return false;
}

void PutUniform(Run& run, const ModelState& given, double Vs, const InversionSettings& settings) {
  PutModelBack(given, run.ground, run.parameters);
  for (int l = 1; l <= run.ground.nLayersCur; ++l) {
    const int p = run.parameters.MapEntry(kQuantityVs, l);
    if (p != 0) run.parameters.rModel[p] = run.ground.layerVs[l] = Vs;
  }
  RenewDensityAndNu(settings, run.ground);
  LayersFromModel(run.parameters, run.ground);
  run.parameters.rModelPrior = run.parameters.rModel;
  std::fill(run.observations.iNoVelocity.begin(), run.observations.iNoVelocity.end(), 0);
  run.course.iTrapCount = 0;
}

/// All iterations from the present model. false when halted, or after a message.
bool IterateFrom(Run& run, int number, int iterations, const InversionSettings& settings,
                 RunListener& listener, Evaluation& e) {
  run.course.iCurIterNo = 0;
  e.Sweep(run, listener);
  bool going = !e.halted;
  for (int k = 1; going && k <= iterations; ++k) {
    run.course.iCurIterNo = k;
    listener.Status(
        FormatText("Inv. Analysis: start %d of %zu, Iter. No = %d", number, std::size(kStartRatios) + 1, k));
    const Advance advance = AdvanceModel(run, e, settings, listener);
    if (advance == Advance::kKept) break;
    if (advance == Advance::kHalted) e.halted = true;
    going = advance == Advance::kMoved && !e.halted;
  }
  e.Judge(run);
  return going;
}

void FindExtremes() {
  StartSpread& spread = inversionState.spread;
  spread.lowest = spread.highest = spread.results.front().Vs;
  for (const StartResult& r : spread.results) {
    for (std::size_t l = 0; l < r.Vs.size(); ++l) {
      spread.lowest[l] = std::min(spread.lowest[l], r.Vs[l]);
      spread.highest[l] = std::max(spread.highest[l], r.Vs[l]);
    }
  }
}

/// The same in a sentence.
void NoteSpread() {
  const StartSpread& spread = inversionState.spread;
  std::string layers;
  for (std::size_t l = 0; l < spread.lowest.size(); ++l)
    layers += FormatText("%s%.0f to %.0f", l > 0 ? ", " : "", spread.lowest[l], spread.highest[l]);
  AddNote(FormatText("from %zu starts the Vs of the layers end at ", spread.results.size()) + layers);
}

}  // namespace

double SiteVelocity(const Observations& observations) {
  double sum = 0.0;
  int n = 0;
  for (int i = 1; i <= observations.nObsRows; ++i) {
    if (!(observations.runVel[i] > 0.0)) continue;
    sum += observations.runVel[i];
    ++n;
  }
  return n > 0 ? sum / n / kRayleighOverShear : 0.0;
}

void ClearStartSpread() {
  inversionState.spread = StartSpread{};
}

Refusal TryOtherStarts(Run& run, const ModelState& given, const Evaluation& end, int iterations,
                       const InversionSettings& settings, RunListener& listener) {
  StartSpread& spread = inversionState.spread;
  const double site = SiteVelocity(run.observations);
  if (!AnyVsIsFree(run) || site <= 0.0) return {};
  spread = {run.course.iCurIterNo, {{0.0, end.chi, PresentVs(run)}}, {}, {}};
  const RunKeeper keeper(run);
  int number = 1;
  for (const double ratio : kStartRatios) {
    Evaluation e;
    PutUniform(run, given, ratio * site, settings);
    const bool finished = IterateFrom(run, ++number, iterations, settings, listener, e);
    if (e.halted) {
      ClearStartSpread();
      return Refusal::WithoutReason();
    }
    if (finished && std::isfinite(e.chi) && e.chi >= 0.0)
      spread.results.push_back({ratio * site, e.chi, PresentVs(run)});
  }
  FindExtremes();
  NoteSpread();
  return {};
}

std::string StartSpreadTable(int entry) {
  const StartSpread& spread = inversionState.spread;
  // The entry may now belong to another run: a project that was opened, or a later inversion.
  if (spread.lowest.empty() || entry != spread.iteration || entry > InvParam.Vs.rowHi()) return {};
  const std::vector<double>& Vs = spread.results.front().Vs;
  if (InvParam.nLayers != static_cast<int>(Vs.size()) || InvParam.nLayers > InvParam.Vs.colHi() + 1)
    return {};
  for (std::size_t l = 0; l < Vs.size(); ++l)
    if (InvParam.Vs(entry, static_cast<int>(l)) != Vs[l]) return {};

  std::string text =
      "\nSpread of the profiles from several starts\nStart            chi\n------------ -------\n";
  for (const StartResult& r : spread.results)
    text += (r.start > 0.0 ? FormatText("%-12.1lf", r.start) : FormatText("%-12s", "given model")) +
            FormatText(" %7.2lf\n", r.chi);
  text += "\nLayer No.      Cs(Lowest)   Cs(Highest)\n---------     -----------   -----------\n";
  for (std::size_t l = 0; l < Vs.size(); ++l)
    text += FormatText("%5zu         %11.3lf   %11.3lf\n", l + 1, spread.lowest[l], spread.highest[l]);
  return text;
}

}  // namespace sondera
