// section_contours.cpp - see section_contours.h. Each crossing is identified by its grid edge, so segments of
// neighbouring cells meet exactly and are joined by the numbers of their edges.
#include "signal/section_contours.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <deque>
#include <unordered_map>

namespace sondera {
namespace {

constexpr int kMostLevels = 1000;  // of a range, for every requested number

/// Edges of the grid: even numbers run along distance from a node, odd ones along wavelength.
using Edge = std::int64_t;

/// The segments of one level: each edge has up to two neighbours.
class Segments {
 public:
  Segments(const SectionGrid& grid, double level) : grid_(grid), level_(level) {
    for (int j = 0; j < grid.Ny(); ++j)
      for (int i = 0; i < grid.Nx(); ++i) Cut(i, j);
  }

  void TakeLines(std::vector<ContourLine>& lines) {
    for (Edge start : order_) {
      if (Degree(start) == 0) continue;
      std::deque<Edge> chain = {start};
      while (const Edge* next = Follow(chain.back())) chain.push_back(*next);
      while (const Edge* next = Follow(chain.front())) chain.push_front(*next);
      ContourLine line;
      line.level = level_;
      for (Edge e : chain) AddPoint(e, line);
      lines.push_back(std::move(line));
    }
  }

 private:
  struct Links {
    std::array<Edge, 2> to{};
    int count = 0;
  };
  const SectionGrid& grid_;
  double level_;
  std::unordered_map<Edge, Links> links_;
  std::vector<Edge> order_;  // edges in the order of discovery, so that the lines do not depend on hashes
  Edge taken_ = 0;

  Edge Along(int i, int j, bool wavelength) const {
    return 2 * (static_cast<Edge>(j) * static_cast<Edge>(grid_.gridX.size()) + i) + (wavelength ? 1 : 0);
  }

  /// Segments of the cell between the nodes (i, j) and (i + 1, j + 1).
  void Cut(int i, int j) {
    const double v[4] = {grid_.At(i, j), grid_.At(i + 1, j), grid_.At(i + 1, j + 1), grid_.At(i, j + 1)};
    int above = 0;
    for (int k = 0; k < 4; ++k) {
      if (std::isnan(v[k])) return;
      if (v[k] >= level_) above |= 1 << k;
    }
    if (above == 0 || above == 15) return;
    // edge k lies between corner k and corner k + 1
    const Edge edge[4] = {Along(i, j, false), Along(i + 1, j, true), Along(i, j + 1, false),
                          Along(i, j, true)};
    int cut[4], count = 0;
    for (int k = 0; k < 4; ++k)
      if ((above >> k & 1) != (above >> (k + 1) % 4 & 1)) cut[count++] = k;
    if (count == 2) {
      Join(edge[cut[0]], edge[cut[1]]);
      return;
    }
    // All four edges are cut. The corners on the same side as the middle are connected through it; the lines
    // separate the two other corners: corner k lies between edges k - 1 and k.
    const bool middle = (v[0] + v[1] + v[2] + v[3]) / 4.0 >= level_;
    for (int k = 0; k < 4; ++k)
      if ((above >> k & 1) != (middle ? 1 : 0)) Join(edge[(k + 3) % 4], edge[k]);
  }

  void Join(Edge a, Edge b) {
    for (const auto& [from, to] : {std::pair(a, b), std::pair(b, a)}) {
      Links& l = links_[from];
      if (l.count == 0) order_.push_back(from);
      l.to[static_cast<std::size_t>(l.count++)] = to;
    }
  }

  int Degree(Edge e) const { return links_.at(e).count; }

  void Drop(Edge from, Edge to) {
    Links& l = links_[from];
    if (l.to[0] == to) l.to[0] = l.to[1];
    --l.count;
  }

  /// Removes and returns a segment at the edge; null when there is none left.
  const Edge* Follow(Edge e) {
    Links& l = links_[e];
    if (l.count == 0) return nullptr;
    taken_ = l.to[0];
    Drop(e, taken_);
    Drop(taken_, e);
    return &taken_;
  }

  void AddPoint(Edge e, ContourLine& line) const {
    const auto columns = static_cast<Edge>(grid_.gridX.size());
    const bool wavelength = e % 2 != 0;
    const int i = static_cast<int>(e / 2 % columns), j = static_cast<int>(e / 2 / columns);
    const int i1 = wavelength ? i : i + 1, j1 = wavelength ? j + 1 : j;
    const double a = grid_.At(i, j), b = grid_.At(i1, j1), share = (level_ - a) / (b - a);
    const auto at = [](const std::vector<double>& axis, int k) { return axis[static_cast<std::size_t>(k)]; };
    line.x.push_back(at(grid_.gridX, i) + share * (at(grid_.gridX, i1) - at(grid_.gridX, i)));
    line.y.push_back(at(grid_.gridY, j) + share * (at(grid_.gridY, j1) - at(grid_.gridY, j)));
  }
};

}  // namespace

std::vector<double> RoundLevels(double low, double high, int count) {
  std::vector<double> levels;
  if (!(high > low) || !std::isfinite(high - low) || count < 1) return levels;
  const double wanted = (high - low) / (count + 1);
  const double decade = std::pow(10.0, std::floor(std::log10(wanted)));
  double step = 10.0 * decade;
  for (double factor : {1.0, 2.0, 5.0}) {
    if (factor * decade >= wanted * (1.0 - 1e-9)) {
      step = factor * decade;
      break;
    }
  }
  if (!(step > 0.0)) return levels;
  const double first = std::floor(low / step);
  for (int k = 0; k < kMostLevels; ++k) {
    const double level = (first + k) * step;
    if (!(level < high)) break;
    if (level > low) levels.push_back(level);
  }
  return levels;
}

std::vector<ContourLine> SectionContours(const SectionGrid& grid, const std::vector<double>& levels) {
  std::vector<ContourLine> lines;
  if (grid.Empty()) return lines;
  for (double level : levels)
    if (std::isfinite(level)) Segments(grid, level).TakeLines(lines);
  return lines;
}

}  // namespace sondera
