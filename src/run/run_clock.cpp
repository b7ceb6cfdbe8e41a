// run_clock.cpp - see run_clock.h.
#include "run/run_clock.h"

#include <ctime>

#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr int kSecondsOfDay = 86400;

int Seconds(const std::array<int, 3>& clock) {
  return (clock[0] * 60 + clock[1]) * 60 + clock[2];
}

std::array<int, 3> ClockNow() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return {local.tm_hour, local.tm_min, local.tm_sec};
}

}  // namespace

std::string ElapsedText(const std::array<int, 3>& start, const std::array<int, 3>& end) {
  int elapsed = Seconds(end) - Seconds(start);
  if (elapsed < 0) elapsed += kSecondsOfDay;
  return FormatText("[%dhr %dmin %dsec]", elapsed / 3600, elapsed / 60 % 60, elapsed % 60);
}

void FS_ReportTime(Course& course, int stage) {
  if (stage == 0) {
    course.startClock = ClockNow();
    course.timeText.clear();
  } else {
    course.timeText = ElapsedText(course.startClock, ClockNow());
  }
}

}  // namespace sondera
