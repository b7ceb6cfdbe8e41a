// alsa_driver.cpp - the table of functions of sound cards. Owns its state, `alsa`.
#include "acquisition/alsa_driver.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <new>
#include <optional>

#include "acquisition/alsa_card.h"
#include "acquisition/board_options.h"
#include "acquisition/board_task.h"
#include "acquisition/fir_decimator.h"
#include "acquisition/record_ring.h"
#include "runtime/terminal.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

constexpr const char* kDevicePrefix = "Snd";
constexpr std::string_view kDeviceOption = "device=", kHardware = "hw:";
constexpr int kMostCards = 10;  // a name has one digit
constexpr int kDefaultChannels = 8;
constexpr int kACOnly = 1;
constexpr double kFullScale = 1.0 - 0x1p-15;  // many cards put 24 bits or fewer into samples of 32

struct AlsaOptions {
  double volts = 1.0;  // of full scale
  int bits = 0;        // of a sample; 0: the most that the card supports
  int channels = 0;    // 0: those of the card, at most kDefaultChannels
  std::string device;  // "": all cards
};

/// The stream from the card's samples to records.
struct Capture {
  CardStream stream;
  int cardChannels = 0;
  FirDecimator decimator;
  RecordRing ring;
  std::vector<std::int64_t> clippedAt;  // [input of the task] latest raw frame at full scale; -1 none
  std::int64_t rawFrames = 0;           // since the latest gap
  std::vector<double> raw, picked, decimated;
};

struct AlsaState {
  AlsaOptions options;
  BoardTask task;
  std::string taskDevice;  // "hw:..." of the task's channels
  CardFacts taskFacts;
  CardRate rate;
  std::optional<Capture> capture;
};
AlsaState alsa;

BoardTask& TaskOfAlsa() {
  return alsa.task;
}
using Task = TaskFunctions<TaskOfAlsa>;

/// "hw:..." for a device name; "" for an unknown one.
std::string CardOf(const std::string& dev, const AlsaOptions& options) {
  const std::string_view name(dev);
  if (name.size() != 4 || !name.starts_with(kDevicePrefix) || name[3] < '0' || name[3] > '9') return "";
  if (!options.device.empty()) return name[3] == '0' ? options.device : "";
  return std::string(kHardware) + name[3];
}

int ChannelsOf(const CardFacts& facts) {
  const int wanted = alsa.options.channels > 0 ? alsa.options.channels : kDefaultChannels;
  return std::min(wanted, facts.channelsMax);
}

/// Properties of a device. While a task has it open, those from the start of the task.
int QueryDevice(const std::string& dev, CardFacts& facts) {
  const std::string card = CardOf(dev, alsa.options);
  if (card.empty()) return RefuseTask(alsa.task, "There is no such device.");
  if (alsa.capture && card == alsa.taskDevice) {
    facts = alsa.taskFacts;
    return daq_status::kDone;
  }
  std::string reason;
  return QueryCard(card, facts, reason) ? daq_status::kDone : RefuseTask(alsa.task, reason + ".");
}

template <class T, class From>
int CardFact(const std::string& dev, T& fact, From from) {
  CardFacts facts;
  const int status = QueryDevice(dev, facts);
  if (status == daq_status::kDone) fact = from(facts);
  return status;
}

int AddChannel(int number, const std::string& dev, const DaqChannel& channel) {
  if (const int status = CheckTask(alsa.task, number); status < 0) return status;
  const std::string card = CardOf(dev, alsa.options);
  if (alsa.taskDevice.empty()) {
    if (const int status = QueryDevice(dev, alsa.taskFacts); status < 0) return status;
    alsa.taskDevice = card;
  }
  if (card != alsa.taskDevice) return RefuseTask(alsa.task, "All channels have to be of one sound card.");
  return AddTaskChannel(alsa.task, number, dev, ChannelsOf(alsa.taskFacts), {alsa.options.volts}, channel);
}

int SetClock(int number, double rate, int samples) {
  if (const int status = SetTaskClock(alsa.task, number, rate, samples); status < 0) return status;
  if (alsa.taskFacts.rates.empty()) return RefuseTask(alsa.task, "The task has no channels.");
  alsa.rate = ChooseCardRate(alsa.taskFacts.rates, rate);
  alsa.task.rate = static_cast<double>(alsa.rate.rate) / alsa.rate.factor;
  return daq_status::kDone;
}

/// Opens the card; it runs until the task is cleared.
int OpenCapture() {
  const BoardTask& task = alsa.task;
  const int most = 1 + *std::max_element(task.inputs.begin(), task.inputs.end());
  const int cardChannels = std::max(most, alsa.taskFacts.channelsMin);
  const auto channels = static_cast<int>(task.Channels());
  Capture capture{.stream = {},
                  .cardChannels = cardChannels,
                  .decimator = FirDecimator(channels, alsa.rate.factor),
                  .ring = RecordRing({.channels = channels,
                                      .samples = task.samples,
                                      .trigger = task.triggerChannel,
                                      .level = task.triggerLevel,
                                      .preTrigger = std::max(task.preTrigger, 0)}),
                  .clippedAt = std::vector<std::int64_t>(task.Channels(), -1),
                  .rawFrames = 0,
                  .raw = {},
                  .picked = {},
                  .decimated = {}};
  std::string reason;
  if (!capture.stream.Open(alsa.taskDevice, cardChannels, alsa.rate.rate, alsa.options.bits, reason))
    return RefuseTask(alsa.task, reason + ".");
  alsa.capture = std::move(capture);
  return daq_status::kDone;
}

/// Converts the wanted inputs of the raw frames to volts; records clipped samples.
void PickInputs(Capture& capture) {
  const auto stride = static_cast<std::size_t>(capture.cardChannels);
  const std::size_t nFrames = capture.raw.size() / stride;
  capture.picked.clear();
  capture.picked.reserve(nFrames * alsa.task.Channels());
  for (std::size_t i = 0; i < nFrames; ++i, ++capture.rawFrames) {
    for (std::size_t c = 0; c < alsa.task.Channels(); ++c) {
      const double share = capture.raw[i * stride + static_cast<std::size_t>(alsa.task.inputs[c])];
      if (std::fabs(share) >= kFullScale) capture.clippedAt[c] = capture.rawFrames;
      capture.picked.push_back(share * alsa.options.volts);
    }
  }
}

void LoseSamples(Capture& capture) {
  capture.decimator.Reset();
  capture.ring.Gap();
  capture.rawFrames = 0;
  std::fill(capture.clippedAt.begin(), capture.clippedAt.end(), -1);
}

/// Reads one block from the card. A negative status when the card was removed.
int TakeBlock(Capture& capture, bool& nothing) {
  capture.raw.clear();
  std::string reason;
  const CardStream::Got got = capture.stream.Read(capture.raw, reason);
  nothing = got == CardStream::Got::Nothing;
  if (got == CardStream::Got::Failed) {
    alsa.capture.reset();
    alsa.task.started = false;
    return RefuseTask(alsa.task, reason);
  }
  if (got == CardStream::Got::Overrun) LoseSamples(capture);
  if (got != CardStream::Got::Frames) return daq_status::kDone;
  PickInputs(capture);
  capture.decimated.clear();
  capture.decimator.Feed(capture.picked.data(), capture.picked.size() / alsa.task.Channels(),
                         capture.decimated);
  capture.ring.Feed(capture.decimated.data(), capture.decimated.size() / alsa.task.Channels());
  return daq_status::kDone;
}

int Start(int number) {
  if (const int status = StartTask(alsa.task, number); status < 0) return status;
  int status = daq_status::kDone;
  if (!alsa.capture) status = OpenCapture();
  if (status < 0)
    alsa.task.started = false;
  else
    alsa.capture->ring.Arm();
  return status;
}

int Wait(int number, double seconds, bool& ready) {
  ready = false;
  if (const int status = CheckTask(alsa.task, number); status < 0) return status;
  if (!alsa.task.started || !alsa.capture) return RefuseTask(alsa.task, "The task is not started.");
  const Clock::time_point end =
      Clock::now() + std::chrono::duration_cast<Clock::duration>(Seconds(std::clamp(seconds, 0.0, 1e6)));
  Capture& capture = *alsa.capture;
  while (!(ready = capture.ring.Ready())) {
    bool nothing = false;
    try {
      if (const int status = TakeBlock(capture, nothing); status < 0) return status;
    } catch (const std::bad_alloc&) {
      alsa.capture.reset();
      alsa.task.started = false;
      return RefuseTask(alsa.task, "There is not enough memory for the record.");
    }
    if (capture.ring.Broken()) {
      capture.ring.Disarm();
      alsa.task.started = false;
      return RefuseTask(alsa.task, "The sound card lost samples in the record.");
    }
    const Seconds left = end - Clock::now();
    if (left.count() <= 0.0) {
      ready = capture.ring.Ready();
      break;
    }
    if (nothing) capture.stream.Wait(left.count());
  }
  return daq_status::kDone;
}

int Read(int number, double timeoutSeconds, double* buf, int bufLength, int& read) {
  read = 0;
  bool ready = false;
  if (const int status = Wait(number, timeoutSeconds, ready); status < 0) return status;
  if (!ready) return daq_status::kNotYet;
  Capture& capture = *alsa.capture;
  if (bufLength < 0 || static_cast<std::size_t>(bufLength) / alsa.task.Channels() <
                           static_cast<std::size_t>(alsa.task.samples))
    return RefuseTask(alsa.task, "The buffer is shorter than the record.");
  // The filter spreads a clipped sample over its length.
  const std::int64_t begin = capture.ring.Begin() * alsa.rate.factor - capture.decimator.Delay();
  alsa.task.overload = 0;
  for (std::size_t c = 0; c < alsa.task.Channels(); ++c)
    if (capture.clippedAt[c] >= 0 && capture.clippedAt[c] >= begin)
      alsa.task.overload |= std::uint64_t{1} << c;
  capture.ring.Take(buf);
  alsa.task.started = false;
  read = alsa.task.samples;
  return daq_status::kDone;
}

}  // namespace

CardRate ChooseCardRate(const std::vector<int>& rates, double rate) {
  constexpr double kTolerance = 1e-9;
  constexpr int kCommonRate = 48000;  // what every interface is made for; lower ones may have poor filters
  CardRate best;
  double bestRate = 0.0;
  const auto reaches = [&](double made) { return made >= rate * (1.0 - kTolerance); };
  for (const int card : rates) {
    const double most = std::floor(card / rate * (1.0 + kTolerance));
    const int factor = static_cast<int>(std::clamp<double>(most, 1.0, kMostDecimation));
    const double made = static_cast<double>(card) / factor;
    const bool same = std::fabs(made - bestRate) <= bestRate * kTolerance;
    bool better = made > bestRate;
    if (same)
      better = card <= kCommonRate;
    else if (reaches(bestRate))
      better = reaches(made) && made < bestRate;
    if (!better) continue;
    best = {card, factor};
    bestRate = made;
  }
  return best;
}

const DaqDriver daqAlsa = {
    .name = "alsa",
    .reset = [] { alsa = {}; },
    .sysDevNames =
        [](std::string& names) {
          names.clear();
          if (!alsa.options.device.empty()) {
            names = "Snd0";
            return daq_status::kDone;
          }
          for (const SoundCard& card : FindSoundCards())
            if (card.number < kMostCards)
              names += FormatText("%s%s%d", names.empty() ? "" : ",", kDevicePrefix, card.number);
          return daq_status::kDone;
        },
    .devProductCategory =
        [](const std::string& dev, int& category) {
          return CardFact(dev, category, [](const CardFacts&) { return daq_category::kDynamicSignal; });
        },
    .devProductType =
        [](const std::string& dev, std::string& type) {
          return CardFact(dev, type, [](const CardFacts&) { return std::string("Sound card"); });
        },
    .devAnlgTrigSupported =
        [](const std::string& dev, int& supported) {
          return CardFact(dev, supported, [](const CardFacts&) { return 1; });
        },
    .devAIPhysicalChans =
        [](const std::string& dev, std::string& channels) {
          return CardFact(dev, channels,
                          [&](const CardFacts& facts) { return InputNames(dev, ChannelsOf(facts)); });
        },
    .devAIMaxSingleChanRate =
        [](const std::string& dev, double& rate) {
          return CardFact(dev, rate, [](const CardFacts& facts) { return 1.0 * facts.rates.back(); });
        },
    .devAIMinRate =
        [](const std::string& dev, double& rate) {
          return CardFact(dev, rate,
                          [](const CardFacts& facts) { return 1.0 * facts.rates[0] / kMostDecimation; });
        },
    .devAIVoltageRngs =
        [](const std::string& dev, std::vector<double>& limits) {
          return CardFact(dev, limits, [](const CardFacts&) { return PairsOfRanges({alsa.options.volts}); });
        },
    .devAICouplings =
        [](const std::string& dev, int& couplings) {
          return CardFact(dev, couplings, [](const CardFacts&) { return kACOnly; });
        },
    .createTask =
        [](const std::string&, int& task) {
          const int status = MakeTask(alsa.task, task);
          if (status == daq_status::kDone) alsa.taskDevice.clear();
          return status;
        },
    .addChannel = AddChannel,
    .cfgSampClkTiming = SetClock,
    .sampClkRate = Task::SampClkRate,
    .setFreeRun = Task::SetFreeRun,
    .cfgAnlgEdgeRefTrig = Task::CfgAnlgEdgeRefTrig,
    .numChans = Task::NumChans,
    .startTask = Start,
    .waitRecord = Wait,
    .readRecord = Read,
    .recordOverload = Task::RecordOverload,
    .stopTask =
        [](int task) {
          if (alsa.capture) alsa.capture->ring.Disarm();
          return StopTask(alsa.task, task);
        },
    .clearTask =
        [](int task) {
          alsa.capture.reset();
          return ClearTask(alsa.task, task);
        },
    .errorString = Task::ErrorString,
};

std::string InstallAlsaBoard(std::string_view options) {
  constexpr double kSmallestVolts = 1e-6, kLargestVolts = 1e6;
  AlsaOptions o;
  // The name of a device contains commas, so it comes last.
  const std::size_t at =
      options.starts_with(kDeviceOption) ? 0 : options.find("," + std::string(kDeviceOption));
  if (at != std::string_view::npos) {
    o.device = options.substr(options.find('=', at) + 1);
    options = options.substr(0, at);
    if (!o.device.starts_with(kHardware))
      return FormatText("Board driver alsa takes hw: devices only, not \"%s\".",
                        VisibleText(o.device).c_str());
  }
  double channels = 0.0, bits = 0.0;
  const BoardOption table[] = {{"volts", kSmallestVolts, kLargestVolts, false, &o.volts},
                               {"channels", 1.0, 32.0, true, &channels},
                               {"bits", 16.0, 32.0, true, &bits}};
  if (std::string fault = ParseBoardOptions("alsa", options, table); !fault.empty()) return fault;
  o.channels = static_cast<int>(channels);
  o.bits = static_cast<int>(bits);
  if (Daq().reset == daqAlsa.reset) InstallDaqDriver(&daqNone);  // the card must be free
  CardFacts facts;
  std::string reason;
  if (!o.device.empty() && !QueryCard(o.device, facts, reason)) return reason + ".";
  InstallDaqDriver(&daqAlsa);
  alsa.options = o;
  return "";
}

std::string AlsaBoardText() {
  std::string text;
  for (const SoundCard& card : FindSoundCards()) {
    if (card.number >= kMostCards) continue;
    text += FormatText(
        "  %s (%s, %s)\n",
        DeviceListText(FormatText("%s%d", kDevicePrefix, card.number), daq_category::kDynamicSignal).c_str(),
        card.device.c_str(), VisibleText(card.name).c_str());
  }
  return text.empty() ? "  no sound card that can record\n" : text;
}

}  // namespace sondera
