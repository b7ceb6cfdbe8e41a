// import_bench.cpp - speed of the imports, from the file on disk to the finished measurement, compared with
// the minimum for such a file: getline and strtod over the same bytes.
//
// Prints MB/s of both and their ratio (time of the import / time of the plain loop). A time history also has
// its transforms to pay for; they are shown apart.
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "numeric/analysis.h"
#include "panels/loadtxdata_import.h"
#include "records/session.h"
#include "runtime/dialogs.h"
#include "runtime/text_format.h"

using namespace sondera;

namespace {

constexpr int kRuns = 7;
constexpr int kLines = 1 << 16;

/// Shortest of some runs, s.
double Best(const std::function<void()>& work) {
  double best = 1e99;
  for (int i = 0; i < kRuns; ++i) {
    const auto start = std::chrono::steady_clock::now();
    work();
    best = std::min(best, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
  }
  return best;
}

double Sample(int i) {
  return std::sin(0.01 * i) * std::exp(-1e-5 * i) + 1e-3 * ((i * 7919) % 101);
}

template <class F>
std::string WriteLines(const std::filesystem::path& path, const std::string& head, F line) {
  std::ofstream out(path);
  out << head;
  char text[160];
  for (int i = 0; i < kLines; ++i) {
    line(text, sizeof text, i);
    out << text;
  }
  return path.string();
}

/// All numbers of a file, as a plain program would read them.
void PlainLoop(const std::vector<std::string>& files, std::vector<double>& numbers) {
  numbers.clear();
  for (const std::string& name : files) {
    std::ifstream in(name);
    for (std::string line; std::getline(in, line);) {
      const char* at = line.c_str();
      for (char* end = nullptr;; at = end) {
        const double v = std::strtod(at, &end);
        if (end == at) break;
        numbers.push_back(v);
      }
    }
  }
}

double PlainTransforms(int channels, int samples) {
  std::vector<double> re(static_cast<std::size_t>(samples)), im(re.size());
  return Best([&] {
    for (int c = 0; c <= channels; ++c) {
      for (int i = 0; i < samples; ++i) re[static_cast<std::size_t>(i)] = Sample(i);
      std::fill(im.begin(), im.end(), 0.0);
      FFT(re.data(), im.data(), samples);
    }
  });
}

void Report(const char* name, const std::vector<std::string>& files, int channels, bool transforms,
            int (*load)(const ImportRequest&)) {
  ImportRequest request;
  request.measID = "bench";
  request.nChannels = channels;
  for (int i = 0; i <= channels; ++i) request.locations.push_back(10.0 * i);
  request.files = files;
  double bytes = 0.0;
  for (const std::string& f : files) bytes += static_cast<double>(std::filesystem::file_size(f));

  const double import = Best([&] {
    SetupGlobalArrays();
    if (load(request) != 0) std::exit((std::fprintf(stderr, "%s: %s\n", name, LastMessage().c_str()), 1));
  });
  std::vector<double> numbers;
  const double plain = Best([&] { PlainLoop(files, numbers); });
  std::printf("%-6s %6.2f MB in %zu files: import %7.1f MB/s, plain loop %7.1f MB/s, import/plain %.2f\n",
              name, bytes / 1e6, files.size(), bytes / 1e6 / import, bytes / 1e6 / plain, import / plain);
  if (transforms) {
    const double fft = PlainTransforms(channels, kLines);
    std::printf("       of which transforms alone %.1f %%; import without them / plain %.2f\n",
                100.0 * fft / import, (import - fft) / plain);
  }
}

}  // namespace

int main() {
  const std::filesystem::path folder = std::filesystem::temp_directory_path() / "sondera_import_bench";
  std::filesystem::create_directories(folder);
  ResetSession();
  std::vector<std::string> tim, hyx, uff;
  for (int c = 0; c < 2; ++c) {
    tim.push_back(WriteLines(folder / FormatText("r%d", c), "", [&](char* text, std::size_t size, int i) {
      std::snprintf(text, size, "%.4f %.9g\n", -0.5 + 1e-4 * i, Sample(i + c));
    }));
    hyx.push_back(WriteLines(folder / FormatText("h%d", c), "", [&](char* text, std::size_t size, int i) {
      std::snprintf(text, size, "%.10g %.8e %.8e\n", 0.0625 * i, Sample(i + c), Sample(i + c + 100));
    }));
    const std::string head =
        "    -1\n    58\nNONE\nNONE\nNONE\nNONE\nNONE\n"
        "    4         1    0         0 NONE               2   3 NONE               1   3\n"
        "         6     65536         1  0.00000E+00  6.25000E-02  0.00000E+00\n"
        "        18    0    0    0 NONE                 NONE\n        18    0    0    0 NONE                 "
        "NONE\n"
        "        18    0    0    0 NONE                 NONE\n        18    0    0    0 NONE                 "
        "NONE\n";
    uff.push_back(WriteLines(folder / FormatText("u%d", c), head, [&](char* text, std::size_t size, int i) {
      std::snprintf(text, size, "%20.12E%20.12E%s", Sample(i + c), Sample(i + c + 100),
                    i % 2 == 1 ? "\n" : "");
    }));
  }
  Report(".tim", tim, 2, true, [](const ImportRequest& r) { return LoadTimeData(r); });
  Report(".Hyx", hyx, 3, false, [](const ImportRequest& r) { return LoadHyxData(r); });
  Report("58", uff, 3, false, [](const ImportRequest& r) { return LoadHyx58Data(r); });
  std::filesystem::remove_all(folder);
  return 0;
}
