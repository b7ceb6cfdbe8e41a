// make_records.cpp - writes the records of the examples: a hammer blow on a known layered ground.
//   make_records <folder> [<seed>]
//
// rec1.tim to rec6.tim   time records of one blow, receivers 10, 14, 22, 30, 42 and 54 m from the source
// pair.hyx               transfer function of the receivers at 14 and 30 m, mean of five blows
// pair_coherence.txt     its coherence: frequency, 0 to 1
// true_curve.txt         phase velocities of the ground, true_layers.txt: its layers
//
// The same seed gives the same files. The last line of the output names the files.
#include <charconv>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>

#include "forward/site_files.h"
#include "runtime/atomic_writer.h"
#include "runtime/paths.h"
#include "runtime/text_format.h"

namespace {

using namespace sondera;

class Folder {
 public:
  explicit Folder(std::string path) : path_(std::move(path)) {}
  bool Write(const std::string& name, const std::string& text) {
    TextWriter file(JoinPath(path_, name));
    file.Put(text);
    if (file.Close()) return true;
    std::fprintf(stderr, "make_records: %s: %s\n", JoinPath(path_, name).c_str(), file.Reason().c_str());
    return false;
  }

 private:
  std::string path_;
};

bool WriteTimeRecords(Folder& folder, const SiteSimulator& site) {
  const SiteRecording recording = ExampleRecording();
  const SiteRecord record = site.Record(recording, 1);
  bool good = true;
  for (std::size_t i = 0; i < record.size(); ++i)
    good = folder.Write(FormatText("rec%zu.tim", i + 1), TimFileText(recording, record[i])) && good;
  return good;
}

bool WritePair(Folder& folder, const SiteSimulator& site) {
  const SiteSpectra mean = ExamplePair(site);
  std::string coherence = "# coherence of pair.hyx over its blows: frequency (Hz), 0 to 1\n";
  const std::vector<double> values = mean.Coherence(1);
  for (std::size_t i = 0; i < kExamplePairLines; ++i)
    coherence += FormatText("%.9g %.4f\n", static_cast<double>(i) * mean.deltaF, values[i]);
  return folder.Write("pair.hyx", SpectrumFileText(mean.deltaF, mean.Transfer(1), kExamplePairLines)) &&
         folder.Write("pair_coherence.txt", coherence);
}

}  // namespace

int main(int argc, char** argv) {
  SyntheticSite settings = ExampleSite();
  if (argc == 3) {
    const char* end = argv[2] + std::strlen(argv[2]);
    const auto read = std::from_chars(argv[2], end, settings.seed);
    if (read.ec != std::errc() || read.ptr != end) argc = 0;
  }
  if (argc < 2 || argc > 3) {
    std::fputs("make_records <folder> [<seed, a whole number>]\n", stderr);
    return 1;
  }
  std::error_code error;
  std::filesystem::create_directories(argv[1], error);  // the first file reports a failure
  const SiteSimulator site(settings);
  Folder folder(argv[1]);
  if (!WriteTimeRecords(folder, site) || !WritePair(folder, site) ||
      !folder.Write("true_curve.txt", TrueCurveText(site, 4.0, 62.0, 60)) ||
      !folder.Write("true_layers.txt", TrueLayersText(settings)))
    return 1;
  std::printf("%s: six records of a blow, the transfer function of a pair, and the truth about the ground\n",
              argv[1]);
  return 0;
}
