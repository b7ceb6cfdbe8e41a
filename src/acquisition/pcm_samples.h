// pcm_samples.h - integer samples of a sound card as shares of full scale.
#pragma once

#include <cstddef>
#include <vector>

namespace sondera {

/// Little-endian two's complement integers; S24in3 has three bytes a sample.
enum class PcmFormat { S16, S24in3, S32 };

constexpr std::size_t BytesOf(PcmFormat format) {
  return format == PcmFormat::S16 ? 2 : format == PcmFormat::S24in3 ? 3 : 4;
}
/// Size of a step: 2^-15, 2^-23 or 2^-31 of full scale.
double StepOf(PcmFormat format);

/// Appends `count` samples as -1 to 1 - step.
void DecodeSamples(PcmFormat format, const unsigned char* bytes, std::size_t count, std::vector<double>& out);

}  // namespace sondera
