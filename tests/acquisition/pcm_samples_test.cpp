// Tests of samples of sound cards.
#include "acquisition/pcm_samples.h"

#include <gtest/gtest.h>

namespace sondera {
namespace {

std::vector<double> Decoded(PcmFormat format, const std::vector<unsigned char>& bytes) {
  std::vector<double> out;
  DecodeSamples(format, bytes.data(), bytes.size() / BytesOf(format), out);
  return out;
}

TEST(PcmSamples, FullScaleIsOneWithinOneStep) {
  EXPECT_EQ(Decoded(PcmFormat::S16, {0xff, 0x7f, 0x00, 0x80, 0x00, 0x00, 0xff, 0xff}),
            (std::vector<double>{1.0 - 0x1p-15, -1.0, 0.0, -0x1p-15}));
  EXPECT_EQ(
      Decoded(PcmFormat::S24in3, {0xff, 0xff, 0x7f, 0x00, 0x00, 0x80, 0x01, 0x00, 0x00, 0xff, 0xff, 0xff}),
      (std::vector<double>{1.0 - 0x1p-23, -1.0, 0x1p-23, -0x1p-23}));
  EXPECT_EQ(Decoded(PcmFormat::S32, {0xff, 0xff, 0xff, 0x7f, 0x00, 0x00, 0x00, 0x80, 0x01, 0x00, 0x00, 0x00}),
            (std::vector<double>{1.0 - 0x1p-31, -1.0, 0x1p-31}));
  for (const PcmFormat format : {PcmFormat::S16, PcmFormat::S24in3, PcmFormat::S32})
    EXPECT_EQ(1.0 / StepOf(format), static_cast<double>(1LL << (8 * BytesOf(format) - 1)));
}

TEST(PcmSamples, AreAppended) {
  std::vector<double> out = {7.0};
  const unsigned char half[] = {0x00, 0x40};
  DecodeSamples(PcmFormat::S16, half, 1, out);
  EXPECT_EQ(out, (std::vector<double>{7.0, 0.5}));
}

}  // namespace
}  // namespace sondera
