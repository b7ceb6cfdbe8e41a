// plot_ps_bench.cpp - speed of the PostScript library against fprintf of the same bytes.
//
// Prints the time of 1000 pages of four graphs with 401 points each, and its ratio to a loop of fprintf calls
// with the same formats and numbers, both into a file of the same folder. Says how much memory the pages
// took.
#include <sys/resource.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "best_time.h"
#include "plot_ps/plot_ps.h"

using namespace sondera;

namespace {

constexpr int kPages = 1000, kGraphs = 4, kPoints = 401;
constexpr double kBudget = 6e6;  // microseconds

std::vector<float> Curve(bool across) {
  std::vector<float> values(kPoints);
  for (int i = 0; i < kPoints; ++i) {
    const float x = static_cast<float>(i);
    values[static_cast<std::size_t>(i)] = across ? 15.0f * x / kPoints : 2.0f + 1.9f * std::sin(0.173f * x);
  }
  return values;
}

void Library(const std::string& name, const std::vector<float>& x, const std::vector<float>& y) {
  ps_iniplot(name);
  for (int page = 0; page < kPages; ++page) {
    for (int graph = 0; graph < kGraphs; ++graph) {
      ps_origin(0.0f, 5.0f, 0.0f, 0.0f);
      ps_polyline(x.data(), y.data(), kPoints, 0, 0, 0.0f);
    }
    ps_newpage();
  }
  ps_endplot("", 'f');
}

/// The same statements; prolog and end apart, which do not count.
void Plain(const std::string& name, const std::vector<float>& x, const std::vector<float>& y) {
  std::FILE* out = std::fopen(name.c_str(), "w");
  if (!out) return;
  const auto put = [out](const char* format, float a, float b) {
    std::fprintf(out, format, static_cast<double>(a), static_cast<double>(b));
  };
  for (int page = 0; page < kPages; ++page) {
    for (int graph = 0; graph < kGraphs; ++graph) {
      put("%.1f %.1f M\n", 0.0f, 5.0f * kPointsPerCm);
      put("%.1f %.1f translate\n", 0.0f, 5.0f * kPointsPerCm);
      put("%.1f %.1f M\n", x[0] * kPointsPerCm, y[0] * kPointsPerCm);
      put("newpath\n%.1f %.1f M\n", x[0] * kPointsPerCm, y[0] * kPointsPerCm);
      for (std::size_t i = 0; i < x.size(); ++i)
        put("%.1f %.1f L\n", x[i] * kPointsPerCm, y[i] * kPointsPerCm);
      std::fprintf(out, "GSG\n");
    }
    std::fprintf(out, "showpage\n");
    put("%.1f %.1f M\n", kPointsPerCm, 2.0f * kPointsPerCm);
    put("%.1f %.1f translate\n", kPointsPerCm, 2.0f * kPointsPerCm);
  }
  std::fclose(out);
}

long PeakKilobytes() {
  struct rusage usage {};
  ::getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

}  // namespace

int main() {
  const std::filesystem::path folder = std::filesystem::temp_directory_path() / "sondera_plot_ps_bench";
  std::filesystem::create_directories(folder);
  const std::string name = folder / "library.ps", plainName = folder / "plain.ps";
  const std::vector<float> x = Curve(true), y = Curve(false);
  const long before = PeakKilobytes();
  const double library = bench::BestMicroseconds([&] { Library(name, x, y); }, kBudget);
  const long after = PeakKilobytes();
  const double plain = bench::BestMicroseconds([&] { Plain(plainName, x, y); }, kBudget);
  std::printf(
      "%d pages of %d graphs of %d points, %.1f MB (fprintf %.1f MB): library %.3f s, fprintf %.3f s, "
      "ratio %.2f; memory %.1f MB more\n",
      kPages, kGraphs, kPoints, static_cast<double>(std::filesystem::file_size(name)) / 1e6,
      static_cast<double>(std::filesystem::file_size(plainName)) / 1e6, library / 1e6, plain / 1e6,
      library / plain, static_cast<double>(after - before) / 1e3);
  std::filesystem::remove_all(folder);
  return 0;
}
