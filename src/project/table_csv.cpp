// table_csv.cpp - see table_csv.h.
#include "project/table_csv.h"

#include <cmath>
#include <optional>

namespace sondera {
namespace {

/// One line of cells.
class CsvLine {
 public:
  CsvLine& operator<<(const std::string& text) { return raw(CsvCell(text)); }
  CsvLine& operator<<(double value) { return raw(ShortestText(value)); }
  CsvLine& operator<<(std::optional<double> value) { return raw(value ? ShortestText(*value) : ""); }
  CsvLine& operator<<(int value) { return raw(std::to_string(value)); }
  CsvLine& operator<<(bool value) { return raw(value ? "1" : "0"); }
  CsvLine& empty() { return raw(""); }
  std::string text() const { return line_ + "\n"; }

 private:
  CsvLine& raw(const std::string& cell) {
    if (begun_) line_ += ',';
    begun_ = true;
    line_ += cell;
    return *this;
  }
  std::string line_;
  bool begun_ = false;
};

/// "$" is replaced by the unit of length.
std::string Header(std::string names, double lengthUnit) {
  for (std::size_t at = names.find('$'); at != std::string::npos; at = names.find('$'))
    names.replace(at, 1, UnitSymbol(lengthUnit));
  return names + "\n";
}

std::string Curves(const ProjectTables& t) {
  std::string text = Header(
      "kind,measurement,reference,channel,frequency [Hz],velocity [$/s],velocity sd [$/s],wavelength "
      "[$],amplitude,"
      "phase,included,state",
      t.lengthUnit);
  for (const CurveTable& c : t.curves)
    for (std::size_t i = 0; i < c.frequency.size(); ++i) {
      CsvLine line;
      line << c.kind << c.measurement;
      c.reference > 0 ? line << c.reference << c.channel : line.empty().empty();
      line << c.frequency[i] << c.velocity[i] << c.velocitySd[i] << c.wavelength[i] << c.amplitude[i]
           << c.phase << c.isIncluded << c.state[i];
      text += line.text();
    }
  return text;
}

std::string Profile(const ProjectTables& t) {
  std::string text = Header(
      "iteration,layer,top [$],bottom [$],thickness [$],Vs [$/s],Vs low [$/s],Vs high [$/s],Vs sd "
      "[$/s],resolution,"
      "Vp [$/s],density [as entered],Poisson ratio,damping,fixed",
      t.lengthUnit);
  for (const ProfileTable& p : t.profiles)
    for (std::size_t i = 0; i < p.layers.size(); ++i) {
      const ProfileLayer& l = p.layers[i];
      CsvLine line;
      p.iteration >= 0 ? line << p.iteration : line.empty();
      line << static_cast<int>(i + 1) << l.top << l.top + l.thickness << l.thickness << l.vs << l.low
           << l.high << l.sd << l.resolution << l.vp << l.density << l.poisson << l.damping << l.isFixed;
      text += line.text();
    }
  return text;
}

std::string Spectra(const ProjectTables& t) {
  std::string text =
      "measurement,reference,channel,frequency [Hz],power reference,power channel,cross real,cross "
      "imag,coherence,"
      "transfer real,transfer imag,phase wrapped [deg],phase unwrapped [deg],masked\n";
  for (const MeasurementTable& m : t.measurements)
    for (const SpectrumTable& s : m.spectra)
      for (std::size_t i = 0; i < s.frequency.size(); ++i) {
        CsvLine line;
        line << m.id << s.reference << s.channel << s.frequency[i] << s.powerReference[i] << s.power[i]
             << s.crossRe[i] << s.crossIm[i] << s.coherence[i] << s.transferRe[i] << s.transferIm[i]
             << s.wrapped[i] << s.unwrapped[i] << static_cast<bool>(s.masked[i]);
        text += line.text();
      }
  return text;
}

std::string Masks(const ProjectTables& t) {
  std::string text = "measurement,reference,channel,from [Hz],to [Hz],jumps\n";
  for (const MeasurementTable& m : t.measurements)
    for (const MaskRow& mask : m.masks) {
      CsvLine line;
      line << m.id << mask.reference << mask.channel << mask.from << mask.to << mask.jumps;
      text += line.text();
    }
  return text;
}

std::string Joined(const std::vector<std::string>& notes) {
  std::string text;
  for (const std::string& note : notes) text += (text.empty() ? "" : "; ") + note;
  return text;
}

/// Figures and classes are in m and m/s for every unit of the project.
std::string Figures(const ProjectTables& t) {
  std::string text =
      "figure,depth [m],value [m/s],low [m/s],high [m/s],status,seen to [m],code,class,class low,class "
      "high,note\n";
  for (const ProfileTable& p : t.profiles) {
    const double seen = p.figures.seen.depth;
    const auto begin = [&](const SiteFigure& f) {
      CsvLine line;
      line << f.name << f.depth;
      for (const auto& velocity : {f.value, f.low, f.high})
        velocity ? line << RoundedFigure(*velocity) : line.empty();
      line << std::string(StatusName(f.status)) << seen;
      return line;
    };
    for (const SiteFigure& f : p.figures.figures) {
      CsvLine line = begin(f);
      line.empty().empty().empty().empty() << f.reason;
      text += line.text();
    }
    for (const SiteClass& c : p.classes) {
      // The American codes use the average over 100 ft, the second one.
      CsvLine line = begin(p.figures.figures[c.code.starts_with("ASCE") ? 1 : 0]);
      line << c.code << c.value.value_or("") << c.low.value_or("") << c.high.value_or("") << Joined(c.notes);
      text += line.text();
    }
  }
  return text;
}

}  // namespace

std::string CsvCell(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string cell = "\"";
  for (char c : text) cell += c == '"' ? std::string("\"\"") : std::string(1, c);
  return cell + "\"";
}

std::string CsvText(const ProjectTables& tables, const std::string& name) {
  if (name == "curves") return Curves(tables);
  if (name == "profile") return Profile(tables);
  if (name == "spectra") return Spectra(tables);
  if (name == "masks") return Masks(tables);
  if (name == "figures") return Figures(tables);
  return {};
}

}  // namespace sondera
