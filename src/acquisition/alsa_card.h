// alsa_card.h - capture from a sound card through ALSA's library; the only file that uses it.
//
// Only "hw:" devices: they give the converter's samples, without resampling or mixing.
#pragma once

#include <string>
#include <vector>

#include "acquisition/pcm_samples.h"

// ALSA's type, so that its header is not needed here
struct _snd_pcm;  // NOLINT(bugprone-reserved-identifier)

namespace sondera {

/// A card of the machine that can record.
struct SoundCard {
  int number = 0;
  std::string device;  ///< "hw:1"
  std::string name;
};
std::vector<SoundCard> FindSoundCards();

/// Properties of a device.
struct CardFacts {
  int channelsMin = 0, channelsMax = 0;
  std::vector<int> rates;  ///< Hz, ascending; of the usual rates
};
/// False with the reason, a sentence without its full stop.
bool QueryCard(const std::string& device, CardFacts& facts, std::string& reason);

/// A running capture.
class CardStream {
 public:
  CardStream() = default;
  ~CardStream() { Close(); }
  CardStream(CardStream&& other) noexcept { *this = static_cast<CardStream&&>(other); }
  CardStream& operator=(CardStream&& other) noexcept;

  /// Opens and starts it. False with the reason.
  /// @param bits  32, 24 (three bytes) or 16; 0: the most that the card supports
  bool Open(const std::string& device, int channels, int rate, int bits, std::string& reason);
  void Close();
  bool IsOpen() const { return pcm_ != nullptr; }

  enum class Got {
    Frames,   ///< one block at most
    Nothing,  ///< none at present
    Overrun,  ///< frames were lost before the next ones; the capture is running again
    Failed,   ///< the device was removed; reason set
  };
  /// Appends the available frames to `frames`, one value of each channel after the other, shares of full
  /// scale.
  Got Read(std::vector<double>& frames, std::string& reason);
  /// Waits until there are frames, for at most this long.
  void Wait(double seconds);

 private:
  _snd_pcm* pcm_ = nullptr;
  PcmFormat format_ = PcmFormat::S16;
  int channels_ = 0;
  unsigned long block_ = 0;  // frames
  std::vector<unsigned char> bytes_;
};

}  // namespace sondera
