// export_tables.cpp - see export_tables.h.
#include "project/export_tables.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "records/measdb.h"
#include "records/model_records.h"
#include "records/session.h"
#include "run/posterior_covariance.h"
#include "run/result_entries.h"
#include "run/system_state.h"
#include "runtime/paths.h"
#include "signal/spectra.h"

namespace sondera {
namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
constexpr double kBand = 2.0;  // standard deviations
constexpr const char* kPhases[] = {"original", "enhanced", "backbone"};

/// A block without data means that the measurement has no data of this kind.
bool HasData(const std::vector<double>& block) {
  return std::any_of(block.begin(), block.end(), [](double v) { return v != 0.0; });
}

std::string OriginOf(const HWSetup& hw, const RawData* raw) {
  if (!raw || (!HasData(raw->crossSpecRe) && !HasData(raw->crossSpecIm))) return "curve";
  if (hw.freqSpan > 0.0) return hw.decimation == 0 ? "time" : "measured";
  // Imported transfer functions have a reference of 1 on all lines.
  const std::size_t first = static_cast<std::size_t>(std::lround(std::max(hw.startFreq / hw.deltaF, 0.0)));
  for (std::size_t i = first; i < static_cast<std::size_t>(hw.nLines) && i < raw->crossSpecRe.size(); ++i)
    if (raw->crossSpecRe[i] != 1.0 || raw->crossSpecIm[i] != 0.0) return "cross";
  return "transfer";
}

Column Taken(const std::vector<double>& from, std::size_t n, double factor = 1.0) {
  Column column(n, kNone);
  for (std::size_t i = 0; i < std::min(n, from.size()); ++i) column[i] = from[i] * factor;
  return column;
}

Column Row(const std::vector<double>& block, int channel, std::size_t n) {
  Column column(n, kNone);
  const std::size_t at = 2 * n * static_cast<std::size_t>(channel);
  for (std::size_t i = 0; i < n && at + i < block.size(); ++i) column[i] = block[at + i];
  return column;
}

SpectrumTable SpectrumOfPair(const MeasRecords& r, const PMeasInfo& pair) {
  const HWSetup& hw = *r.hwSetup;
  const std::size_t n = static_cast<std::size_t>(hw.nLines);
  SpectrumTable s;
  s.reference = pair.refChan + 1;
  s.channel = pair.dspChan + 1;
  for (std::size_t i = 0; i < n; ++i) s.frequency.push_back(static_cast<double>(i) * hw.deltaF);
  const bool isMeasured = r.rawPos > 0 && HasData(r.rawData->powerSpec);
  for (Column* column : {&s.powerReference, &s.power, &s.crossRe, &s.crossIm, &s.coherence})
    column->assign(n, kNone);
  if (isMeasured) {
    s.powerReference = Row(r.rawData->powerSpec, pair.refChan, n);
    s.power = Row(r.rawData->powerSpec, pair.dspChan, n);
    CalcSpectralData(spectral::kCoherence, r.projID, r.measID, pair.refChan, pair.dspChan, s.coherence.data(),
                     nullptr);
  }
  if (isMeasured && pair.refChan == 0) {
    s.crossRe = Row(r.rawData->crossSpecRe, pair.dspChan, n);
    s.crossIm = Row(r.rawData->crossSpecIm, pair.dspChan, n);
  }
  s.transferRe = Taken(pair.hRe, n);
  s.transferIm = Taken(pair.hIm, n);
  const auto& wrapped = pair.phaseOption == 1   ? pair.enPhase
                        : pair.phaseOption == 2 ? pair.bbPhase
                                                : pair.hPhase;
  const auto& unwrapped = pair.phaseOption == 1   ? pair.phaseEn
                          : pair.phaseOption == 2 ? pair.phaseBB
                                                  : pair.phaseOrig;
  s.wrapped = Taken(wrapped, n);
  s.unwrapped = Taken(unwrapped, n);
  for (std::size_t i = 0; i < n; ++i) s.masked.push_back(i < pair.maskFlag.size() && pair.maskFlag[i] != 0);
  return s;
}

MeasurementTable MeasurementOf(const MeasRecords& r, int key, double unit) {
  MeasurementTable m;
  m.id = r.measID;
  m.lengthUnit = r.measSetup->lengthUnit;
  const double factor = m.lengthUnit / unit;
  m.origin = OriginOf(*r.hwSetup, r.rawPos > 0 ? r.rawData : nullptr);
  m.source = r.measSetup->srcLoc * factor;
  for (double x : r.measSetup->recLoc) m.receivers.push_back(x * factor);
  if ((m.origin == "measured" || m.origin == "time") && r.hwSetup->nAverage > 0)
    m.averages = r.hwSetup->nAverage;
  if (m.origin != "curve")
    for (const PMeasInfo& pair : MeasDB.pMeasList)
      if (pair.key == key && std::max(pair.refChan, pair.dspChan) < r.hwSetup->nChannels &&
          r.hwSetup->nLines > 0)
        m.spectra.push_back(SpectrumOfPair(r, pair));
  for (const MaskingInfo& mask : MeasDB.maskingList)
    if (mask.key == key)
      m.masks.push_back({mask.refChan + 1, mask.dspChan + 1, mask.freqInit, mask.freqFinal, mask.jumpNo});
  return m;
}

void SetPlaces(CurveTable& curve, int key, int ref, int channel, double unit) {
  const MeasSetup* setup = MeasDB.measSetupList.at(MeasDB.measSetupList.findKey(key));
  if (!setup || std::max(ref, channel) >= static_cast<int>(setup->recLoc.size()) ||
      std::min(ref, channel) < 0)
    return;
  const double factor = setup->lengthUnit / unit;
  curve.hasPlaces = true;
  curve.source = setup->srcLoc * factor;
  curve.receivers[0] = setup->recLoc[static_cast<std::size_t>(ref)] * factor;
  curve.receivers[1] = setup->recLoc[static_cast<std::size_t>(channel)] * factor;
}

void SetStates(CurveTable& curve) {
  for (double& v : curve.velocity) {
    const bool none = !(v > 0.0) || !std::isfinite(v);
    curve.state.push_back(none ? "none" : "ok");
    if (none) v = kNone;
  }
  for (std::size_t i = 0; i < curve.wavelength.size(); ++i)
    if (curve.state[i] == "none") curve.wavelength[i] = kNone;
}

CurveTable CurveOfPair(const PMeasInfo& pair, const std::string& measID, double unit) {
  CurveTable c;
  c.kind = "pair";
  c.measurement = measID;
  c.reference = pair.refChan + 1;
  c.channel = pair.dspChan + 1;
  c.phase = kPhases[std::clamp(pair.phaseOption, 0, 2)];
  c.isIncluded = pair.included == 1;
  const MeasSetup* setup = MeasDB.measSetupList.at(MeasDB.measSetupList.findKey(pair.key));
  const double factor = (setup ? setup->lengthUnit : unit) / unit;
  const std::size_t n =
      std::min(static_cast<std::size_t>(std::max(pair.nDispPoints, 0)), pair.dispVel.size());
  c.frequency = Taken(pair.dispFreq, n);
  c.velocity = Taken(pair.dispVel, n, factor);
  c.wavelength = Taken(pair.dispWlen, n, factor);
  c.velocitySd.assign(n, kNone);
  c.amplitude.assign(n, kNone);
  SetPlaces(c, pair.key, pair.refChan, pair.dspChan, unit);
  SetStates(c);
  return c;
}

CurveTable RepresentativeCurve(const DispInfo& d, const char* kind, double unit) {
  CurveTable c;
  c.kind = kind;
  if (c.kind == "array") {
    std::string projID;
    GetIDfromKey(d.key, projID, c.measurement);
    c.reference = d.refChan + 1;
    c.channel = d.dspChan + 1;
    SetPlaces(c, d.key, d.refChan, d.dspChan, unit);
  }
  for (int i = 1; i <= d.nPoints && i <= d.freq.hi(); ++i) {
    c.frequency.push_back(d.freq[i]);
    c.velocity.push_back(d.vel[i]);
    c.wavelength.push_back(d.wlen[i]);
    c.amplitude.push_back(d.stat1[i]);
    c.velocitySd.push_back(d.stat2[i]);
  }
  SetStates(c);
  return c;
}

/// Curves of the last run.
void AddComputed(std::vector<CurveTable>& curves) {
  const ModelRecord& t = TheoDispInfo;
  const auto add = [&](const Column& f, const Column& v, const Column& w) {
    CurveTable c;
    c.kind = "computed";
    c.frequency = f;
    c.velocity = v;
    c.wavelength = w;
    c.velocitySd.assign(f.size(), kNone);
    c.amplitude.assign(f.size(), kNone);
    if (!std::any_of(v.begin(), v.end(), [](double x) { return x > 0.0; })) return;
    SetStates(c);
    curves.push_back(std::move(c));
  };
  if (t.dispCurvType == 1) {
    const std::size_t n = std::min(static_cast<std::size_t>(std::max(t.nDispPointsG, 0)), t.globalVel.size());
    add(Taken(t.globalFreq, n), Taken(t.globalVel, n), Taken(t.globalWlen, n));
    return;
  }
  for (int k = 0; k < t.nDispCurves; ++k) {
    Column f, v, w;
    for (int i = 0; i < t.nDispPoints; ++i) {
      const std::size_t at =
          static_cast<std::size_t>(i) * static_cast<std::size_t>(t.nDispCurves) + static_cast<std::size_t>(k);
      if (at >= t.vel.size() || static_cast<std::size_t>(i) >= t.freq.size()) break;
      f.push_back(t.freq[static_cast<std::size_t>(i)]);
      v.push_back(t.vel[at]);
      w.push_back(at < t.wlen.size() ? t.wlen[at] : kNone);
    }
    add(f, v, w);
  }
}

double Cell(const OffsetMatrix<double>& table, int row, int column) {
  const bool inside =
      row >= table.rowLo() && row <= table.rowHi() && column >= table.colLo() && column <= table.colHi();
  return inside ? table(row, column) : kNone;
}

ProfileTable IterationOf(int entry, const TableChoices& choices) {
  const InvRecord& r = InvParam;
  ProfileTable p;
  p.kind = entry == 0 ? "starting" : "inverted";
  p.iteration = entry;
  p.rms = entry <= r.rms.hi() ? r.rms[entry] : kNone;
  p.analysis = TheoDispInfo.analysis;
  double top = 0.0;
  for (int i = 0; i < r.nLayers; ++i) {
    const bool halfSpace = i + 1 == r.nLayers;
    ProfileLayer l;
    l.top = top;
    l.thickness = halfSpace ? kNone : Cell(r.H, entry, i);
    if (!halfSpace) top += l.thickness;
    l.vs = Cell(r.Vs, entry, i);
    l.isFixed =
        std::find(choices.fixedLayers.begin(), choices.fixedLayers.end(), i + 1) != choices.fixedLayers.end();
    const bool hasBand = entry > 0 && !l.isFixed;
    l.sd = hasBand ? PosteriorDeviation(entry, i) : kNone;
    l.low = l.vs - kBand * l.sd;
    l.high = l.vs + kBand * l.sd;
    // Values out of range in a damaged or older file are not meaningful.
    const double resolution = hasBand ? Cell(r.resolution, entry, i) : kNone;
    l.resolution = resolution >= 0.0 ? std::min(resolution, 1.0) : kNone;
    l.vp = Cell(r.Vp, entry, i);
    l.poisson = Cell(r.nu, entry, i);
    l.density = Cell(r.density, entry, i);
    l.damping = Cell(r.damping, entry, i);
    p.layers.push_back(l);
  }
  return p;
}

ProfileTable GivenProfile() {
  const ModelRecord& m = FModelParam;
  ProfileTable p;
  p.kind = "given";
  p.rms = kNone;
  p.analysis = m.analysis;
  double top = 0.0;
  for (std::size_t i = 0; i < static_cast<std::size_t>(std::max(m.nLayers, 0)) && i < m.Vs.size(); ++i) {
    const bool halfSpace = i + 1 == static_cast<std::size_t>(m.nLayers);
    ProfileLayer l;
    l.top = top;
    l.thickness = halfSpace ? kNone : m.thickness[i];
    if (!halfSpace) top += l.thickness;
    l.vs = m.Vs[i];
    l.low = l.high = l.sd = l.resolution = kNone;
    l.vp = m.Vp[i];
    l.poisson = m.nu[i];
    l.density = m.density[i];
    l.damping = m.damping[i];
    p.layers.push_back(l);
  }
  return p;
}

void AddFigures(ProfileTable& profile, double unit, const TableChoices& choices) {
  if (profile.kind != "inverted") return;
  SiteProfile site = SiteProfileOf(profile, unit, LongestWavelength());
  if (choices.run) site.covariance = VelocityCovariance(*choices.run, profile.iteration);
  if (FiguresOf(site, choices.extend, profile.figures).empty())
    profile.classes = ClassesOf(site, profile.figures);
}

std::string ProjectName() {
  const std::string file = FileNameOf(session.projectFileName);
  const std::size_t dot = file.rfind('.');
  return dot == std::string::npos || dot == 0 ? file : file.substr(0, dot);
}

}  // namespace

double LongestWavelength() {
  const ModelRecord& m = FModelParam;
  if (m.DispCurvInfo == 0) return 0.0;
  const std::vector<double>& wavelengths = m.dispCurvType == 1 ? m.globalWlen : m.wlen;
  const std::size_t n = static_cast<std::size_t>(
      std::max(0, m.dispCurvType == 1 ? m.nDispPointsG : m.nDispPoints * m.nDispCurves));
  double longest = 0.0;
  for (std::size_t i = 0; i < std::min(n, wavelengths.size()); ++i)
    if (std::isfinite(wavelengths[i])) longest = std::max(longest, wavelengths[i]);
  return longest;
}

SiteProfile SiteProfileOf(const ProfileTable& profile, double lengthUnit, double longestWavelength) {
  const auto some = [](double v) { return std::isnan(v) ? std::nullopt : std::optional(v); };
  SiteProfile site;
  site.lengthUnit = lengthUnit;
  site.longestWavelength = longestWavelength;
  for (const ProfileLayer& l : profile.layers) {
    // A layer with fixed Vs has its velocity at both ends of the band.
    const auto end = [&](double v) { return l.isFixed ? std::optional(l.vs) : some(v); };
    site.layers.push_back(
        {std::isnan(l.thickness) ? 0.0 : l.thickness, l.vs, end(l.low), end(l.high), some(l.resolution)});
  }
  return site;
}

ProfileTable ProfileOfEntry(int entry, const TableChoices& choices) {
  if (entry < 0 || entry > InvParam.rms.hi() || InvParam.nLayers < 1) return {};
  ProfileTable profile = IterationOf(entry, choices);
  AddFigures(profile, session.lengthUnit, choices);
  return profile;
}

ProjectTables CollectTables(const TableChoices& choices) {
  ProjectTables tables;
  tables.name = ProjectName();
  tables.id = session.curProjID;
  tables.lengthUnit = session.lengthUnit;
  const double unit = tables.lengthUnit;
  for (const IDInfo& id : MeasDB.idList) {
    MeasRecords r;
    if (GetInfoFromKey(id.key, r) == -1 || r.hwPos < 1 || r.measPos < 1) continue;
    tables.measurements.push_back(MeasurementOf(r, id.key, unit));
  }
  for (const PMeasInfo& pair : MeasDB.pMeasList) {
    std::string projID, measID;
    if (pair.nDispPoints > 0 && GetIDfromKey(pair.key, projID, measID))
      tables.curves.push_back(CurveOfPair(pair, measID, unit));
  }
  for (const DispInfo& d : MeasDB.gDispList)
    if (d.nPoints > 0) tables.curves.push_back(RepresentativeCurve(d, "global", unit));
  for (const DispInfo& d : MeasDB.aDispList)
    if (d.nPoints > 0) tables.curves.push_back(RepresentativeCurve(d, "array", unit));
  AddComputed(tables.curves);
  for (int entry : choices.iterations)
    if (entry >= 0 && entry <= InvParam.rms.hi() && InvParam.nLayers > 0)
      tables.profiles.push_back(IterationOf(entry, choices));
  if (tables.profiles.empty() && FModelParam.nLayers > 0) tables.profiles.push_back(GivenProfile());
  if (!tables.profiles.empty()) AddFigures(tables.profiles.back(), unit, choices);
  return tables;
}

const ProfileTable* FinalProfile(const ProjectTables& tables) {
  return tables.profiles.empty() ? nullptr : &tables.profiles.back();
}

std::string ShortestText(double value) {
  if (!std::isfinite(value)) return {};
  char text[32];
  const auto end = std::to_chars(text, text + sizeof text, value);
  return {text, end.ptr};
}

std::string UnitSymbol(double lengthUnit) {
  return lengthUnit == 1.0 ? "m" : lengthUnit == 0.01 ? "cm" : lengthUnit == 0.3048 ? "ft" : "in";
}

}  // namespace sondera
