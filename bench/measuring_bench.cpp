// A measuring run against real time, four channels at 102400 Hz, for short records (512 lines, 10 ms) and long ones
// (524288 lines, 10.24 s):
// * folding a record into the averages and filling the two graphs, as parts of the length of the record;
// * whole runs on the simulated site in real time: processor time as part of one core, the time between two records,
//   and whether every sample is that of the same run without its pace.
// Aims: fold and graphs below a tenth of a short record; a run of long records below a quarter of a core.
// With a number behind the name: that many unpaced records of 512 lines in one run, and the memory behind record 100
// and at the end.
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>

#include "acquisition/acquisition_state.h"
#include "acquisition/measurement_run.h"
#include "app/devices.h"
#include "app/startup.h"
#include "best_time.h"
#include "numeric/random_numbers.h"
#include "records/measdb.h"
#include "records/session.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/events.h"
#include "runtime/redraw.h"
#include "signal/spectra.h"

namespace {

using namespace sondera;
using Clock = std::chrono::steady_clock;

constexpr int kChannels = 4;
constexpr double kRate = 102400.0;

HWSetup& Hw() {
  return *MeasDB.hwSetupList.at(1);
}

/// A session on the simulated site with receivers 6 to 24 m from the source, at the highest span.
bool Begin(const std::string& options, int lines, int averages) {
  StartSession();
  if (const std::string fault = UseBoard("sim:" + options); !fault.empty()) {
    std::puts(fault.c_str());
    return false;
  }
  Hw().nLines = lines;
  Hw().nAverage = averages;
  MeasDB.measSetupList.at(1)->recLoc = {6.0, 12.0, 18.0, 24.0};
  return true;
}

/// Lets events in and draws after each record, as the page does.
class Page : public MeasListener {
 public:
  explicit Page(int stopAfter = 0) : stopAfter_(stopAfter) {}
  bool Poll() override {
    ProcessSystemEvents();
    return stopAfter_ > 0 && measRun.delivered >= stopAfter_;
  }
  void Redraw() override {
    DoPlotting(0);
    if (measRun.delivered == 100) memoryAt100 = ResidentKilobytes();
  }
  static long ResidentKilobytes() {
    long all = 0, resident = 0;
    std::FILE* statm = std::fopen("/proc/self/statm", "r");
    if (statm && std::fscanf(statm, "%ld %ld", &all, &resident) != 2) resident = 0;
    if (statm) std::fclose(statm);
    return resident * (sysconf(_SC_PAGESIZE) / 1024);
  }
  long memoryAt100 = 0;

 private:
  int stopAfter_;
};

int Run(Page& page) {
  measRun = {.measRunning = 1};
  return PerformMeas(Hw().key, page).result;
}

void FoldAndGraphs(int lines) {
  if (!Begin("pace=0", lines, 1)) return;
  Page page;
  if (Run(page) != 0) return;
  const std::size_t samples = 2 * static_cast<std::size_t>(Hw().nLines);
  session.samplesPerChan = static_cast<int>(samples);
  session.measBuffer.resize(samples * kChannels);
  RandomNumbers random(1);
  for (double& x : session.measBuffer) x = random.Normal();
  const double budget = lines > 10000 ? 3e6 : 6e5;
  const double fold = bench::BestMicroseconds([] { CalcSpectralFns(Hw().key, nullptr); }, budget);
  const double record = static_cast<double>(samples) / kRate * 1e6;
  std::printf("%6d lines, fold %10.1f us, %.4f of the record;", lines, fold, fold / record);
  for (const int type : {0, 3}) {
    SetCtrlVal(measpanel::DISPATYPE, type);
    SetCtrlVal(measpanel::DISPBTYPE, type);
    const double graphs = bench::BestMicroseconds([] { DoPlotting(0); }, budget);
    std::printf(" graphs of type %d %10.1f us, %.4f", type, graphs, graphs / record);
  }
  std::puts("");
  session.measBuffer = {};
}

void InRealTime(int lines, int records) {
  if (!Begin("pace=0", lines, records)) return;
  Page unpaced;
  if (Run(unpaced) != 0) return;
  const RawData wanted = *MeasDB.rawDataList.at(1);
  if (!Begin("pace=1", lines, records)) return;
  Page paced;
  const auto begin = Clock::now();
  const std::clock_t processor = std::clock();
  if (Run(paced) != 0) return;
  const double work = static_cast<double>(std::clock() - processor) / CLOCKS_PER_SEC;
  const double real = std::chrono::duration<double>(Clock::now() - begin).count();
  const double recorded = records * 2.0 * lines / kRate;
  const RawData& got = *MeasDB.rawDataList.at(1);
  std::printf(
      "%6d lines, %4d records in real time: %.3f of one core, %.4f s between two records, samples %s\n",
      lines, records, work / real, (real - recorded) / records,
      got.timeHist == wanted.timeHist && got.powerSpec == wanted.powerSpec ? "equal" : "NOT EQUAL");
}

void Memory(int records) {
  if (!Begin("pace=0", 512, 1)) return;
  Hw().averageOn = 0;
  Page page(records);
  const auto begin = Clock::now();
  if (Run(page) != 0) return;
  const long end = Page::ResidentKilobytes();
  std::printf(
      "%d records without a pace in %.1f s: resident memory %ld kB behind record 100, %ld kB at the end: "
      "%+ld kB\n",
      measRun.delivered, std::chrono::duration<double>(Clock::now() - begin).count(), page.memoryAt100, end,
      end - page.memoryAt100);
}

}  // namespace

int main(int argc, char** argv) {
  std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);  // it takes a minute, most of it in real time
  if (argc > 1) {
    Memory(std::atoi(argv[1]));
    return 0;
  }
  FoldAndGraphs(512);
  FoldAndGraphs(524288);
  InRealTime(512, 200);
  InRealTime(524288, 2);
}
