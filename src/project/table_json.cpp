// table_json.cpp - see table_json.h.
#include "project/table_json.h"

#include <cmath>
#include <nlohmann/json.hpp>
#include <optional>

#include "runtime/version.h"

namespace sondera {
namespace {

using Json = nlohmann::ordered_json;

constexpr const char* kFormatVersion = "1.0";
constexpr int kBandSigma = 2;

Json Number(double value, double factor = 1.0) {
  return std::isfinite(value * factor) ? Json(value * factor) : Json(nullptr);
}
template <class T>
Json Optional(const std::optional<T>& value) {
  return value ? Json(*value) : Json(nullptr);
}
Json Values(const Column& column, double factor = 1.0) {
  Json array = Json::array();
  for (double v : column) array.push_back(Number(v, factor));
  return array;
}

Json SpectrumJson(const SpectrumTable& s) {
  Json j;
  j["reference"] = s.reference;
  j["channel"] = s.channel;
  j["frequency"] = Values(s.frequency);
  j["power"] = Values(s.power);
  j["cross_real"] = Values(s.crossRe);
  j["cross_imag"] = Values(s.crossIm);
  j["coherence"] = Values(s.coherence);
  j["transfer_real"] = Values(s.transferRe);
  j["transfer_imag"] = Values(s.transferIm);
  j["phase_wrapped"] = Values(s.wrapped);
  j["phase_unwrapped"] = Values(s.unwrapped);
  j["masked"] = s.masked;
  return j;
}

Json MeasurementJson(const MeasurementTable& m, double unit) {
  Json j;
  j["id"] = m.id;
  j["source"] = m.source * unit;
  j["receivers"] = Values(m.receivers, unit);
  j["origin"] = m.origin;
  j["averages"] = m.averages > 0 ? Json(m.averages) : Json(nullptr);
  j["length_unit_m"] = m.lengthUnit;
  j["spectra"] = Json::array();
  for (const SpectrumTable& s : m.spectra) j["spectra"].push_back(SpectrumJson(s));
  j["masks"] = Json::array();
  for (const MaskRow& mask : m.masks) {
    Json row;
    row["reference"] = mask.reference;
    row["channel"] = mask.channel;
    row["from"] = mask.from;
    row["to"] = mask.to;
    row["jumps"] = mask.jumps;
    j["masks"].push_back(std::move(row));
  }
  return j;
}

Json CurveJson(const CurveTable& c, double unit) {
  Json j;
  j["kind"] = c.kind;
  if (!c.measurement.empty()) j["measurement"] = c.measurement;
  if (c.reference > 0) {
    j["reference"] = c.reference;
    j["channel"] = c.channel;
  }
  if (!c.phase.empty()) j["phase"] = c.phase;
  j["included"] = c.isIncluded;
  if (c.hasPlaces) {
    j["receivers"] = {c.receivers[0] * unit, c.receivers[1] * unit};
    j["source"] = c.source * unit;
  }
  j["frequency"] = Values(c.frequency);
  j["velocity"] = Values(c.velocity, unit);
  j["wavelength"] = Values(c.wavelength, unit);
  j["velocity_sd"] = Values(c.velocitySd, unit);
  j["amplitude"] = Values(c.amplitude);
  j["state"] = c.state;
  return j;
}

Json LayerJson(const ProfileLayer& l, double unit) {
  Json j;
  j["top"] = l.top * unit;
  j["thickness"] = Number(l.thickness, unit);
  j["vs"] = l.vs * unit;
  j["vs_low"] = Number(l.low, unit);
  j["vs_high"] = Number(l.high, unit);
  j["vs_sd"] = Number(l.sd, unit);
  j["resolution"] = Number(l.resolution);
  j["vp"] = Number(l.vp, unit);
  j["poisson"] = Number(l.poisson);
  j["density"] = Number(l.density);
  j["damping"] = Number(l.damping);
  j["fixed"] = l.isFixed;
  return j;
}

/// Velocity of a figure, with the digits of all outputs.
Json Velocity(const std::optional<double>& value) {
  return value ? Number(RoundedFigure(*value)) : Json(nullptr);
}

Json ProfileJson(const ProfileTable& p, double unit) {
  constexpr const char* kAnalyses[] = {"2-D", "3-D", "enhanced 3-D"};
  Json j;
  j["kind"] = p.kind;
  if (p.iteration >= 0) j["iteration"] = p.iteration;
  j["rms"] = Number(p.rms);
  if (p.analysis >= 2 && p.analysis <= 4) j["analysis"] = kAnalyses[p.analysis - 2];
  j["band_sigma"] = kBandSigma;
  j["layers"] = Json::array();
  for (const ProfileLayer& l : p.layers) j["layers"].push_back(LayerJson(l, unit));
  j["figures"] = Json::array();
  for (const SiteFigure& f : p.figures.figures) {
    Json row;
    row["name"] = f.name;
    row["depth"] = f.depth;
    row["value"] = Velocity(f.value);
    row["low"] = Velocity(f.low);
    row["high"] = Velocity(f.high);
    row["status"] = StatusName(f.status);
    row["seen_to"] = Number(p.figures.seen.depth);
    j["figures"].push_back(std::move(row));
  }
  j["site_classes"] = Json::array();
  for (const SiteClass& c : p.classes) {
    Json row;
    row["code"] = c.code;
    row["class"] = Optional(c.value);
    row["low"] = Optional(c.low);
    row["high"] = Optional(c.high);
    row["notes"] = c.notes;
    j["site_classes"].push_back(std::move(row));
  }
  return j;
}

}  // namespace

std::string JsonText(const ProjectTables& t) {
  Json j;
  j["format"] = "sondera-export";
  j["version"] = kFormatVersion;
  j["generator"] = {{"name", "sondera"}, {"version", std::string(kVersion)}};
  j["units"] = {{"length", "m"}, {"velocity", "m/s"},       {"frequency", "Hz"},
                {"time", "s"},   {"density", "as entered"}, {"phase", "deg"}};
  j["project"] = {{"name", t.name}, {"id", t.id}};
  j["measurements"] = Json::array();
  for (const MeasurementTable& m : t.measurements)
    j["measurements"].push_back(MeasurementJson(m, t.lengthUnit));
  j["curves"] = Json::array();
  for (const CurveTable& c : t.curves) j["curves"].push_back(CurveJson(c, t.lengthUnit));
  j["profiles"] = Json::array();
  for (const ProfileTable& p : t.profiles) j["profiles"].push_back(ProfileJson(p, t.lengthUnit));
  // Names come from files: bytes that are not UTF-8 become the replacement character.
  return j.dump(1, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace sondera
