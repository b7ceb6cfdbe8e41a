// script_bench.cpp - speed of reading scripts, compared with the minimum for a script: reading its lines.
//
// Prints the time of `check` over 10 000 lines, and of an empty script run in a started session, each with
// its ratio to a plain loop over the same lines (an empty script: over those of the long one).
#include <cstdio>
#include <string>

#include "app/script/line.h"
#include "app/script/run.h"
#include "app/startup.h"
#include "best_time.h"

using namespace sondera;

namespace {

constexpr int kLines = 10000;
constexpr double kBudget = 1e6;  // microseconds for each row

std::string LongScript() {
  constexpr const char* kSome[] = {"mask 12.5 20 jumps=2",
                                   "set SASW.MASKING_FREQINIT 12.5",
                                   "pair six 1 4 display=\"Freq Resp (Phase)\"",
                                   "press SASW.MASKINGNEW",
                                   "read hyx id=a files=a.hyx source=0 at=20,40",
                                   "invert iterations=5 ub_vs=900 from=smp:3",
                                   "# a comment",
                                   "assert velocity six 1 4 at=20 within=120,180",
                                   "layers 1,1.5,2.5,3,4,100",
                                   "window enhanced bandpass times=0.1,0.2,0.3,0.4"};
  std::string text = "*sondera 2\n";
  for (int i = 1; i < kLines; ++i) text += std::string(kSome[i % 10]) + "\n";
  return text;
}

}  // namespace

int main() {
  StartSession();
  const std::string text = LongScript(), empty = "*sondera 2\n";
  const double plain = bench::BestMicroseconds(
      [&] {
        script::Source source = script::Source::OfText(text);
        for (std::string line; source.Next(line);) continue;
      },
      kBudget);
  const double check = bench::BestMicroseconds(
      [&] {
        script::Source source = script::Source::OfText(text);
        if (script::CheckScript(source, "job") != 0) std::puts("the script is wrong");
      },
      kBudget);
  const double run = bench::BestMicroseconds(
      [&] {
        script::Source source = script::Source::OfText(empty);
        script::Run("job", {}).run(source);
      },
      kBudget);
  std::printf("lines taken          %8.2f ms\n", plain / 1e3);
  std::printf("check, %d lines   %8.2f ms   ratio %.1f\n", kLines, check / 1e3, check / plain);
  std::printf("an empty script      %8.3f ms   ratio %.3f\n", run / 1e3, run / plain);
}
