// Tests of the settings that no run can work with.
#include "records/run_limits.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace sondera {
namespace {

/// Two valid layers.
ModelRecord SoundLayers() {
  ModelRecord m;
  m.nLayers = 2;
  m.thickness = {1.0, 100.0};
  m.Vp = {0.0, 0.0};
  m.Vs = {150.0, 200.0};
  m.density = {1.8, 1.8};
  m.nu = {0.3333, 0.3333};
  m.damping = {0.02, 0.02};
  return m;
}

TEST(RunLimits, SoundLayersPass) {
  EXPECT_EQ(CheckRunLayers(SoundLayers()), "");
}

TEST(RunLimits, PoissonsRatioStaysInsideThePhysicalRange) {
  for (const double good : {-0.99, -0.2, 0.0, 0.25, 0.4999}) {
    ModelRecord m = SoundLayers();
    m.nu[1] = good;
    EXPECT_EQ(CheckRunLayers(m), "") << good;
  }
  for (const double bad : {0.5, 0.6, -1.0, 1e300, std::nan(""), HUGE_VAL}) {
    ModelRecord m = SoundLayers();
    m.nu[1] = bad;
    EXPECT_TRUE(CheckRunLayers(m).starts_with("Poisson's ratio of layer 2 is ")) << CheckRunLayers(m);
    EXPECT_TRUE(
        CheckRunLayers(m).ends_with("It must be above -1 and below 0.5: at 0.5 the P-wave velocity is "
                                    "infinite."));
  }
}

TEST(RunLimits, WhatTheSolversRefuseAsTooLargeIsRefusedBeforeTheRunAndNotCalledTooSmall) {
  ModelRecord m = SoundLayers();
  m.thickness[1] = 1e300;
  EXPECT_EQ(CheckRunLayers(m), "The thickness of layer 2 is 1e+300. It must be from 0 to 1e+30.");
  m = SoundLayers();
  m.Vs[0] = 1e20;
  EXPECT_EQ(CheckRunLayers(m), "The shear modulus of layer 1 is 1.8e+40. It must be from 0 to 1e+30.");
}

}  // namespace
}  // namespace sondera
