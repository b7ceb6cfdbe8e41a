// analresult.cpp - see analresult.h.
#include "panels/analresult.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "inversion/several_starts.h"
#include "panels/table_choices.h"
#include "project/export_tables.h"
#include "records/kinds.h"
#include "records/model_records.h"
#include "records/session.h"
#include "run/result_entries.h"
#include "run/result_files.h"
#include "runtime/atomic_writer.h"
#include "runtime/catalogue/analresult.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/dialogs.h"
#include "runtime/paths.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr const char* kNothingComputed = "no iteration\n";
constexpr double kSameAbscissa = 1e-9;  // relative

/// An entry of a record, with its counters limited to the tables.
struct StoredEntry {
  const InvRecord& record;
  int index;  ///< number as in the lists
  int entry;
  bool there;

  StoredEntry(const InvRecord& r, int listIndex)
      : record(r), index(listIndex), entry(EntryOfIndex(listIndex)), there(entry <= r.rms.hi()) {}
  int Layers() const { return there ? std::min(record.nLayers, record.H.colHi() + 1) : 0; }
  int Curves() const { return std::max(record.nCurves, 1); }
  int Points() const {
    if (!there) return 0;
    return std::min({record.nPoints, record.freq.colHi() + 1, (record.vel.colHi() + 1) / Curves()});
  }
  double Band(int i) const { return 2.0 * PosteriorDeviation(index, i); }
};

void AppendModel(const StoredEntry& e, std::string& text) {
  text +=
      "Layer No.    Depth       Thick.        Cp           Cs       Cs(Upper)    Cs(Lower)     Rho          "
      "Nu       damping\n"
      "--------- ----------- ----------- ----------- ----------- ----------- ----------- ----------- "
      "----------- -----------\n";
  for (int i = 0; i < e.Layers(); ++i) {
    const double Vs = e.record.Vs(e.entry, i), band = e.Band(i);
    text += FormatText("%5ld  ", static_cast<long>(i + 1)) + ModelTableRow(e.index, i, Vs + band, Vs - band);
  }
  if (e.index > 0) text += StartSpreadTable(e.index);
}

void AppendProfile(const StoredEntry& e, std::string& text) {
  text +=
      "    Velocity    Upper V.    Lower V.      Depth\n"
      "    --------    --------    --------    ---------\n";
  double depth = 0.0, Vs = 0.0, upper = 0.0, lower = 0.0;
  const auto row = [&] { text += FormatText("%12.5lf%12.5lf%12.5lf %12.5lf\n", Vs, upper, lower, depth); };
  for (int i = 0; i < e.Layers(); ++i) {
    Vs = e.record.Vs(e.entry, i);
    upper = Vs + e.Band(i);
    lower = Vs - e.Band(i);
    row();
    depth += e.record.H(e.entry, i);
    row();
  }
  if (e.Layers() > 0) row();
  text += "\n";
}

double At(const std::vector<double>& v, int i) {
  return i >= 0 && static_cast<std::size_t>(i) < v.size() ? v[static_cast<std::size_t>(i)] : 0.0;
}

bool SameAbscissa(double a, double b) {
  return std::fabs(a - b) <= kSameAbscissa * std::fabs(a);
}

/// Measured velocity at a place of the curves, for every entry; 0 where the loaded curves have no such point.
double Observed(const StoredEntry& e, bool global, int point, int at) {
  const ModelRecord& m = FModelParam;
  if (!global) return SameAbscissa(e.record.freq(e.entry, point), At(m.freq, point)) ? At(m.vel, at) : 0.0;
  const bool same = TheoDispInfo.analysis == kPlaneWaves
                        ? SameAbscissa(e.record.waveL(e.entry, point), At(m.globalWlen, point))
                        : SameAbscissa(e.record.freq(e.entry, point), At(m.globalFreq, point));
  return same ? At(m.globalVel, at) : 0.0;
}

double Ratio(double value, double by) {
  return by > 0.0 ? value / by : 0.0;
}

void AppendPlaneWaveCurve(const StoredEntry& e, std::string& text) {
  text += "wavelength  freq(obs)   vel(obs)  freq(cal) vel(cal)   \n";
  for (int p = 0; p < e.Points(); ++p) {
    const double wavelength = e.record.waveL(e.entry, p), computed = e.record.vel(e.entry, p);
    const double observed = Observed(e, true, p, p);
    text += FormatText("%11.5lf %11.5lf %11.5lf %11.5lf %11.5lf\n", wavelength, Ratio(observed, wavelength),
                       observed, Ratio(computed, wavelength), computed);
  }
}

void AppendPointLoadCurve(const StoredEntry& e, std::string& text) {
  text += "     freq.    wavel(obs)   vel(obs)  ";
  for (int c = 0; c < e.Curves(); ++c) text += "wavel(cal) vel(cal)   ";
  text += "\n";
  for (int p = 0; p < e.Points(); ++p) {
    const double frequency = e.record.freq(e.entry, p), observed = Observed(e, true, p, p);
    text += FormatText("%11.5lf %11.5lf %11.5lf %11.5lf %11.5lf\n", frequency, Ratio(observed, frequency),
                       observed, e.record.waveL(e.entry, p), e.record.vel(e.entry, p));
  }
}

void AppendArrayCurves(const StoredEntry& e, std::string& text) {
  const int curves = e.Curves();
  text += "      freq. ";
  for (int c = 0; c < curves; ++c) text += "   vel(obs)    vel(cal) ";
  text += "\n";
  for (int p = 0; p < e.Points(); ++p) {
    text += FormatText("%11.5lf ", e.record.freq(e.entry, p));
    for (int at = p * curves; at < (p + 1) * curves; ++at) {
      const double observed = Observed(e, false, p, at), computed = e.record.vel(e.entry, at);
      const bool empty = observed == 0.0 && computed == 0.0;
      text += empty ? kNoVelocities : FormatText("%11.5lf %11.5lf ", observed, computed);
    }
    text += "\n";
  }
  text += "...................................................\n\n";
  for (int c = 0; c < curves; ++c) text += " waveL(obs)   vel(obs)  waveL(calc)   vel(calc)   ";
  text += "\n";
  for (int p = 0; p < e.Points(); ++p) {
    const double frequency = e.record.freq(e.entry, p);
    for (int at = p * curves; at < (p + 1) * curves; ++at) {
      const double observed = Observed(e, false, p, at), computed = e.record.vel(e.entry, at);
      const bool empty = observed == 0.0 && computed == 0.0;
      text += empty ? kNoWavelengths
                    : FormatText("%11.5lf %11.5lf %11.5lf %11.5lf   ", Ratio(observed, frequency), observed,
                                 e.record.waveL(e.entry, at), computed);
    }
    text += "\n";
  }
}

void AppendCurves(const StoredEntry& e, std::string& text) {
  if (!StoredIsGlobal()) {
    AppendArrayCurves(e, text);
  } else if (TheoDispInfo.analysis == kPlaneWaves) {
    AppendPlaneWaveCurve(e, text);
  } else {
    AppendPointLoadCurve(e, text);
  }
}

void AppendResolution(const StoredEntry& e, std::string& text) {
  text +=
      "     Layer   Resolution\n"
      "     -----  ------------\n";
  for (int i = 0; i < e.Layers(); ++i)
    text += FormatText("      %3d    %9.6lf\n", i, e.record.resolution(e.entry, i));
}

/// Entry on display.
int ShownIndex() {
  return IsVisible(exdthd::ITERNO) ? GetCtrlVal(exdthd::ITERNO) : 0;
}

/// Whether a curve was computed for an entry. The panel copies the given model to entry 0, which is no
/// result.
/// result.
bool HasResult(int index) {
  const StoredEntry e(RecordOfIndex(index), index);
  return e.there && e.record.nPoints > 0;
}

/// The figures of an entry, or why it has none.
std::string FigureText(int index) {
  std::string text;
  if (index > 0) {
    const ProfileTable profile = ProfileOfEntry(index, ReadTableChoices(false));
    for (const std::string& line : SiteFigureLines(profile.figures, profile.classes)) text += line + "\n";
  }
  return text.empty() ? "Vs30 and site classes belong to the profile of an iteration.\n" : text;
}

/// File name of the project without folder and ".da".
std::string ProjectName() {
  std::string name = FileNameOf(session.projectFileName);
  if (name.ends_with(".da")) name.resize(name.size() - 3);
  return name;
}

std::string DefaultPath() {
  return JoinPath(CurrentDirectory(), ProjectName() + "_f.results");
}

/// Replaces the tables of an inversion that was refused.
int SaveNoIteration() {
  const std::string path = DefaultPath();
  if (FileExists(path)) return 0;
  TextWriter file(path);
  file.Put(kNothingComputed);
  return file.Close() ? 0 : Refuse(file.Reason());
}

}  // namespace

void GetResultTextBox(int type, int index, std::string& text, const InvRecord& record) {
  const StoredEntry e(record, index);
  if (type == kModelTable) AppendModel(e, text);
  if (type == kProfileTable) AppendProfile(e, text);
  if (type == kCurveTable) AppendCurves(e, text);
  if (type == kResolutionTable) AppendResolution(e, text);
}

void PutTextResultsInBox() {
  const int index = ShownIndex();
  std::string text;
  if (HasResult(index)) {
    const int type = GetCtrlVal(analresult::SEL_RESULT);
    if (type == kFigureTable)
      text = FigureText(index);
    else
      GetResultTextBox(type, index, text, RecordOfIndex(index));
  } else {
    text = kNothingComputed;
  }
  ResetTextBox(analresult::RESULTS, text);
}

int SaveInvResultCallback(Panel, ControlId, Event event, long data) {
  if (event != Event::Commit) return 0;
  if (data == kNoIteration) return SaveNoIteration();
  const int index = ShownIndex();
  if (!HasResult(index)) return Refuse("There is no iteration to save.");
  std::string path;
  if (data == kUnderProjectName) {
    path = DefaultPath();
  } else {
    const FileChoice choice = FileSelectPopup({ProjectDirectory(), "*.results", "File Save", true});
    if (choice.answer == FileAnswer::Cancelled) return 0;
    path = choice.path;
  }
  std::string all;
  for (int type = kModelTable; type <= kResolutionTable; ++type) {
    std::string text;
    GetResultTextBox(type, index, text, RecordOfIndex(index));
    all += text + "\n\n\n";
  }
  if (all.find("nan") != std::string::npos || all.find("inf") != std::string::npos)
    return Refuse("The results are not saved: some of their values are infinite or NaN.");
  TextWriter file(path);
  file.Put(all);
  return file.Close() ? 0 : Refuse(file.Reason());
}

void GetNiceTimeStr(double seconds, std::string& text) {
  if (seconds >= 1.0) {
    text = FormatText("%.2lf sec", seconds);
  } else if (seconds >= 0.001) {
    text = FormatText("%.2lf msec", seconds * 1e3);
  } else {
    text = FormatText("%.2lf usec", seconds * 1e6);
  }
}

}  // namespace sondera
