// layered_ground.h - a layered ground: the layers that a solver computes with, and what follows from them.
//
// Callers: the solvers' drivers, the set-up of a run, starting profiles, the inversion. Layer 1 is the surface
// layer, layer nLayersCur the half-space; vectors count from 1. Lengths, velocities and densities are in the
// project's units; nothing here converts.
#pragma once

#include "numeric/offset_array.h"

namespace sondera {

struct LayeredGround {
  int nLayersCur = 0;
  OffsetVector<double> layerH, layerVs, layerVp;      ///< thickness, wave velocities
  OffsetVector<double> layerG, layerE;                ///< shear modulus, Young's modulus
  OffsetVector<double> layerRho, layerNu, layerDamp;  ///< density, Poisson's ratio, damping ratio
  OffsetVector<int> iPoissonGiven, iDensityDerived;   ///< 1: Vp from nu; 1: density from Vs
  double lastLayerH = 0.0;                            ///< thickness of the half-space in the table
  double totalDepth = 0.0;                            ///< sum of the thicknesses, by DeriveLayerProperties
};

}  // namespace sondera
