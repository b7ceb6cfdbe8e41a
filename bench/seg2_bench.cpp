// seg2_bench.cpp - time to import a SEG-2 shot of 24 channels x 16 000 samples, as pairs and as one measurement,
// over the time to read its file and to transform its channels once, the samples and transforms being kept, as an
// import has to keep them. The ratio should stay below 3.
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <vector>

#include "best_time.h"
#include "numeric/analysis.h"
#include "project/import_seg2.h"
#include "project/shot_import.h"
#include "records/measdb.h"
#include "records/records_state.h"
#include "records/session.h"
#include "support/seg2_writer.h"

using namespace sondera;

namespace {

constexpr int kChannels = 24, kSamples = 16000, kLength = 16384;
constexpr double kBudget = 2e6;  // microseconds

void ReadAndTransform(const std::string& path) {
  std::string bytes(std::filesystem::file_size(path), '\0');
  std::ifstream(path, std::ios::binary).read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  std::vector<std::vector<double>> kept;
  for (int c = 0; c < kChannels; ++c) {
    for (int part = 0; part < 3; ++part) kept.emplace_back(kLength);
    std::vector<double>&x = kept[kept.size() - 3], &re = kept[kept.size() - 2], &im = kept.back();
    const char* data = bytes.data() + bytes.size() - static_cast<std::size_t>(kChannels - c) * kSamples * 4;
    for (std::size_t i = 0; i < kSamples; ++i) {
      float v = 0;
      std::copy_n(data + 4 * i, 4, reinterpret_cast<char*>(&v));
      x[i] = v;
    }
    RealFFT(x.data(), re.data(), im.data(), kLength);
  }
}

}  // namespace

int main() {
  ResetSession();
  test::Seg2Line line;
  line.code = 4;
  line.samples = kSamples;
  for (int c = 0; c < kChannels; ++c) line.receivers.push_back(10.0 + 2.0 * c);
  line.value = [](std::size_t r, double t) {
    return std::sin(100.0 * t + static_cast<double>(r)) * std::exp(-t) + 1e-3 * std::sin(1e5 * t);
  };
  const std::string path = (std::filesystem::temp_directory_path() / "sondera_seg2_bench.sg2").string();
  std::ofstream(path, std::ios::binary) << test::Seg2Bytes(test::Seg2OfLine(line));

  const double plain = bench::BestMicroseconds([&] { ReadAndTransform(path); }, kBudget);
  std::printf("read the file and transform 24 channels once: %.2f ms\n", plain / 1e3);
  for (const bool pairs : {true, false}) {
    ShotRequest request{{path}, ReadSeg2Shot, {}, "ProjID", {}};
    request.choices.measID = "bench";
    request.choices.pairs = pairs;
    request.choices.overwrite = true;
    std::string reason;
    const double import = bench::BestMicroseconds(
        [&] {
          ResetRecordsState();
          reason = ImportShots(request);
        },
        kBudget);
    if (!reason.empty()) return std::fprintf(stderr, "%s\n", reason.c_str()), 1;
    std::printf("import, %-9s %.2f ms, import / plain %.2f\n", pairs ? "pairs" : "one", import / 1e3,
                import / plain);
  }
  std::filesystem::remove(path);
  return 0;
}
