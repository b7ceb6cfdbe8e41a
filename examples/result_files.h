// result_files.h - the text files that an inversion leaves, read back for the examples: ".fmp" (models with
// their bands), ".fdp" (curves) and ".r" (resolution of Vs).
#pragma once

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "curve_report.h"

namespace sondera::example {

struct LayerLine {
  double depth, thickness, Vs, lower, upper;
  double resolution = 1.0;  ///< of Vs; 1 for a fixed layer
};

/// One iteration of a run: 0 is the starting model, a number below 0 a starting profile.
struct IterationBlock {
  int number = 0;
  double rms = 0.0;  ///< m/s; below 0 without a computed velocity
  std::vector<LayerLine> layers;
  std::vector<CurvePoint> observed, computed;
};

inline std::vector<double> NumbersOf(const std::string& line) {
  std::istringstream in(line);
  std::vector<double> numbers;
  for (double x; in >> x;) numbers.push_back(x);
  return numbers;
}

/// Number behind "Vel=" of a head line; false for any other line.
inline bool IsHead(const std::string& line, double& rms) {
  if (line.rfind("Iteration no.", 0) != 0) return false;
  const std::size_t at = line.find("Vel=");
  if (at != std::string::npos) rms = std::atof(line.c_str() + at + 4);
  return true;
}

inline std::vector<IterationBlock> ReadModels(const std::string& base) {
  std::vector<IterationBlock> blocks;
  std::ifstream in(base + ".fmp");
  for (std::string line; std::getline(in, line);) {
    double rms = 0.0;
    if (IsHead(line, rms)) {
      blocks.emplace_back();
      blocks.back().rms = rms;
      blocks.back().number = std::atoi(line.c_str() + line.find(':') + 1);
      continue;
    }
    const std::vector<double> x = NumbersOf(line);  // number, depth, H, Vp, Vs, lower, upper, ...
    if (blocks.empty() || x.size() != 10) continue;
    blocks.back().layers.push_back({x[1], x[2], x[4], x[5], x[6]});
  }
  return blocks;
}

/// Layers of a text table: depth of the top, thickness, Vs. Lines that begin with # are skipped.
inline std::vector<LayerLine> ReadLayers(const std::string& path) {
  std::vector<LayerLine> layers;
  std::ifstream in(path);
  for (std::string line; std::getline(in, line);) {
    const std::vector<double> x = NumbersOf(line);
    if (x.size() == 3) layers.push_back({x[0], x[1], x[2], x[2], x[2]});
  }
  return layers;
}

/// Adds the points of one row: array curves have wavelength and velocity, observed and computed, for each
/// curve; a point that does not exist is four dashes, which touch those of the next one.
inline void AddArrayRow(std::string line, IterationBlock& block) {
  for (std::size_t at; (at = line.find("--")) != std::string::npos;) line.insert(at + 1, " ");
  std::istringstream in(line);
  for (std::string word[4]; in >> word[0] >> word[1] >> word[2] >> word[3];) {
    if (word[0] == "-") continue;
    const double L = std::atof(word[0].c_str()), v = std::atof(word[1].c_str());
    const double Lc = std::atof(word[2].c_str()), vc = std::atof(word[3].c_str());
    block.observed.push_back({v / L, L, v});
    if (vc > 0.0) block.computed.push_back({vc / Lc, Lc, vc});
  }
}

/// The same of a global curve: by wavelength (plane waves) or by frequency.
inline void AddGlobalRow(const std::string& line, bool byWavelength, IterationBlock& block) {
  const std::vector<double> x = NumbersOf(line);
  if (x.size() < 5) return;
  const double L = byWavelength ? x[0] : x[1], Lc = byWavelength ? x[0] : x[3];
  block.observed.push_back({L > 0.0 ? x[2] / L : 0.0, L, x[2]});
  if (x[4] > 0.0) block.computed.push_back({x[4] / Lc, Lc, x[4]});
}

/// Curves of each iteration, into the blocks of ReadModels.
inline void ReadCurves(const std::string& base, std::vector<IterationBlock>& blocks) {
  enum class Part { kOther, kArray, kByWavelength, kByFrequency } part = Part::kOther;
  std::ifstream in(base + ".fdp");
  std::size_t next = 0;
  IterationBlock* block = nullptr;
  for (std::string line; std::getline(in, line);) {
    double rms = 0.0;
    if (IsHead(line, rms)) {
      block = next < blocks.size() ? &blocks[next++] : nullptr;
      part = Part::kOther;
    } else if (line.find("waveL(obs)") != std::string::npos) {
      part = Part::kArray;
    } else if (line.rfind("wavelength", 0) == 0) {
      part = Part::kByWavelength;
    } else if (line.rfind("frequency", 0) == 0) {
      part = Part::kByFrequency;
    } else if (line.empty() || line.find('(') != std::string::npos) {
      part = Part::kOther;
    } else if (block && part == Part::kArray) {
      AddArrayRow(line, *block);
    } else if (block && part != Part::kOther) {
      AddGlobalRow(line, part == Part::kByWavelength, *block);
    }
  }
}

/// Resolution of Vs of the iterations from 1 on, into the blocks.
inline void ReadResolution(const std::string& base, std::vector<IterationBlock>& blocks) {
  std::ifstream in(base + ".r");
  std::size_t iteration = 0;
  bool ofVs = false;
  for (std::string line; std::getline(in, line);) {
    if (line.rfind("Iteration no.", 0) == 0) ++iteration;
    if (line.rfind("Model Parameter", 0) == 0) ofVs = line.find("Shear") != std::string::npos;
    const std::vector<double> x = NumbersOf(line);  // layer, depth, two norms, diagonal, two spreads
    if (!ofVs || x.size() != 7 || iteration >= blocks.size()) continue;
    const auto layer = static_cast<std::size_t>(x[0]);
    if (layer >= 1 && layer <= blocks[iteration].layers.size())
      blocks[iteration].layers[layer - 1].resolution = x[4];
  }
}

/// All iterations of a run, oldest first; none when there is no ".fmp".
inline std::vector<IterationBlock> ReadRun(const std::string& base) {
  std::vector<IterationBlock> blocks = ReadModels(base);
  ReadCurves(base, blocks);
  ReadResolution(base, blocks);
  return blocks;
}

}  // namespace sondera::example
