// parameters_file.cpp - see parameters_file.h.
#include "project/parameters_file.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

#include "records/settings_capacity.h"
#include "runtime/files.h"

namespace sondera {
namespace {

// ---- writing ----------------------------------------------------------------------------------------

std::size_t Count(int n) {
  return static_cast<std::size_t>(n);
}

/// False when a counter is below 0 or beyond its vector; valid records never are.
bool IsWhole(const ModelRecord& m) {
  if (m.nLayers < 0 || m.nDispPointsG < 0 || m.nReceivers < 0 || m.nDispPoints < 0 || m.nDispCurves < 0)
    return false;
  for (auto column : kLayerColumns)
    if ((m.*column).size() < Count(m.nLayers)) return false;
  for (auto column : kGlobalColumns)
    if ((m.*column).size() < Count(m.nDispPointsG)) return false;
  const std::size_t pairs = Count(m.nDispCurves);
  return m.recLoc.size() >= Count(m.nReceivers) && m.freq.size() >= Count(m.nDispPoints) &&
         m.vel.size() >= Count(m.nDispPoints) * pairs && m.pairRec1.size() >= pairs &&
         m.pairRec2.size() >= pairs && m.pairMin.size() >= pairs && m.pairMax.size() >= pairs;
}

bool AllFinite(const std::vector<double>& column, std::size_t n) {
  return std::all_of(column.begin(), column.begin() + static_cast<std::ptrdiff_t>(n),
                     [](double v) { return std::isfinite(v); });
}

/// For a complete record: whether all values to write are finite numbers.
bool HasNumbersOnly(const ModelRecord& m) {
  for (const double v :
       {m.fDispBulb, m.incRatio, m.GlobalRec1Loc, m.GlobalRec2Loc, m.xMinGlobal, m.xMaxGlobal})
    if (!std::isfinite(v)) return false;
  for (auto column : kLayerColumns)
    if (!AllFinite(m.*column, Count(m.nLayers))) return false;
  for (auto column : kGlobalColumns)
    if (!AllFinite(m.*column, Count(m.nDispPointsG))) return false;
  const std::size_t pairs = Count(m.nDispCurves);
  return AllFinite(m.recLoc, Count(m.nReceivers)) && AllFinite(m.freq, Count(m.nDispPoints)) &&
         AllFinite(m.vel, Count(m.nDispPoints) * pairs) && AllFinite(m.pairMin, pairs) &&
         AllFinite(m.pairMax, pairs);
}

void WriteLayers(TextWriter& file, const ModelRecord& m) {
  file.Printf("*analysis         : %d\n", m.analysis);
  file.Printf("*nLayers          : %d\n", m.nLayers);
  file.Printf("*nSubLayers       : %d\n", m.nSubLayers);
  file.Printf("*fDispBulb        : %lf\n", m.fDispBulb);
  file.Printf("*Profile: \n");
  for (std::size_t l = 0; l < Count(m.nLayers); ++l)
    file.Printf("  %12.4lf\t%12.2lf\t%12.2lf\t%12.4lf\t%12.7lf\t%12.4lf\n", m.thickness[l], m.Vp[l], m.Vs[l],
                m.density[l], m.nu[l], m.damping[l]);
}

void WriteGlobalCurve(TextWriter& file, const ModelRecord& m) {
  file.Printf("*DispCurvInfo     : %d\n", m.DispCurvInfo);
  file.Printf("*incRatio         : %lf\n", m.incRatio);
  file.Printf("*dispCurvType     : %d\n", m.dispCurvType);
  file.Printf("*Global Disp\n");
  file.Printf(" - nDispPointsG   : %d\n", m.nDispPointsG);
  file.Printf(" - GlobalRecType  : %d\n", m.GlobalRecType);
  file.Printf(" - GlobalRec1Loc  : %lf\n", m.GlobalRec1Loc);
  file.Printf(" - GlobalRec2Loc  : %lf\n", m.GlobalRec2Loc);
  file.Printf(" - xDomainType    : %d\n", m.xDomainType);
  file.Printf(" - xMinGlobal     : %lf\n", m.xMinGlobal);
  file.Printf(" - xMaxGlobal     : %lf\n", m.xMaxGlobal);
  file.Printf(" - dispersion data:\n");
  for (std::size_t p = 0; p < Count(m.nDispPointsG); ++p)
    file.Printf("%12.4lf%12.4lf%12.4lf\n", m.globalVel[p], m.globalFreq[p], m.globalWlen[p]);
}

void WriteArrayCurves(TextWriter& file, const ModelRecord& m) {
  file.Printf("*Array Disp\n");
  file.Printf(" - nReceivers     : %d\n", m.nReceivers);
  file.Printf(" - R. Locations   : \n");
  for (std::size_t r = 0; r < Count(m.nReceivers); ++r) file.Printf(" %12.4lf", m.recLoc[r]);
  file.Printf("\n");
  file.Printf(" - nDispPoints    : %d\n", m.nDispPoints);
  file.Printf(" - nDispCurves    : %d\n", m.nDispCurves);
  file.Printf(" - dispersion data:\n");
  const std::size_t curves = Count(m.nDispCurves);
  for (std::size_t p = 0; p < Count(m.nDispPoints); ++p) {
    file.Printf("%12.4lf", m.freq[p]);
    for (std::size_t c = 0; c < curves; ++c) file.Printf("%12.4lf", m.vel[p * curves + c]);
    file.Printf("\n");
  }
  file.Printf(" - receiver config:\n");
  for (std::size_t c = 0; c < curves; ++c)
    file.Printf("  %3d\t%3d\t%12.4lf\t%12.4lf\n", m.pairRec1[c], m.pairRec2[c], m.pairMin[c], m.pairMax[c]);
}

// ---- reading ----------------------------------------------------------------------------------------

/// Reads words and numbers across line ends. After the first mismatch all further reading does nothing.
class Scanner {
 public:
  explicit Scanner(TextReader& file) : file_(file) {}
  bool Ok() const { return ok_; }

  /// The words of a heading, with any white space (or none) before and between them.
  void Words(std::string_view words) {
    std::size_t i = 0;
    while (ok_ && i < words.size()) {
      if (words[i] == ' ') {
        ++i;
        continue;
      }
      if (i == 0 || words[i - 1] == ' ') SkipSpace();
      if (!ok_ || at_ >= line_.size() || line_[at_] != words[i]) {
        ok_ = false;
        return;
      }
      ++at_;
      ++i;
    }
  }

  int Int() {
    std::size_t used = 0;
    SkipSpace();
    const int value = ok_ ? ParseInt(Rest(), &used) : 0;
    return Take(used) ? value : 0;
  }
  int Int(std::string_view words) {
    Words(words);
    return Int();
  }
  /// A counter: below 0 is a mismatch.
  int Counter(std::string_view words) {
    const int n = Int(words);
    if (n < 0) ok_ = false;
    return ok_ ? n : 0;
  }

  double Real() {
    std::size_t used = 0;
    SkipSpace();
    const double value = ok_ ? ParseReal(Rest(), &used) : 0.0;
    return Take(used) ? value : 0.0;
  }
  double Real(std::string_view words) {
    Words(words);
    return Real();
  }

  /// A number of a column without a separating blank: numbers of 12 characters or more touch their neighbour.
  /// All have four decimals, so the number ends there.
  double ColumnReal() {
    SkipSpace();
    if (!ok_) return 0.0;
    const std::string_view rest = Rest();
    const std::size_t dot = rest.find('.');
    std::size_t used = 0;
    double value = ParseReal(rest, &used);
    if (dot != std::string_view::npos && used > dot + 5 && used < rest.size() && rest[used] == '.')
      value = ParseReal(rest.substr(0, dot + 5), &used);
    return Take(used) ? value : 0.0;
  }

  /// Checked after the last number: without a line end or its four decimals it may be incomplete.
  void DemandWholeNumber() {
    if (!ok_ || line_.back() == '\n') return;
    const std::string_view read = std::string_view(line_).substr(0, at_);
    const std::string_view number = read.substr(read.find_last_of(" \t") + 1);
    const std::size_t dot = number.find('.');
    ok_ = dot != std::string_view::npos && number.size() - dot > 4;
  }

 private:
  static constexpr std::size_t kLongestNumber = 1024;

  std::string_view Rest() const { return std::string_view(line_).substr(at_, kLongestNumber); }

  void SkipSpace() {
    while (ok_) {
      at_ = std::min(line_.find_first_not_of(" \t\n\v\f\r", at_), line_.size());
      if (at_ < line_.size()) return;
      const bool whole = line_.empty() || line_.back() == '\n';
      ok_ = whole && file_.ReadLine(line_, TextReader::kLongestLine);
      at_ = 0;
    }
  }

  bool Take(std::size_t used) {
    if (used == 0) ok_ = false;
    at_ += used;
    return ok_;
  }

  TextReader& file_;
  std::string line_;
  std::size_t at_ = 0;
  bool ok_ = true;
};

/// The values read, followed by zeros.
void Replace(std::vector<double>& column, const std::vector<double>& values) {
  std::fill(std::copy(values.begin(), values.end(), column.begin()), column.end(), 0.0);
}

/// Vectors grow with what is read: a count alone allocates nothing.
void ReadLayers(Scanner& in, ModelRecord& m) {
  m.analysis = in.Int("*analysis :");
  m.nLayers = in.Counter("*nLayers :");
  m.nSubLayers = in.Int("*nSubLayers :");
  m.fDispBulb = in.Real("*fDispBulb :");
  in.Words("*Profile:");
  std::array<std::vector<double>, kLayerColumns.size()> columns;
  for (int l = 0; in.Ok() && l < m.nLayers; ++l)
    for (auto& column : columns) column.push_back(in.Real());
  if (!in.Ok()) return;
  ReserveLayers(m, m.nLayers);
  for (std::size_t k = 0; k < columns.size(); ++k) Replace(m.*kLayerColumns[k], columns[k]);
}

void ReadGlobalCurve(Scanner& in, ModelRecord& m) {
  m.DispCurvInfo = in.Int("*DispCurvInfo :");
  m.incRatio = in.Real("*incRatio :");
  m.dispCurvType = in.Int("*dispCurvType :");
  in.Words("*Global Disp");
  m.nDispPointsG = in.Counter("- nDispPointsG :");
  m.GlobalRecType = in.Int("- GlobalRecType :");
  m.GlobalRec1Loc = in.Real("- GlobalRec1Loc :");
  m.GlobalRec2Loc = in.Real("- GlobalRec2Loc :");
  m.xDomainType = in.Int("- xDomainType :");
  m.xMinGlobal = in.Real("- xMinGlobal :");
  m.xMaxGlobal = in.Real("- xMaxGlobal :");
  in.Words("- dispersion data:");
  std::array<std::vector<double>, kGlobalColumns.size()> columns;
  for (int p = 0; in.Ok() && p < m.nDispPointsG; ++p)
    for (auto& column : columns) column.push_back(in.ColumnReal());
  if (!in.Ok()) return;
  ReservePoints(m, m.nDispPointsG);
  for (std::size_t k = 0; k < columns.size(); ++k) Replace(m.*kGlobalColumns[k], columns[k]);
}

void ReadArrayTable(Scanner& in, ModelRecord& m) {
  m.nDispPoints = in.Counter("- nDispPoints :");
  m.nDispCurves = in.Counter("- nDispCurves :");
  in.Words("- dispersion data:");
  std::vector<double> freq, vel;
  for (int p = 0; in.Ok() && p < m.nDispPoints; ++p) {
    freq.push_back(in.ColumnReal());
    for (int c = 0; in.Ok() && c < m.nDispCurves; ++c) vel.push_back(in.ColumnReal());
  }
  if (!in.Ok()) return;
  ReservePoints(m, m.nDispPoints);
  ReserveCurves(m, m.nDispPoints, m.nDispCurves);
  std::vector<double> wlen;
  for (std::size_t i = 0; i < vel.size(); ++i) {
    const double f = freq[i / Count(m.nDispCurves)];
    wlen.push_back(f != 0.0 ? vel[i] / f : 0.0);
  }
  Replace(m.freq, freq);
  Replace(m.vel, vel);
  Replace(m.wlen, wlen);
}

void ReadReceivers(Scanner& in, ModelRecord& m) {
  in.Words("*Array Disp");
  m.nReceivers = in.Counter("- nReceivers :");
  in.Words("- R. Locations :");
  std::vector<double> locations;
  for (int r = 0; in.Ok() && r < m.nReceivers; ++r) locations.push_back(in.Real());
  if (!in.Ok()) return;
  ReserveReceivers(m, m.nReceivers);
  Replace(m.recLoc, locations);
}

struct PairRow {
  int first, second;
  double low, high;
};

void ReadPairs(Scanner& in, ModelRecord& m) {
  in.Words("- receiver config:");
  std::vector<PairRow> rows;
  for (int c = 0; in.Ok() && c < m.nDispCurves; ++c) {
    PairRow row{};
    row.first = in.Int();
    row.second = in.Int();
    row.low = in.Real();
    row.high = in.Real();
    rows.push_back(row);
  }
  if (!rows.empty()) in.DemandWholeNumber();
  if (!in.Ok()) return;
  ReservePairs(m, m.nDispCurves);
  for (std::size_t c = 0; c < rows.size(); ++c) {
    m.pairRec1[c] = rows[c].first;
    m.pairRec2[c] = rows[c].second;
    m.pairMin[c] = rows[c].low;
    m.pairMax[c] = rows[c].high;
  }
}

}  // namespace

Refusal WriteParameters(const ModelRecord& record, const std::string& path) {
  const std::string failure = "Error in writing the forward modeling param. into file " + path + ".";
  if (!IsWhole(record)) return failure;
  if (!HasNumbersOnly(record)) return failure + "\nOne of the parameters is infinite or NaN.";
  TextWriter file(path);
  WriteLayers(file, record);
  WriteGlobalCurve(file, record);
  WriteArrayCurves(file, record);
  return file.Ok() && file.Close() ? Refusal() : Refusal(failure);
}

Refusal ReadParameters(const std::string& path, ModelRecord& record) {
  TextReader file;
  if (file.Open(path) && ReadParametersFrom(file, record)) return {};
  return "Error in reading the forward modeling param. into file " + path + ".";
}

bool ReadParametersFrom(TextReader& file, ModelRecord& record) {
  ModelRecord m = record;
  Scanner in(file);
  ReadLayers(in, m);
  ReadGlobalCurve(in, m);
  ReadReceivers(in, m);
  ReadArrayTable(in, m);
  ReadPairs(in, m);
  if (!in.Ok() || file.ReadFailed()) return false;
  record = std::move(m);
  return true;
}

}  // namespace sondera
