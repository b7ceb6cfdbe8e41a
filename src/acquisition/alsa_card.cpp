// alsa_card.cpp - sound cards through ALSA's library. Owns no state; the library keeps its configuration.
#include "acquisition/alsa_card.h"

#include <alsa/asoundlib.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <iterator>
#include <utility>

#include "runtime/terminal.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr unsigned kUsualRates[] = {8000,  11025, 16000, 22050,  32000, 44100,
                                    48000, 88200, 96000, 176400, 192000};
constexpr int kMostChannels = 32;
constexpr unsigned kBufferMicroseconds = 2000000;  // how long the program may be busy with other work
constexpr snd_pcm_uframes_t kLongestBlock = 256;   // one check of the stream is short

struct FormatRow {
  PcmFormat format;
  snd_pcm_format_t code;
};
constexpr FormatRow kFormats[] = {{PcmFormat::S32, SND_PCM_FORMAT_S32_LE},
                                  {PcmFormat::S24in3, SND_PCM_FORMAT_S24_3LE},
                                  {PcmFormat::S16, SND_PCM_FORMAT_S16_LE}};

/// Otherwise the library prints to standard error.
void Silent(const char*, int, const char*, int, const char*, ...) {}

snd_pcm_t* OpenCapture(const std::string& device, std::string& reason) {
  snd_lib_error_set_handler(Silent);
  snd_pcm_t* pcm = nullptr;
  const int error = snd_pcm_open(&pcm, device.c_str(), SND_PCM_STREAM_CAPTURE, SND_PCM_NONBLOCK);
  if (error < 0) {
    reason = FormatText("The sound card %s cannot be opened: %s", VisibleText(device).c_str(),
                        snd_strerror(error));
    return nullptr;
  }
  return pcm;
}

/// Initial settings of every capture here.
bool BeginSettings(snd_pcm_t* pcm, snd_pcm_hw_params_t* params) {
  return snd_pcm_hw_params_any(pcm, params) >= 0 &&
         snd_pcm_hw_params_set_rate_resample(pcm, params, 0) >= 0 &&
         snd_pcm_hw_params_set_access(pcm, params, SND_PCM_ACCESS_RW_INTERLEAVED) >= 0;
}

/// The best format with this number of bits, 0 for any; null without one.
const FormatRow* BestFormat(snd_pcm_t* pcm, snd_pcm_hw_params_t* params, int bits) {
  for (const FormatRow& row : kFormats)
    if ((bits == 0 || BytesOf(row.format) * 8 == static_cast<std::size_t>(bits)) &&
        snd_pcm_hw_params_test_format(pcm, params, row.code) == 0)
      return &row;
  return nullptr;
}

}  // namespace

std::vector<SoundCard> FindSoundCards() {
  snd_lib_error_set_handler(Silent);
  std::vector<SoundCard> cards;
  for (int number = -1; snd_card_next(&number) == 0 && number >= 0;) {
    const std::string device = FormatText("hw:%d", number);
    CardFacts facts;
    std::string reason;
    if (!QueryCard(device, facts, reason)) continue;  // in use, or it cannot record
    char* name = nullptr;
    snd_card_get_name(number, &name);
    cards.push_back({number, device, name ? name : ""});
    std::free(name);
  }
  return cards;
}

bool QueryCard(const std::string& device, CardFacts& facts, std::string& reason) {
  snd_pcm_t* const pcm = OpenCapture(device, reason);
  if (!pcm) return false;
  snd_pcm_hw_params_t* params;
  snd_pcm_hw_params_alloca(&params);
  unsigned low = 0, high = 0;
  bool good = BeginSettings(pcm, params) && BestFormat(pcm, params, 0) &&
              snd_pcm_hw_params_get_channels_min(params, &low) >= 0 &&
              snd_pcm_hw_params_get_channels_max(params, &high) >= 0 && low <= kMostChannels;
  facts = {};
  if (good) {
    facts.channelsMin = static_cast<int>(low);
    facts.channelsMax = static_cast<int>(std::min<unsigned>(high, kMostChannels));
    for (const unsigned rate : kUsualRates)
      if (snd_pcm_hw_params_test_rate(pcm, params, rate, 0) == 0)
        facts.rates.push_back(static_cast<int>(rate));
    good = !facts.rates.empty();
  }
  if (!good)
    reason = FormatText("The sound card %s has no format that is usable here", VisibleText(device).c_str());
  snd_pcm_close(pcm);
  return good;
}

CardStream& CardStream::operator=(CardStream&& other) noexcept {
  if (this == &other) return *this;
  Close();
  pcm_ = std::exchange(other.pcm_, nullptr);
  format_ = other.format_;
  channels_ = other.channels_;
  block_ = other.block_;
  bytes_ = std::move(other.bytes_);
  return *this;
}

bool CardStream::Open(const std::string& device, int channels, int rate, int bits, std::string& reason) {
  Close();
  pcm_ = OpenCapture(device, reason);
  if (!pcm_) return false;
  snd_pcm_hw_params_t* params;
  snd_pcm_hw_params_alloca(&params);
  unsigned buffer = kBufferMicroseconds;
  snd_pcm_uframes_t frames = 0;
  const auto settle = [&]() -> int {
    if (!BeginSettings(pcm_, params)) return -EINVAL;
    const FormatRow* const format = BestFormat(pcm_, params, bits);
    if (!format) return -EINVAL;
    format_ = format->format;
    for (const int error : {snd_pcm_hw_params_set_format(pcm_, params, format->code),
                            snd_pcm_hw_params_set_channels(pcm_, params, static_cast<unsigned>(channels)),
                            snd_pcm_hw_params_set_rate(pcm_, params, static_cast<unsigned>(rate), 0),
                            snd_pcm_hw_params_set_buffer_time_near(pcm_, params, &buffer, nullptr),
                            snd_pcm_hw_params(pcm_, params),
                            snd_pcm_hw_params_get_buffer_size(params, &frames), snd_pcm_start(pcm_)})
      if (error < 0) return error;
    return 0;
  };
  if (const int error = settle(); error < 0 || frames == 0) {
    reason = FormatText("The sound card %s refuses %d channels at %d Hz: %s", VisibleText(device).c_str(),
                        channels, rate, snd_strerror(error));
    Close();
    return false;
  }
  channels_ = channels;
  block_ = std::min(frames, kLongestBlock);
  bytes_.resize(block_ * static_cast<std::size_t>(channels_) * BytesOf(format_));
  return true;
}

void CardStream::Close() {
  if (!pcm_) return;
  snd_pcm_drop(pcm_);
  snd_pcm_close(std::exchange(pcm_, nullptr));
  snd_config_update_free_global();
}

CardStream::Got CardStream::Read(std::vector<double>& frames, std::string& reason) {
  const snd_pcm_sframes_t got = snd_pcm_readi(pcm_, bytes_.data(), block_);
  if (got == 0 || got == -EAGAIN || got == -EINTR) return Got::Nothing;
  if (got < 0) {
    int error = static_cast<int>(got);
    if (error == -EPIPE || error == -ESTRPIPE) {
      error = snd_pcm_prepare(pcm_);
      if (error >= 0) error = snd_pcm_start(pcm_);
      if (error >= 0) return Got::Overrun;
    }
    reason = FormatText("The sound card has stopped: %s.", snd_strerror(error));
    return Got::Failed;
  }
  DecodeSamples(format_, bytes_.data(), static_cast<std::size_t>(got) * static_cast<std::size_t>(channels_),
                frames);
  return Got::Frames;
}

void CardStream::Wait(double seconds) {
  snd_pcm_wait(pcm_, static_cast<int>(std::ceil(std::clamp(seconds, 0.0, 60.0) * 1000.0)));
}

}  // namespace sondera
