// first_settings.cpp - see first_settings.h. Owns no state.
#include "acquisition/first_settings.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include "acquisition/daq_driver.h"
#include "records/session.h"

namespace sondera {
namespace {

constexpr int kRangesScanned = 100;
constexpr double kWorkingSpan = 52100.0;  // Hz; working value of a session whose board sets no span
constexpr int kFirstLines = 512;

constexpr int kLinesTable[] = {512, 1024, 2048, 4096, 8192, 16384, 32768, 65536, 131072, 262144, 524288};
constexpr int kLinesOverflowIndex = 2;  // Kept: more lines than the table has select its third entry

}  // namespace

BoardRanges ScanRanges() {
  BoardRanges ranges;
  const auto& limits = session.device.aiVoltageRngs;
  int i = 0;
  for (; i < kRangesScanned && limits[static_cast<std::size_t>(i)] != 0.0; ++i)
    ranges.largest = std::max(ranges.largest, limits[static_cast<std::size_t>(i)]);
  ranges.pairs = i / 2;
  return ranges;
}

void ReadBoardLimits() {
  DeviceFacts& d = session.device;
  const DaqDriver& daq = Daq();
  daq.devAIMaxSingleChanRate(d.devName, d.aiMaxRate);
  daq.devProductCategory(d.devName, d.devCategory);
  ReadVoltageRanges();
}

void ReadVoltageRanges() {
  DeviceFacts& d = session.device;
  std::vector<double> limits;
  if (Daq().devAIVoltageRngs(d.devName, limits) < 0) return;
  limits.resize(
      std::min(limits.size(), d.aiVoltageRngs.size() - 1));  // the last entry stays 0 and ends the table
  d.aiVoltageRngs.fill(0.0);
  std::copy(limits.begin(), limits.end(), d.aiVoltageRngs.begin());
}

int FreqLinesID(int lines) {
  for (std::size_t i = 0; i < std::size(kLinesTable); ++i)
    if (kLinesTable[i] >= lines) return static_cast<int>(i);
  return kLinesOverflowIndex;
}

int FreqLinesFromID(int index) {
  return index >= 0 && index < static_cast<int>(std::size(kLinesTable)) ? kLinesTable[index] : 0;
}

int VoltRangeID(double range) {
  constexpr double kLimits[] = {0.01, 0.0316, 0.1, 0.316, 1.0, 3.16};
  for (int i = 0; i < 6; ++i)
    if (range <= kLimits[i]) return 6 - i;
  return 0;
}

void FirstHWSetup(HWSetup& hw) {
  const bool differential = daq_category::IsDifferential(session.device.devCategory);
  std::fill(hw.coupling.begin(), hw.coupling.end(), differential ? 1 : 0);
  std::fill(hw.grounding.begin(), hw.grounding.end(), differential ? 0 : 1);
  std::fill(hw.inputRange.begin(), hw.inputRange.end(), ScanRanges().largest);

  session.curChannels = hw.nChannels;
  double span = kWorkingSpan;
  hw.freqSpan = 0.0;  // stays 0 where no board sets it
  if (differential) hw.freqSpan = span = session.device.aiMaxRate * 0.5 / std::max(hw.nChannels, 1);
  if (session.device.devCategory == daq_category::kDynamicSignal)
    hw.freqSpan = span = session.device.aiMaxRate * 0.5;

  hw.nLines = kFirstLines;
  hw.deltaT = 0.5 / span;
  hw.timeLength = hw.deltaT * (2.0 * FullTimeLines(MeasDB.nLinesDefault) - 1.0);
  hw.deltaF = 2.0 * span / (2.0 * MeasDB.nLinesDefault);
  hw.triggerChannel = -1;
  hw.triggerSlope = 1;
  hw.triggerDelay = 10.0;
  hw.triggerLevel = 10.0;
  hw.averageOn = 1;
  hw.nAverage = 5;
  hw.refChannel = 0;
}

void FirstMeasSetup(MeasSetup& ms) {
  ms.srcLoc = 0.0;
  std::fill(ms.recLoc.begin(), ms.recLoc.end(), 0.0);
  ms.lengthUnit = 1.0;
}

}  // namespace sondera
