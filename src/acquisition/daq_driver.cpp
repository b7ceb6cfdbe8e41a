// daq_driver.cpp - the installed driver, and the driver for "no board".
#include "acquisition/daq_driver.h"

#include <utility>

namespace sondera {
namespace {

using daq_status::kNoBoard;

struct CategoryText {
  int category;
  const char* text;
};
constexpr CategoryText kCategoryTexts[] = {
    {daq_category::kDynamicSignal, "Dynamic Signal Acquisition"},
    {daq_category::kESeries, "E Series DAQ"},
    {daq_category::kMSeries, "M Series DAQ"},
    {daq_category::kBSeries, "B Series DAQ"},
    {daq_category::kSCSeries, "SC Series DAQ"},
    {daq_category::kSSeries, "S Series DAQ"},
    {daq_category::kUSB, "USB DAQ"},
    {daq_category::kCompactDAQ, "CompactDAQ chassis"},
    {daq_category::kSCXI, "SCXI modules"},
};

template <class T>
int NoFact(const std::string&, T&) {
  return kNoBoard;
}

}  // namespace

const DaqDriver daqNone = {
    .name = "none",
    .reset = [] {},
    .sysDevNames =
        [](std::string& names) {
          names.clear();
          return 0;
        },
    .devProductCategory = NoFact<int>,
    .devProductType = NoFact<std::string>,
    .devAnlgTrigSupported = NoFact<int>,
    .devAIPhysicalChans = NoFact<std::string>,
    .devAIMaxSingleChanRate = NoFact<double>,
    .devAIMinRate = NoFact<double>,
    .devAIVoltageRngs = NoFact<std::vector<double>>,
    .devAICouplings = NoFact<int>,
    .createTask = [](const std::string&, int&) { return kNoBoard; },
    .addChannel = [](int, const std::string&, const DaqChannel&) { return kNoBoard; },
    .cfgSampClkTiming = [](int, double, int) { return kNoBoard; },
    .sampClkRate = [](int, double&) { return kNoBoard; },
    .setFreeRun = [](int) { return kNoBoard; },
    .cfgAnlgEdgeRefTrig = [](int, const std::string&, double, int) { return kNoBoard; },
    .numChans = [](int, int&) { return kNoBoard; },
    .startTask = [](int) { return kNoBoard; },
    .waitRecord =
        [](int, double, bool& ready) {
          ready = false;
          return kNoBoard;
        },
    .readRecord = [](int, double, double*, int, int&) { return kNoBoard; },
    .recordOverload =
        [](int, std::uint64_t& mask) {
          mask = 0;
          return kNoBoard;
        },
    .stopTask = [](int) { return kNoBoard; },
    .clearTask = [](int) { return kNoBoard; },
    .errorString = [](int) { return std::string("no board"); },
};

namespace {

struct Installed {
  const DaqDriver* driver = &daqNone;
  void (*reset)() = [] {};  // by value: the table of a test may no longer exist when another replaces it
};
Installed installed;

}  // namespace

const DaqDriver* InstallDaqDriver(const DaqDriver* next) {
  if (!next) next = &daqNone;
  installed.reset();
  installed.reset = next->reset;
  installed.reset();
  return std::exchange(installed.driver, next);
}
const DaqDriver& Daq() {
  return *installed.driver;
}

std::string DeviceListText(const std::string& devName, int category) {
  for (const CategoryText& row : kCategoryTexts)
    if (row.category == category) return devName + ": " + row.text;
  return devName + ": Unknown category";
}

std::vector<std::string> SplitDaqNames(const std::string& names) {
  std::vector<std::string> entries;
  std::size_t from = 0;
  while (from < names.size()) {
    std::size_t to = names.find(',', from);
    if (to == std::string::npos) to = names.size();
    std::string entry = names.substr(from, to - from);
    entry.erase(0, entry.find_first_not_of(' '));
    entry.erase(entry.find_last_not_of(' ') + 1);
    entries.push_back(std::move(entry));
    from = to + 1;
  }
  return entries;
}

}  // namespace sondera
