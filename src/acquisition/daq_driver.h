// daq_driver.h - the interface to a data acquisition board: one table of functions.
//
// The program calls the installed driver and never checks which one it is. daqNone means "no board": every
// enquiry fails, no device is named, no task is possible. Installing returns the former table, so that a test
// can restore it. A driver keeps its whole state in one structure; installing it resets that structure, and
// so does installing another one.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace sondera {

/// Product categories as drivers report them.
namespace daq_category {
inline constexpr int kDynamicSignal = 14649, kESeries = 14642, kMSeries = 14643, kBSeries = 14662,
                     kSCSeries = 14645, kSSeries = 14644, kUSB = 14646, kCompactDAQ = 14658, kSCXI = 14660;
/// E and M series boards measure differentially, always by direct coupling, and trigger in another way.
constexpr bool IsDifferential(int category) {
  return category == kESeries || category == kMSeries;
}
}  // namespace daq_category

/// Results of a driver. Any other error: another negative code, with its text from errorString.
namespace daq_status {
inline constexpr int kDone = 0;
inline constexpr int kNoBoard = -1;
/// readRecord: the record has not come in time. The task stays armed; waiting on is allowed.
inline constexpr int kNotYet = -2;
inline constexpr int kRefused = -3;
}  // namespace daq_status

/// One input channel of a task.
struct DaqChannel {
  std::string physicalName;   ///< "Dev1/ai0"
  std::string virtualName;    ///< channel number as text
  double range = 10.0;        ///< volts, -range to +range
  bool differential = false;  ///< else pseudo-differential
  bool accelerometer = false;
  double excitation = 0.0;  ///< A, for an accelerometer
  bool couplingAC = false;
};

/// All functions return 0, or a negative driver code. Device names are cut to four characters.
struct DaqDriver {
  const char* name;  ///< for messages, never null
  /// Ends the task, releases the driver's resources and clears its settings.
  void (*reset)();

  // enquiries
  int (*sysDevNames)(std::string& names);  ///< comma separated, empty without a device
  int (*devProductCategory)(const std::string& dev, int& category);
  int (*devProductType)(const std::string& dev, std::string& type);
  int (*devAnlgTrigSupported)(const std::string& dev, int& supported);
  int (*devAIPhysicalChans)(const std::string& dev, std::string& channels);  ///< comma separated
  int (*devAIMaxSingleChanRate)(const std::string& dev, double& rate);
  int (*devAIMinRate)(const std::string& dev, double& rate);
  int (*devAIVoltageRngs)(const std::string& dev,
                          std::vector<double>& limits);  ///< pairs of low and high, volts
  int (*devAICouplings)(const std::string& dev, int& couplings);

  // one task at a time; 0 is no task
  int (*createTask)(const std::string& taskName, int& task);
  int (*addChannel)(int task, const std::string& dev, const DaqChannel& channel);
  int (*cfgSampClkTiming)(int task, double rate, int samplesPerChan);  ///< finite acquisition, rising edge
  int (*sampClkRate)(int task, double& rate);                          ///< the values that the board granted
  int (*setFreeRun)(int task);
  int (*cfgAnlgEdgeRefTrig)(int task, const std::string& channel, double levelVolts, int preTriggerSamples);
  int (*numChans)(int task, int& channels);
  int (*startTask)(int task);
  /// Waits for the record of the started task, `seconds` at most; 0 checks once. No record yet is not an
  /// error: 0 with ready false. Other code may run between two calls; no sample is lost by that.
  int (*waitRecord)(int task, double seconds, bool& ready);
  /// Reads one record into buf, channel after channel. read: samples per channel. kNotYet when the time has
  /// passed without one.
  int (*readRecord)(int task, double timeoutSeconds, double* buf, int bufLength, int& read);
  /// Channels of the last record that exceeded their input range: bit 0 is the task's first channel.
  int (*recordOverload)(int task, std::uint64_t& mask);
  int (*stopTask)(int task);
  int (*clearTask)(int task);
  std::string (*errorString)(int status);
};

/// No board.
extern const DaqDriver daqNone;

/// Installs a driver (null: daqNone) and returns the former one, never null. Resets both.
const DaqDriver* InstallDaqDriver(const DaqDriver* next);
const DaqDriver& Daq();

/// Text of a device in the list of boards: "Dev1: Dynamic Signal Acquisition".
std::string DeviceListText(const std::string& devName, int category);
/// Entries of a comma separated list, blanks around them removed; none for an empty text.
std::vector<std::string> SplitDaqNames(const std::string& names);

}  // namespace sondera
