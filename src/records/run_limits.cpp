// run_limits.cpp - see run_limits.h.
#include "records/run_limits.h"

#include <cmath>
#include <cstddef>
#include <vector>

#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr int kMaxSubLayersPerZone = 1000;
constexpr double kMaxDispBulb = 100.0;  // wavelengths

/// Keeps the first message; later ones are dropped.
class Complaint {
 public:
  void Count(const char* what, int value, int low, int high) {
    if (!text_.empty() || (value >= low && value <= high)) return;
    text_ = FormatText("%s is %d. It must be from %d to %d.", what, value, low, high);
  }
  void Value(const std::string& what, double value, double low, double high) {
    if (!text_.empty() || (value >= low && value <= high)) return;
    text_ = FormatText("%s is %g. It must be from %g to %g.", what.c_str(), value, low, high);
  }
  void Poisson(int layer, double value) {
    if (!text_.empty() || (value > -1.0 && value < 0.5)) return;
    text_ = FormatText(
        "Poisson's ratio of layer %d is %g. It must be above -1 and below 0.5: at 0.5 the P-wave "
        "velocity is infinite.",
        layer, value);
  }
  template <class T>
  void Column(const char* what, const std::vector<T>& column, double entries) {
    if (!text_.empty() || static_cast<double>(column.size()) >= entries) return;
    text_ = FormatText("The table of %s has %zu entries. It must have %.0f.", what, column.size(), entries);
  }
  bool empty() const { return text_.empty(); }
  std::string text() const { return text_; }

 private:
  std::string text_;
};

constexpr double kLayerLimit = 1e30;  // of thickness, velocities, density and shear modulus; the solvers' own
constexpr double kAnything = 1e300;   // any finite value that leaves room for arithmetic

void CheckLayers(const ModelRecord& m, Complaint& complaint) {
  complaint.Count("The number of layers", m.nLayers, 1, kMaxRunLayers);
  if (!complaint.empty()) return;
  constexpr const char* kNames[] = {"thicknesses", "P-wave velocities", "S-wave velocities",
                                    "densities",   "Poisson's ratios",  "damping ratios"};
  for (std::size_t k = 0; k < kLayerColumns.size(); ++k)
    complaint.Column(kNames[k], m.*kLayerColumns[k], m.nLayers);
  for (int l = 0; complaint.empty() && l < m.nLayers; ++l) {
    const std::size_t i = static_cast<std::size_t>(l);
    const auto at = [l](const char* what) { return FormatText("The %s of layer %d", what, l + 1); };
    complaint.Value(at("thickness"), m.thickness[i], 0.0, kLayerLimit);
    complaint.Value(at("P-wave velocity"), m.Vp[i], 0.0, kLayerLimit);
    complaint.Value(at("S-wave velocity"), m.Vs[i], 0.0, kLayerLimit);
    complaint.Value(at("density"), m.density[i], 0.0, kLayerLimit);
    complaint.Value(at("shear modulus"), m.density[i] * m.Vs[i] * m.Vs[i], 0.0, kLayerLimit);
    complaint.Poisson(l + 1, m.nu[i]);
    complaint.Value(at("damping ratio"), m.damping[i], 0.0, 1.0);
  }
}

void CheckSolver(const ModelRecord& m, Complaint& complaint) {
  complaint.Count("The analysis type", m.analysis, 2, 4);
  complaint.Count("The number of sublayers", m.nSubLayers, 0, kMaxSubLayersPerZone);
  complaint.Value("The depth factor of the mesh", m.fDispBulb, 0.0, kMaxDispBulb);
  complaint.Count("The type of the dispersion curves", m.dispCurvType, 1, 2);
  if (m.dispCurvType != 1 || m.analysis == 2) return;
  complaint.Count("The receiver type of the global curve", m.GlobalRecType, 3, 4);
  if (m.GlobalRecType != 4) return;
  complaint.Value("The location of receiver 1", m.GlobalRec1Loc, 0.0, kAnything);
  complaint.Value("The location of receiver 2", m.GlobalRec2Loc, 0.0, kAnything);
}

void CheckGlobalCurve(const ModelRecord& m, Complaint& complaint) {
  complaint.Count("The number of points of the global curve", m.nDispPointsG, m.dispCurvType == 1 ? 1 : 0,
                  kMaxRunPoints);
  if (!complaint.empty()) return;
  for (auto column : kGlobalColumns) complaint.Column("the global curve", m.*column, m.nDispPointsG);
}

void CheckArrayCurves(const ModelRecord& m, Complaint& complaint) {
  const int least = m.dispCurvType == 2 ? 1 : 0;
  complaint.Count("The number of points of the array curves", m.nDispPoints, least, kMaxRunPoints);
  complaint.Count("The number of array curves", m.nDispCurves, least, kMaxRunCurves);
  complaint.Count("The number of receivers", m.nReceivers, least, kMaxRunCurves);
  if (m.dispCurvType != 2) return;
  complaint.Column("receiver locations", m.recLoc, m.nReceivers);
  complaint.Column("frequencies", m.freq, m.nDispPoints);
  complaint.Column("velocities", m.vel, static_cast<double>(m.nDispPoints) * m.nDispCurves);
  complaint.Column("first receivers", m.pairRec1, m.nDispCurves);
  complaint.Column("second receivers", m.pairRec2, m.nDispCurves);
  complaint.Column("smallest frequencies", m.pairMin, m.nDispCurves);
  complaint.Column("largest frequencies", m.pairMax, m.nDispCurves);
  for (int r = 0; complaint.empty() && r < m.nReceivers; ++r)
    complaint.Value(FormatText("The location of receiver %d", r + 1), m.recLoc[static_cast<std::size_t>(r)],
                    -kAnything, kAnything);
  for (int c = 0; complaint.empty() && c < m.nDispCurves; ++c) {
    const std::size_t i = static_cast<std::size_t>(c);
    complaint.Count(FormatText("Receiver 1 of pair %d", c + 1).c_str(), m.pairRec1[i], 1, m.nReceivers);
    complaint.Count(FormatText("Receiver 2 of pair %d", c + 1).c_str(), m.pairRec2[i], 1, m.nReceivers);
  }
}

}  // namespace

std::string CheckRunLayers(const ModelRecord& m) {
  Complaint complaint;
  CheckLayers(m, complaint);
  return complaint.text();
}

std::string CheckRunSettings(const ModelRecord& m) {
  Complaint complaint;
  CheckSolver(m, complaint);
  CheckLayers(m, complaint);
  CheckGlobalCurve(m, complaint);
  CheckArrayCurves(m, complaint);
  return complaint.text();
}

}  // namespace sondera
