// seg2_fuzz.cpp - any bytes as a SEG-2 file: complete traces or one sentence, a plan or one sentence, and no
// more memory than the file justifies.
#include <sanitizer/allocator_interface.h>

#include <atomic>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <string_view>

#include "demand.h"
#include "project/import_seg2.h"
#include "project/seg2.h"
#include "project/shot_plan.h"

using namespace sondera;
using fuzz::Demand;

namespace {

// Bytes in use, and the most of them, since counting began.
std::atomic<std::int64_t> inUse{0}, most{0};

void OnMalloc(const volatile void*, std::size_t size) {
  const std::int64_t now = inUse += static_cast<std::int64_t>(size);
  if (now > most) most = now;
}
void OnFree(const volatile void* ptr) {
  if (ptr) inUse -= static_cast<std::int64_t>(__sanitizer_get_allocated_size(ptr));
}

constexpr std::int64_t kTimesTheFile = 16;
constexpr std::int64_t kForAnyFile = 1 << 16;

// For the report at the end: the input that was nearest to the limit.
std::int64_t inputs = 0, mostOfAll = 0, sizeOfIt = 0;
double share = 0.0;

void NoteUse(std::int64_t size) {
  const std::int64_t used = most;
  const double part = static_cast<double>(used) / static_cast<double>(kTimesTheFile * size + kForAnyFile);
  ++inputs;
  if (part <= share) return;
  share = part;
  mostOfAll = used;
  sizeOfIt = size;
}
void ReportUse() {
  std::fprintf(stderr, "%lld inputs; at most %.3f of the memory allowed: %lld bytes for a file of %lld\n",
               static_cast<long long>(inputs), share, static_cast<long long>(mostOfAll),
               static_cast<long long>(sizeOfIt));
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  __sanitizer_install_malloc_and_free_hooks(OnMalloc, OnFree);
  std::atexit(ReportUse);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  {
    inUse = most = 0;
    Seg2File file;
    const std::string reason = ReadSeg2(bytes, file);
    Demand(most <= kTimesTheFile * static_cast<std::int64_t>(size) + kForAnyFile);
    NoteUse(static_cast<std::int64_t>(size));
    Demand(reason.empty() == !file.traces.empty());
    for (const Seg2Trace& trace : file.traces) {
      Demand(!trace.samples.empty() && trace.number >= 1 && trace.number <= file.pointers);
      Demand(std::isfinite(trace.interval) && trace.interval > 0.0 && trace.stack >= 1);
      Demand(trace.receiver.size() <= 3 && trace.source.size() <= 3);
    }
  }
  Shot shot;
  if (!ShotOfSeg2("file", bytes, shot).empty()) return 0;
  for (const bool pairs : {true, false}) {
    ShotChoices choices;
    choices.measID = "fuzz";
    choices.pairs = pairs;
    choices.side = size % 2 == 0 ? ShotSide::Left : ShotSide::Unset;
    ShotPlan plan;
    if (!PlanShot(shot, choices, plan).empty()) continue;
    Demand(plan.planned().size() >= 2 && plan.samples >= 2 && pairs == !plan.pairs.empty());
    Demand(plan.interval > 0.0 && std::isfinite(plan.source) && plan.lengthUnit > 0.0);
    for (const ShotPair& pair : plan.pairs) Demand(pair.nearDistance > 0.0 && pair.spacing() > 0.0);
  }
  return 0;
}
