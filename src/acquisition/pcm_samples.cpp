// pcm_samples.cpp - decodes samples of sound cards. Owns no state.
#include "acquisition/pcm_samples.h"

#include <cstdint>

namespace sondera {

double StepOf(PcmFormat format) {
  switch (format) {
    case PcmFormat::S16:
      return 0x1p-15;
    case PcmFormat::S24in3:
      return 0x1p-23;
    case PcmFormat::S32:
      break;
  }
  return 0x1p-31;
}

void DecodeSamples(PcmFormat format, const unsigned char* bytes, std::size_t count,
                   std::vector<double>& out) {
  const std::size_t width = BytesOf(format), unused = 4 - width;
  out.reserve(out.size() + count);
  for (std::size_t i = 0; i < count; ++i, bytes += width) {
    std::uint32_t word = 0;  // the sample in the upper bytes, so that the sign is bit 31 for every width
    for (std::size_t b = 0; b < width; ++b)
      word |= static_cast<std::uint32_t>(bytes[b]) << (8 * (unused + b));
    out.push_back(static_cast<std::int32_t>(word) * 0x1p-31);
  }
}

}  // namespace sondera
