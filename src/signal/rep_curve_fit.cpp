// rep_curve_fit.cpp - cells, windows and windowed fits of the representative curves. Owns no state.
//
// In the plain form each output scans all points. Here the points are in blocks with known smallest and
// largest abscissa, and a block outside cell and window is skipped. The remaining points keep their order, so
// sums and fits equal those of the plain scan to the last bit.
#include "signal/rep_curve_fit.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include "numeric/fit.h"
#include "numeric/offset_array.h"

namespace sondera {
namespace {

/// Least deviation, as a share of the mean. A few points that agree by chance would suggest a precision that
/// no field measurement has, and would get too much weight in the inversion.
constexpr double kDeviationFloor = 0.05;

/// Cell [lo, hi) around its centre, and window [from, to).
struct Cell {
  double lo = 0.0, hi = 0.0, centre = 0.0;
  double from = 0.0, to = 0.0;
};

/// Places the window around the centre. Kept: when a window extends beyond the range only the far edge moves,
/// and the upper limit is compared with the edge that the lower limit may just have moved.
void PlaceWindow(Cell& cell, double width, double xMin, double xMax) {
  cell.from = cell.centre - width / 2.0;
  cell.to = cell.centre + width / 2.0;
  if (cell.from < xMin) cell.to += xMin - cell.from;
  if (cell.to > xMax) cell.from -= cell.to - xMax;
}

/// The cells of one call, each computed on request.
class CellPlan {
 public:
  CellPlan(double xMin, double xMax, int nPts, int nSpan, int mode, double incRatio, const double* grid)
      : xMin_(xMin), xMax_(xMax), range_(xMax - xMin), nPts_(nPts), ratio_(incRatio), grid_(grid) {
    window_ = range_ / nSpan;
    if (mode == kCellsByGrid) {
      law_ = Law::Grid;
    } else if (incRatio == kLinearSpacing) {
      law_ = Law::Linear;
      step_ = range_ / nPts;
    } else if (incRatio == kLogSpacing) {
      law_ = Law::Logarithmic;
      step_ = std::log10(range_) / nPts;  // Kept: of the difference, not the difference of logarithms
      window_ = (std::log10(xMax) - std::log10(xMin)) / nSpan;
    } else {
      law_ = Law::Geometric;
      step_ = (ratio_ - 1.0) * range_ / (std::pow(ratio_, nPts) - 1.0);  // width of the first cell
    }
  }

  /// Cell k of 1..nPts.
  Cell operator()(int k) const {
    switch (law_) {
      case Law::Grid:
        return GridCell(k);
      case Law::Logarithmic:
        return LogarithmicCell(k);
      case Law::Linear:
        return SpacedCell(xMin_ + (k - 1) * step_, xMin_ + k * step_);
      case Law::Geometric:
        break;
    }
    return SpacedCell(xMin_ + step_ * (std::pow(ratio_, k - 1) - 1.0) / (ratio_ - 1.0),
                      xMin_ + step_ * (std::pow(ratio_, k) - 1.0) / (ratio_ - 1.0));
  }

 private:
  enum class Law { Linear, Logarithmic, Geometric, Grid };

  Cell SpacedCell(double lo, double hi) const {
    Cell cell{lo, hi, (lo + hi) / 2.0};
    PlaceWindow(cell, window_, xMin_, xMax_);
    return cell;
  }

  Cell LogarithmicCell(int k) const {
    const double logMin = std::log10(xMin_), logMax = std::log10(xMax_);
    Cell cell{logMin + (k - 1) * step_, logMin + k * step_};
    cell.centre = (cell.lo + cell.hi) / 2.0;
    PlaceWindow(cell, window_, logMin, logMax);
    for (double* x : {&cell.lo, &cell.hi, &cell.centre, &cell.from, &cell.to}) *x = std::pow(10.0, *x);
    return cell;
  }

  Cell GridCell(int k) const {
    Cell cell{xMin_, xMax_, grid_[k]};
    if (k > 1) cell.lo = (grid_[k - 1] + grid_[k]) / 2.0;
    if (k < nPts_) cell.hi = (grid_[k] + grid_[k + 1]) / 2.0;
    PlaceWindow(cell, window_, xMin_, xMax_);
    return cell;
  }

  double xMin_, xMax_, range_;
  int nPts_;
  double ratio_;
  const double* grid_;
  double window_ = 0.0, step_ = 0.0;
  Law law_ = Law::Linear;
};

bool InRange(double x, double from, double to) {
  return x >= from && x < to;
}

/// The points that count, in their original order, with the ranges of blocks of them.
class Points {
 public:
  struct Point {
    double x, logX, v;
  };

  Points(int n, const double* x, const double* v) {
    if (n > 0) points_.reserve(static_cast<std::size_t>(n));
    // NaN fails both tests, so it is in no cell in both forms.
    for (int i = 1; i <= n; ++i)
      if (v[i] >= 0.0 && x[i] == x[i]) points_.push_back({x[i], std::log10(x[i]), v[i]});
    for (std::size_t first = 0; first < points_.size(); first += kBlock) AddBlock(first);
  }

  /// Calls visit(point, inCell, inWindow) for each point that lies in the cell or the window.
  template <class Visit>
  void Scan(const Cell& cell, Visit visit) const {
    for (const Block& block : blocks_) {
      if (!block.touches(cell.lo, cell.hi) && !block.touches(cell.from, cell.to)) continue;
      for (std::size_t i = block.first; i < block.end; ++i) {
        const Point& p = points_[i];
        const bool inCell = InRange(p.x, cell.lo, cell.hi), inWindow = InRange(p.x, cell.from, cell.to);
        if (inCell || inWindow) visit(p, inCell, inWindow);
      }
    }
  }

  /// Points of the blocks that touch the window.
  int CountNear(const Cell& cell) const {
    std::size_t count = 0;
    for (const Block& block : blocks_)
      if (block.touches(cell.from, cell.to)) count += block.end - block.first;
    return static_cast<int>(count);
  }

 private:
  /// Points of a block: along a smooth curve some tens of neighbours span little, and testing blocks is cheap
  /// compared with testing points.
  static constexpr std::size_t kBlock = 16;

  struct Block {
    std::size_t first, end;
    double least, greatest;
    bool touches(double from, double to) const { return least < to && greatest >= from; }
  };

  void AddBlock(std::size_t first) {
    Block block{first, std::min(first + kBlock, points_.size()), points_[first].x, points_[first].x};
    for (std::size_t i = block.first; i < block.end; ++i) {
      block.least = std::min(block.least, points_[i].x);
      block.greatest = std::max(block.greatest, points_[i].x);
    }
    blocks_.push_back(block);
  }

  std::vector<Point> points_;
  std::vector<Block> blocks_;
};

/// The points of one cell and its window, and the fit to them. The constructor allocates all memory.
class Condenser {
 public:
  Condenser(const Points& points, const CellPlan& cells, int nPts, int polyOrder)
      : points_(points), polyOrder_(polyOrder) {
    const int largest = LargestWindow(cells, nPts);
    logX_ = OffsetVector<double>(1, largest);
    v_ = OffsetVector<double>(1, largest);
    sigma_ = OffsetVector<double>(1, largest);
    std::fill(sigma_.begin(), sigma_.end(), 1.0);
    const int terms = Terms(largest);
    u_.resize(static_cast<std::size_t>(largest) * static_cast<std::size_t>(terms) + 1);
    vMatrix_.resize(static_cast<std::size_t>(terms) * static_cast<std::size_t>(terms) + 1);
    for (OffsetVector<double>* work : {&coef_, &basis_, &w_}) *work = OffsetVector<double>(1, terms);
  }

  void Gather(const Cell& cell) {
    nWindow_ = nCell_ = 0;
    sum_ = sumSquares_ = 0.0;
    leastLogX_ = std::numeric_limits<double>::infinity();
    greatestLogX_ = -leastLogX_;
    points_.Scan(cell, [this](const Points::Point& p, bool inCell, bool inWindow) {
      if (inCell) {
        ++nCell_;
        sum_ += p.v;
        sumSquares_ += p.v * p.v;
      }
      if (!inWindow) return;
      ++nWindow_;
      logX_[nWindow_] = p.logX;
      v_[nWindow_] = p.v;
      if (p.logX < leastLogX_) leastLogX_ = p.logX;
      if (p.logX > greatestLogX_) greatestLogX_ = p.logX;
    });
  }

  int inWindow() const { return nWindow_; }
  double firstValue() const { return v_[1]; }

  /// Whether the cell has points of its own and the abscissa lies among the points of the window.
  bool Supports(double logX) const { return nCell_ >= 1 && !(logX < leastLogX_) && !(logX >= greatestLogX_); }

  /// Value at the abscissa of the polynomial through the window.
  double Fit(double logX) {
    const int terms = Terms(nWindow_);
    if (terms < 1) return 0.0;
    double chisq = 0.0;
    svdfit(logX_.shifted(), v_.shifted(), sigma_.shifted(), nWindow_, coef_.shifted(), terms, u_.data(),
           vMatrix_.data(), w_.shifted(), &chisq, nullptr);
    dpoly(logX, basis_.shifted(), terms);
    double value = 0.0;
    for (int j = 1; j <= terms; ++j) value += coef_[j] * basis_[j];
    return value;
  }

  /// Standard deviation of the values in the cell, not less than the floor.
  double Deviation() const {
    const double mean = sum_ / nCell_;
    const double deviation = std::sqrt(std::fabs(sumSquares_ / nCell_ - mean * mean));
    return deviation < kDeviationFloor * mean ? kDeviationFloor * mean : deviation;
  }

 private:
  int Terms(int windowCount) const { return std::max(std::min(windowCount, polyOrder_), 0); }

  /// No window holds more points.
  int LargestWindow(const CellPlan& cells, int nPts) const {
    int largest = 0;
    for (int k = 1; k <= nPts; ++k) largest = std::max(largest, points_.CountNear(cells(k)));
    return largest;
  }

  const Points& points_;
  int polyOrder_;
  int nWindow_ = 0, nCell_ = 0;
  double sum_ = 0.0, sumSquares_ = 0.0;
  double leastLogX_ = 0.0, greatestLogX_ = 0.0;
  OffsetVector<double> logX_, v_, sigma_;  // points of the window
  OffsetVector<double> coef_, basis_, w_;  // by terms
  std::vector<double> u_, vMatrix_;        // flat, counting from 1
};

/// Destination of the results; all count from 1.
struct Outputs {
  double *x, *value, *deviation;
};

/// How the two functions treat a window that allows no fit. Constants, so that each has its own loop.
struct SparseOverFrequency {
  static constexpr bool kEmptyCounts = true;  ///< one without points counts as kept; nothing is written
  static constexpr bool kSingleTaken = true;  ///< one with one point gives its value, wherever the point lies
};
struct SparseOverWavelength {
  static constexpr bool kEmptyCounts = false, kSingleTaken = false;
};

/// Fits all cells. Returns how many were kept.
template <class Sparse>
int CondenseCells(const CellPlan& cells, const Points& points, int nPts, int polyOrder, const Outputs& out) {
  Condenser condenser(points, cells, nPts, polyOrder);
  int counted = 0;
  for (int k = 1; k <= nPts; ++k) {
    const Cell cell = cells(k);
    out.x[k] = cell.centre;
    condenser.Gather(cell);
    if (condenser.inWindow() == 0) {
      if (Sparse::kEmptyCounts) ++counted;
      continue;
    }
    if (condenser.inWindow() == 1 && Sparse::kSingleTaken) {
      out.value[k] = condenser.firstValue();
      out.deviation[k] = 0.0;
      ++counted;
      continue;
    }
    const double logX = std::log10(cell.centre);
    if (!condenser.Supports(logX)) {  // it would be an extrapolation, as always for a single point
      out.value[k] = 0.0;
      continue;
    }
    out.value[k] = condenser.Fit(logX);
    out.deviation[k] = condenser.Deviation();
    ++counted;
  }
  return counted;
}

}  // namespace

int CompactDsp_f(double* xOut, double* vOut, double* sdOut, double xMin, double xMax, int nPts, int nSpan,
                 int polyOrder, int nIn, const double* xIn, const double* vIn, int mode, double incRatio,
                 const double* grid) {
  // Kept: an empty window counts, and a single point gives its own value.
  return CondenseCells<SparseOverFrequency>(CellPlan(xMin, xMax, nPts, nSpan, mode, incRatio, grid),
                                            Points(nIn, xIn, vIn), nPts, polyOrder, {xOut, vOut, sdOut});
}

int CompactDsp_w(double* xOut, double* vOut, double* sdOut, double xMin, double xMax, int nPts, int nSpan,
                 int polyOrder, int nIn, const double* xIn, const double* vIn, int /*mode*/,
                 double incRatio) {
  return CondenseCells<SparseOverWavelength>(
      CellPlan(xMin, xMax, nPts, nSpan, kCellsBySpacing, incRatio, nullptr), Points(nIn, xIn, vIn), nPts,
      polyOrder, {xOut, vOut, sdOut});
}

}  // namespace sondera
