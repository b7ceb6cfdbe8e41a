// Saving and loading a project of about 100 MB against plain writing and reading of the same bytes: ratio of
// the processor times, the flush to disk shown apart, and peak memory of a load as a multiple of the file's
// size.
#include <time.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "panels/mainmenu_project.h"
#include "project/project_file.h"
#include "records/inv_records.h"
#include "records/measdb.h"
#include "records/model_records.h"
#include "records/session.h"
#include "runtime/controls.h"
#include "runtime/dialogs.h"
#include "runtime/file_driver.h"

namespace {

using namespace sondera;

constexpr int kMeasurements = 6, kChannels = 6, kLines = 16384;

/// Values that no file system can compress away.
double NextValue() {
  static unsigned long long state = 88172645463325252ull;
  state ^= state << 13;
  state ^= state >> 7;
  state ^= state << 17;
  return static_cast<double>(state >> 11) * 0x1p-53;
}

void StartSessionForBench() {
  ResetSession();
  ResetControls();
  SetupGlobalArrays();
  InitializeFModel();
  InitializeTheoDispInfo();
  InitializeInvAnal();
}

void MakeLargeProject() {
  StartSessionForBench();
  for (int key = 1; key <= kMeasurements; ++key) {
    InsertNewIDInfo("bench", "m" + std::to_string(key), key);
    HWSetup& hw = *SetupHWSetupArrays(key, kChannels);
    hw.nLines = kLines;
    hw.freqSpan = 1000.0;
    SetupMSetupArrays(key);
    RawData& raw = *SetupRawDataArrays(key);
    for (auto block : kRawBlocks)
      for (double& v : raw.*block) v = NextValue();
    PMeasInfo& pair = *MeasDB.pMeasList.append();
    SetupPairMeasArrays(pair, kLines);
    pair.key = key;
    pair.dspChan = 1;
    for (auto array : kPairArrays)
      for (double& v : pair.*array) v = NextValue();
    for (double& v : pair.gaborMap(1)) v = NextValue();
  }
}

/// Processor time of this process, including its system calls, in seconds. All work is copying into and out
/// of the system's file cache, so a busy machine disturbs it less than wall-clock time.
double ProcessorSeconds() {
  timespec t{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
  return static_cast<double>(t.tv_sec) + 1e-9 * static_cast<double>(t.tv_nsec);
}

/// Best times of two alternatives in seconds, measured alternately.
struct Times {
  double ours = 1e300, plain = 1e300;
};
template <class Ours, class Plain, class Prepare>
Times Race(Ours ours, Plain plain, Prepare prepare) {
  const auto seconds = [](auto run) {
    const double start = ProcessorSeconds();
    run();
    return ProcessorSeconds() - start;
  };
  Times best;
  for (int i = 0; i < 15; ++i) {
    prepare();
    best.ours = std::min(best.ours, seconds(ours));
    best.plain = std::min(best.plain, seconds(plain));
  }
  return best;
}

double flushSeconds = 0.0;  // spent in flushes to the disk

int TimedFlush(int fd) {
  const auto start = std::chrono::steady_clock::now();
  const int status = posixFileDriver.flush(fd);
  flushSeconds += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  return status;
}

[[noreturn]] void Fail(const std::string& what) {
  std::fprintf(stderr, "project_bench: %s\n", what.c_str());
  std::exit(1);
}

void Save(const std::string& path) {
  std::string reason;
  if (!WriteProjectFile(path, reason)) Fail(reason);
}

void Load(const std::string& path) {
  SectionReader file;
  std::string reason;
  if (!file.Open(path, &reason)) Fail(reason);
  ReadProjectSections(file);
  if (!file.Trouble().empty()) Fail(file.Trouble());
}

void PlainWrite(const std::string& path, const std::string& bytes) {
  std::FILE* f = std::fopen(path.c_str(), "wb");
  if (!f || std::fwrite(bytes.data(), 1, bytes.size(), f) != bytes.size() || std::fclose(f) != 0)
    Fail("no write");
}

/// Reads into memory that is new each time, as that of a load is.
void PlainRead(const std::string& path, std::size_t size) {
  const std::unique_ptr<char[]> bytes(new char[size]);
  std::FILE* f = std::fopen(path.c_str(), "rb");
  if (!f || std::fread(bytes.get(), 1, size, f) != size) Fail("no read");
  std::fclose(f);
}

/// A line of /proc/self/status, kB.
long StatusKB(const char* field) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);)
    if (line.compare(0, std::strlen(field), field) == 0)
      return std::atol(line.c_str() + std::strlen(field) + 1);
  return 0;
}

/// Run in a process of its own, so that nothing but the load counts.
int MeasureLoad(const std::string& path) {
  StartSessionForBench();
  const long before = StatusKB("VmRSS");
  Load(path);
  const double size = static_cast<double>(std::filesystem::file_size(path));
  std::printf("load: peak memory %.3f times the file\n",
              static_cast<double>(StatusKB("VmHWM") - before) * 1024.0 / size);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 3 && std::string(argv[1]) == "--load") return MeasureLoad(argv[2]);
  const std::string folder = argc == 2 ? argv[1] : std::filesystem::temp_directory_path().string();
  const std::string path = folder + "/sondera_bench.da", plain = folder + "/sondera_bench.bin";

  MakeLargeProject();
  Save(path);
  std::ifstream in(path, std::ios::binary);
  const std::string bytes((std::istreambuf_iterator<char>(in)), {});
  std::printf("project of %.1f MB\n", static_cast<double>(bytes.size()) / 1e6);

  const auto save = [&] { Save(path); };
  const auto remove = [&] {
    std::remove(path.c_str());
    std::remove(plain.c_str());
  };
  FileDriver noFlush = CurrentFileDriver();
  noFlush.name = "no flush";
  noFlush.flush = [](int) { return 0; };
  InstallFileDriver(&noFlush);
  const Times write = Race(
      save, [&] { PlainWrite(plain, bytes); }, remove);
  FileDriver timed = posixFileDriver;
  timed.flush = TimedFlush;
  InstallFileDriver(&timed);
  save();
  InstallFileDriver(nullptr);
  std::printf("save: %.1f ms, plain write %.1f ms, ratio %.2f; apart from that, %.1f ms of flush to disk\n",
              write.ours * 1e3, write.plain * 1e3, write.ours / write.plain, flushSeconds * 1e3);

  PlainWrite(plain, bytes);
  const Times read =
      Race([&] { Load(path); }, [&] { PlainRead(plain, bytes.size()); }, [] { StartSessionForBench(); });
  std::printf("load: %.1f ms, plain read %.1f ms, ratio %.2f\n", read.ours * 1e3, read.plain * 1e3,
              read.ours / read.plain);
  std::fflush(stdout);
  const int status = std::system((std::string(argv[0]) + " --load " + path).c_str());
  remove();
  return status == 0 ? 0 : 1;
}
