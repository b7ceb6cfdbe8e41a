// damaged_projects.cpp - see damaged_projects.h.
#include "support/damaged_projects.h"

#include <climits>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <limits>
#include <map>

namespace sondera::testing {
namespace {

/// Reads the bytes by the layout and notes the fields. Stops without a message at the end.
class Walker {
 public:
  explicit Walker(const std::string& project) : bytes_(project) { layout.parts = layout.records = {0}; }

  int I(const std::string& name) {
    int value = 0;
    Note(name, false, sizeof value, &value);
    return value;
  }
  double D(const std::string& name) {
    double value = 0.0;
    Note(name, true, sizeof value, &value);
    return value;
  }
  void Is(const std::string& name, std::int64_t n) { Array(name, false, n, sizeof(int)); }
  void Ds(const std::string& name, std::int64_t n) { Array(name, true, n, sizeof(double)); }
  void Ints(std::initializer_list<const char*> names) {
    for (const char* name : names) I(name);
  }
  void Reals(std::initializer_list<const char*> names) {
    for (const char* name : names) D(name);
  }
  void Text() { at_ += 256; }
  void Record(const std::string& name) {
    prefix_ = name + " ";
    layout.records.push_back(at_);
  }
  void EndPart() { layout.parts.push_back(at_); }

  ProjectLayout layout;

 private:
  void Note(const std::string& name, bool real, std::size_t size, void* value) {
    if (at_ + size > bytes_.size()) return;
    std::memcpy(value, bytes_.data() + at_, size);
    layout.fields.push_back({at_, real, prefix_ + name});
    at_ += size;
  }
  void Array(const std::string& name, bool real, std::int64_t n, std::size_t size) {
    if (n <= 0) return;
    if (at_ + size <= bytes_.size()) layout.fields.push_back({at_, real, prefix_ + name});
    at_ += static_cast<std::size_t>(n) * size;
  }

  const std::string& bytes_;
  std::size_t at_ = 0;
  std::string prefix_;
};

struct Shape {
  std::int64_t lines = 0, channels = 0;
};

void WalkSetup(Walker& w, std::vector<Shape>& shapes, std::map<int, std::int64_t>& linesOfKey) {
  const int count = w.I("measurements");
  for (int i = 1; i <= count; ++i) {
    w.Record("measurement " + std::to_string(i));
    const int key = w.I("key");
    w.Text();
    w.Text();
    w.I("second key");
    Shape shape;
    shape.channels = w.I("nChannels");
    shape.lines = w.I("nLines");
    if (w.D("freqSpan") < 0) {
      w.Reals({"startFreq", "stopFreq"});
      w.I("spanKind");
    }
    w.Reals({"timeLength", "deltaT", "deltaF"});
    w.Is("coupling", shape.channels);
    w.Is("grounding", shape.channels);
    w.Ds("inputRange", shape.channels);
    w.D("reserved");
    w.Ints({"triggerChannel", "triggerSlope"});
    w.Reals({"triggerDelay", "triggerLevel"});
    w.Ints({"averageOn", "reserved int", "nAverage"});
    shapes.push_back(shape);
    linesOfKey[key] = shape.lines;
  }
  w.EndPart();
  const int places = w.I("geometry records");
  for (int i = 1; i <= places; ++i) {
    w.Record("geometry " + std::to_string(i));
    w.I("key");
    w.D("srcLoc");
    const auto k = static_cast<std::size_t>(i - 1);
    for (std::int64_t c = 0; k < shapes.size() && c < shapes[k].channels; ++c) w.D("recLoc");
    w.I("wlenFilter");
    w.D("lengthUnit");
  }
  w.EndPart();
}

void WalkRaw(Walker& w, const std::vector<Shape>& shapes) {
  const int count = w.I("raw data records");
  for (std::size_t i = 0; i < static_cast<std::size_t>(count) && i < shapes.size(); ++i) {
    w.Record("raw data " + std::to_string(i + 1));
    w.I("key");
    for (const char* block :
         {"timeHist", "linSpecRe", "linSpecIm", "powerSpec", "crossSpecRe", "crossSpecIm"})
      w.Ds(block, 2 * shapes[i].lines * shapes[i].channels);
  }
  w.EndPart();
}

void WalkPairs(Walker& w, std::map<int, std::int64_t>& linesOfKey) {
  const int count = w.I("pair records");
  for (int i = 1; i <= count; ++i) {
    w.Record("pair " + std::to_string(i));
    const std::int64_t lines = linesOfKey[w.I("key")];
    w.Ints({"refChan", "dspChan"});
    for (int a = 1; a <= 21; ++a) w.Ds("array " + std::to_string(a), 2 * lines);
    w.Is("maskFlag", lines);
    for (const char* array : {"dispVel", "dispFreq", "dispWlen"}) w.Ds(array, lines);
    w.I("irfMode");
    w.Reals(
        {"gaborTimeStep", "gaborFreqStep", "bbT1", "bbT2", "bbT3", "bbT4", "enT1", "enT2", "enT3", "enT4"});
    const std::int64_t timeDiv = w.I("timeDiv");
    w.Reals({"initTime", "finalTime"});
    const std::int64_t freqDiv = w.I("freqDiv");
    w.Reals({"initFreq", "finalFreq", "beta", "band", "cntThreshold"});
    w.Ds("Gabor maps", 3 * timeDiv * freqDiv);
    w.Ints({"phaseOption", "reserved", "nDispPoints", "included", "marker", "color"});
    w.D("wlenCrit");
    w.Ints({"polyOrderA", "polyOrderB"});
  }
  w.EndPart();
}

void WalkCurves(Walker& w, const std::string& what) {
  const int count = w.I(what + " curves");
  for (int i = 1; i <= count; ++i) {
    w.Record(what + " curve " + std::to_string(i));
    w.I("key");
    const int points = w.I("nPoints");
    w.Ints({"refChan", "dspChan", "valid"});
    w.Text();
    w.D("wlenMax");
    for (const char* array : {"freq", "vel", "wlen", "stat1", "stat2", "stat3"}) w.Ds(array, points);
  }
  w.EndPart();
}

void WalkAnalysis(Walker& w, std::map<int, std::int64_t>& linesOfKey) {
  const int masks = w.I("masks");
  for (int i = 1; i <= masks; ++i) {
    w.Record("mask " + std::to_string(i));
    w.Ints({"key", "refChan", "dspChan"});
    w.Reals({"freqInit", "freqFinal"});
    w.Ints({"jumpNo", "lineInit", "lineFinal"});
  }
  w.EndPart();
  WalkPairs(w, linesOfKey);
  WalkCurves(w, "global");
  WalkCurves(w, "array");
}

void WalkModel(Walker& w, const std::string& name, bool twin) {
  w.Record(name);
  const std::int64_t layers = w.I("capLayers"), pairs = w.I("capPairs"), receivers = w.I("capRec"),
                     points = w.I("capPoints");
  w.Ints({"capCurve", "analysis", "nSubLayers"});
  w.D("fDispBulb");
  w.I("nLayers");
  for (const char* column : {"thickness", "Vp", "Vs", "density", "nu", "damping"}) w.Ds(column, layers);
  w.Ints({"dispCurvType", "DispCurvInfo"});
  w.D("incRatio");
  w.I("nDispPointsG");
  for (const char* column : {"globalVel", "globalFreq", "globalWlen"}) w.Ds(column, points);
  w.I("GlobalRecType");
  w.Reals({"GlobalRec1Loc", "GlobalRec2Loc"});
  w.I("xDomainType");
  w.Reals({"xMinGlobal", "xMaxGlobal"});
  w.I("nReceivers");
  w.Ds("recLoc", receivers);
  const std::int64_t n = w.I("nDispPoints"), cells = n * w.I("nDispCurves");
  if (!twin || cells != 0) {
    w.Ds("freq", n);
    w.Ds("vel", cells);
    w.Ds("wlen", cells);
  }
  w.Is("pairRec1", pairs);
  w.Is("pairRec2", pairs);
  w.Ds("pairMin", pairs);
  w.Ds("pairMax", pairs);
  w.Ints({"closing word 1", "closing word 2"});
  w.EndPart();
}

void WalkResults(Walker& w, const std::string& name) {
  w.Record(name);
  w.Ints({"maxLayers", "maxCurves", "maxPoints", "maxData"});
  const std::int64_t maxEntries = w.I("maxEntries");
  w.I("reserved");
  const std::int64_t layers = w.I("nLayers"), curves = w.I("nCurves"),
                     rows = w.I("nEntries") + std::int64_t{1}, points = w.I("nPoints");
  w.Reals({"alphaFrom", "alphaTo"});
  w.Ds("layer tables", 7 * rows * (layers + 1));
  w.Ds("freq", rows * points);
  w.Ds("vel and waveL", 2 * rows * points * curves);
  w.Ds("rms", maxEntries);
  w.Ds("resolution", rows * layers);
  w.Reals({"ufH", "ufVs", "minH", "maxH", "minVs", "maxVs"});
  w.Ints({"MODELPARM", "iSelected"});
  w.EndPart();
}

template <class Value>
void Put(std::string& bytes, std::size_t position, Value value) {
  if (position + sizeof value <= bytes.size()) std::memcpy(bytes.data() + position, &value, sizeof value);
}

void AddValues(const ProjectField& field, std::vector<Damage>& damages) {
  const auto add = [&](const std::string& text, auto value) {
    damages.push_back({field.name + " = " + text, [at = field.position, value](const std::string& project) {
                         std::string bytes = project;
                         Put(bytes, at, value);
                         return bytes;
                       }});
  };
  for (const int value : {0, -1, 1, INT_MAX, INT_MIN, 65536})
    field.real ? add(std::to_string(value), static_cast<double>(value)) : add(std::to_string(value), value);
  if (!field.real) return;
  add("nan", std::nan(""));
  add("inf", std::numeric_limits<double>::infinity());
  add("1e300", 1e300);
  add("5e-324", 5e-324);
}

void AddCuts(const std::vector<std::size_t>& borders, std::vector<Damage>& damages) {
  for (const std::size_t border : borders)
    for (const int beside : {-1, 0, 1})
      damages.push_back(
          {"cut at byte " + std::to_string(border) +
               (beside < 0   ? " - 1"
                : beside > 0 ? " + 1"
                             : ""),
           [n = border + static_cast<std::size_t>(beside), border, beside](const std::string& project) {
             return project.substr(0, border == 0 && beside < 0 ? 0 : n);
           }});
}

std::string Part(const std::string& project, const std::vector<std::size_t>& parts, std::size_t i) {
  return project.substr(parts[i], parts[i + 1] - parts[i]);
}

void AddOrders(const std::vector<std::size_t>& parts, std::vector<Damage>& damages) {
  const std::size_t count = parts.size() - 1;
  for (std::size_t i = 0; i < count; ++i)
    damages.push_back({"part " + std::to_string(i + 1) + " twice", [parts, i](const std::string& project) {
                         return project.substr(0, parts[i + 1]) + project.substr(parts[i]);
                       }});
  for (std::size_t i = 0; i < count; ++i)
    for (std::size_t j = i + 1; j < count; ++j)
      damages.push_back({"parts " + std::to_string(i + 1) + " and " + std::to_string(j + 1) + " swapped",
                         [parts, i, j](const std::string& project) {
                           const std::size_t end = parts[i + 1];
                           return project.substr(0, parts[i]) + Part(project, parts, j) +
                                  project.substr(end, parts[j] - end) + Part(project, parts, i) +
                                  project.substr(parts[j + 1]);
                         }});
}

}  // namespace

ProjectLayout LayoutOf(const std::string& project) {
  Walker w(project);
  std::vector<Shape> shapes;
  std::map<int, std::int64_t> linesOfKey;
  WalkSetup(w, shapes, linesOfKey);
  WalkRaw(w, shapes);
  WalkAnalysis(w, linesOfKey);
  WalkModel(w, "model", false);
  WalkModel(w, "theoretical curves", true);
  WalkResults(w, "starting models");
  WalkResults(w, "iterations");
  for (const char* list : {"list of iterations", "list of profiles", "list of starting models"}) {
    w.Record(list);
    w.Is("items", w.I("count"));
  }
  w.EndPart();
  return w.layout;
}

std::vector<Damage> DamagesOf(const std::string& project) {
  const ProjectLayout layout = LayoutOf(project);
  std::vector<Damage> damages;
  for (const ProjectField& field : layout.fields) AddValues(field, damages);
  AddCuts(layout.parts, damages);
  AddCuts(layout.records, damages);
  AddOrders(layout.parts, damages);
  return damages;
}

}  // namespace sondera::testing
