// inversion.h - "Parameters for Inversion Analysis": starting model, iterations, uncertainty, bounds,
// constraints.
//
// These values are used until the record of the inversion overwrites them; the record has other ones for UF_H
// and UB_VS. At the start data keep their deviations (CD_COV 0) and the model factors are UF_H and UF_VS
// (CM_COV 0), so the factors of the other choices start dimmed.
#pragma once

#include "runtime/controls.h"

namespace sondera::inversion {

inline constexpr ListItem kStartModels[] = {{"Given Model P.", 0}};
inline constexpr ListItem kModelParms[] = {{"Vs", 1}, {"H", 2}, {"Vs and H", 3}};
inline constexpr ListItem kDataCovariances[] = {
    {"Unity", -1}, {"Deviations of the data", 0}, {"uf x Vph", 1}};
inline constexpr ListItem kModelCovariances[] = {{"uf of H and Vs", 0}, {"Relative, unit data weights", 1}};

inline constexpr IntControl ALPHA_POINT{
    Panel::INVERSION,
    "ALPHA_POINT",
    "- Depth-to-WaveL Ratios:",
    10,
    {.hint = "Number of depth-to-wavelength ratios to try, 1 or more; each gives a starting profile.",
     .min = 1.0,
     .step = 1.0}};
inline constexpr NumericControl ALPHA_FROM{Panel::INVERSION,
                                           "ALPHA_FROM",
                                           "from",
                                           0.35,
                                           {.hint = "Smallest depth-to-wavelength ratio, above 0.",
                                            .spoken = "Depth-to-WaveL Ratios, from",
                                            .min = 0.0,
                                            .step = 0.05}};
inline constexpr NumericControl ALPHA_TO{
    Panel::INVERSION,
    "ALPHA_TO",
    "to",
    0.65,
    {.hint = "Largest depth-to-wavelength ratio, not below the smallest.",
     .spoken = "Depth-to-WaveL Ratios, to",
     .min = 0.0,
     .step = 0.05}};
inline constexpr ButtonControl AUTOSETUPSMP{
    Panel::INVERSION,
    "AUTOSETUPSMP",
    "Set up layers",
    {.hint = "Fills the table of layers down to half the longest wavelength."}};
inline constexpr ButtonControl EVALSMPARAM{
    Panel::INVERSION,
    "EVALSMPARAM",
    "Determine Starting Model",
    {.hint = "Computes a starting profile for each ratio and takes the one with the lowest RMS error."}};
inline constexpr RingControl INV_SMP{
    Panel::INVERSION,
    "INV_SMP",
    "- Selection of Starting Model :",
    kStartModels,
    {.hint = "Model that the inversion starts from: the given one, a starting profile or an iteration."}};
inline constexpr IntControl NITER{Panel::INVERSION,
                                  "NITER",
                                  "- No. of Iterations = ",
                                  5,
                                  {.hint = "Number of iterations, 1 or more.", .min = 1.0, .step = 1.0}};
inline constexpr RingControl MODELPARM{
    Panel::INVERSION,
    "MODELPARM",
    "- Model Parameters:",
    kModelParms,
    {.hint = "What the inversion changes: shear wave velocities, thicknesses, or both."}};
inline constexpr RingControl CD_COV{Panel::INVERSION,
                                    "CD_COV",
                                    "Data covariance",
                                    kDataCovariances,
                                    1,
                                    {.hint = "Standard deviations of the data: all 1, those of the curves, "
                                             "or a factor times the phase velocity."}};
inline constexpr auto UF_VPH = Dimmed(
    NumericControl{Panel::INVERSION,
                   "UF_VPH",
                   "uf x (Vph, Vs, or H) = Standard Deviation",
                   0.05,
                   {.hint = "Standard deviation of the data as a share of the phase velocity, above 0.",
                    .min = 0.0,
                    .step = 0.01}});
inline constexpr RingControl CM_COV{
    Panel::INVERSION,
    "CM_COV",
    "Model covariance",
    kModelCovariances,
    {.hint = "Standard deviations of the model: factors of its values, or relative to data of weight 1."}};
inline constexpr NumericControl UF_H{
    Panel::INVERSION,
    "UF_H",
    "uf of H",
    0.15,
    {.hint = "Standard deviation of a thickness as a share of it, above 0.", .min = 0.0, .step = 0.01}};
inline constexpr NumericControl UF_VS{
    Panel::INVERSION,
    "UF_VS",
    "uf of Vs",
    0.05,
    {.hint = "Standard deviation of a shear wave velocity as a share of it, above 0.",
     .min = 0.0,
     .step = 0.01}};
inline constexpr auto UF_H_REL = Dimmed(NumericControl{
    Panel::INVERSION,
    "UF_H_REL",
    "uf of H, relative",
    0.01,
    {.hint = "The same factor of a thickness for data of weight 1, above 0.", .min = 0.0, .step = 0.01}});
inline constexpr auto UF_VS_REL =
    Dimmed(NumericControl{Panel::INVERSION,
                          "UF_VS_REL",
                          "uf of Vs, relative",
                          2.5,
                          {.hint = "The same factor of a shear wave velocity for data of weight 1, above 0.",
                           .min = 0.0,
                           .step = 0.1}});
inline constexpr LabelControl BOUNDSTEXT{
    Panel::INVERSION, "BOUNDSTEXT", "- Lower and Upper Bounds:", {.hint = "Heading of the bounds."}};
inline constexpr NumericControl LB_H{
    Panel::INVERSION,
    "LB_H",
    "H from",
    0.01,
    {.hint = "Lower bound of each thickness, in the unit of length, above 0.", .unit = "length", .min = 0.0}};
inline constexpr NumericControl UB_H{
    Panel::INVERSION,
    "UB_H",
    "H to",
    50.0,
    {.hint = "Upper bound of each thickness, in the unit of length, above the lower one.",
     .unit = "length",
     .min = 0.0}};
inline constexpr NumericControl LB_VS{
    Panel::INVERSION,
    "LB_VS",
    "Vs from",
    10.0,
    {.hint = "Lower bound of each shear wave velocity, in the unit of length per second, above 0.",
     .unit = "length/s",
     .min = 0.0}};
inline constexpr NumericControl UB_VS{
    Panel::INVERSION,
    "UB_VS",
    "Vs to",
    10000.0,
    {.hint =
         "Upper bound of each shear wave velocity, in the unit of length per second, above the lower one.",
     .unit = "length/s",
     .min = 0.0}};
inline constexpr LabelControl CONSTRAINTTEXT{Panel::INVERSION,
                                             "CONSTRAINTTEXT",
                                             "Constrained Layers:",
                                             {.hint = "Heading of the constrained layers."}};
inline constexpr TextControl CONST_MP_H{
    Panel::INVERSION,
    "CONST_MP_H",
    "H",
    {.hint = "Layers whose thickness stays, numbers from 1 with commas between, as 1, 3, 4.",
     .spoken = "Constrained layers, H"}};
inline constexpr TextControl CONST_MP_VS{
    Panel::INVERSION,
    "CONST_MP_VS",
    "Vs",
    {.hint = "Layers whose shear wave velocity stays, numbers from 1 with commas between, as 1, 3, 4.",
     .spoken = "Constrained layers, Vs"}};
inline constexpr ToggleControl UPDATERHONU{
    Panel::INVERSION,
    "UPDATERHONU",
    "Density and Poisson's ratio follow Vs",
    1,
    {.hint = "Derives density and Poisson's ratio again from each shear wave velocity."}};

// Beyond the plain iteration, initially off. A project file does not contain them. A step that raises chi is
// halved, four times at most; else the model stays.
inline constexpr ToggleControl STEPCONTROL{
    Panel::INVERSION,
    "STEPCONTROL",
    "Step control",
    0,
    {.hint = "Halves a step that raises the misfit, four times at most."}};
/// The deviation of the velocities is the relative misfit of the starting model, 5 % at least.
inline constexpr ToggleControl DATADEVIATION{
    Panel::INVERSION,
    "DATADEVIATION",
    "Deviation from the data",
    0,
    {.hint = "Takes the deviation of the velocities from the misfit of the starting model, 5 % at least."}};
/// Points more than 1.5 deviations off the curve have limited influence.
inline constexpr ToggleControl HUBERWEIGHTS{
    Panel::INVERSION,
    "HUBERWEIGHTS",
    "Huber weights",
    0,
    {.hint = "Limits the influence of points more than 1.5 deviations off the curve."}};
/// The run is repeated from three uniform grounds, and the spread of the profiles shown.
inline constexpr ToggleControl SEVERALSTARTS{
    Panel::INVERSION,
    "SEVERALSTARTS",
    "Several starts",
    0,
    {.hint = "Repeats the run from three uniform grounds and shows the spread of the profiles."}};

inline constexpr ButtonControl PERFORMINV{
    Panel::INVERSION, "PERFORMINV", "Run", {.hint = "Runs the inversion."}};
inline constexpr ButtonControl PERFORMINVSAVE{Panel::INVERSION,
                                              "PERFORMINVSAVE",
                                              "Run and Save",
                                              {.hint = "Runs the inversion, then saves the project."}};
inline constexpr ButtonControl ONECLICK_RUN{
    Panel::INVERSION,
    "ONECLICK_RUN",
    "One-Click Inversion",
    {.hint = "Sets up layers, determines the starting model, runs the inversion and saves."}};
inline constexpr ButtonControl CLOSE{Panel::INVERSION, "CLOSE", "Close", {.hint = "Hides this panel."}};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {
    &ALPHA_POINT,  &ALPHA_FROM,    &ALPHA_TO,       &AUTOSETUPSMP,  &EVALSMPARAM, &INV_SMP,
    &NITER,        &MODELPARM,     &CD_COV,         &UF_VPH,        &CM_COV,      &UF_H,
    &UF_VS,        &UF_H_REL,      &UF_VS_REL,      &BOUNDSTEXT,    &LB_H,        &UB_H,
    &LB_VS,        &UB_VS,         &CONSTRAINTTEXT, &CONST_MP_H,    &CONST_MP_VS, &UPDATERHONU,
    &STEPCONTROL,  &DATADEVIATION, &HUBERWEIGHTS,   &SEVERALSTARTS, &PERFORMINV,  &PERFORMINVSAVE,
    &ONECLICK_RUN, &CLOSE};

}  // namespace sondera::inversion
