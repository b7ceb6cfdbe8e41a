// fmodeling.h - "Parameters for Forward Modeling Analysis": analysis, layers, receivers and wanted points.
//
// The panel starts on array curves, so the group of a global curve starts hidden. The labels of XMIN and XMAX
// follow XDOMAIN_TYPE, the number of table rows follows NLAYERS, NRECEIVERS and NDISPCURVES.
#pragma once

#include "runtime/controls.h"

namespace sondera::fmodeling {

inline constexpr ListItem kAnalyses[] = {{"2-D", 2}, {"3-D", 3}, {"Enhanced 3-D", 4}};
inline constexpr ListItem kCurveKinds[] = {{"Global", 1}, {"Array", 2}};
inline constexpr ListItem kReceiverKinds[] = {{"R1=2L and R2=4L", 3}, {"Fixed receivers", 4}};
inline constexpr ListItem kDomains[] = {{"Wavelength", 1}, {"Frequency", 2}};
inline constexpr ListItem kLayerings[] = {{"Automatic", 0}, {"As in the table", 1}};
inline constexpr std::string_view kSoilColumns[] = {"Thickness", "P-Wave Vel.",  "S-Wave Vel.",
                                                    "Density",   "Poisson's R.", "Damping F."};
inline constexpr std::string_view kReceiverColumns[] = {"Location"};
inline constexpr std::string_view kPairColumns[] = {"Receiver 1", "Receiver 2", "Min Freq.", "Max Freq."};

inline constexpr RingControl ANALYSISTYPE{
    Panel::FMODELING,
    "ANALYSISTYPE",
    "Analysis",
    kAnalyses,
    1,
    {.hint = "Solver: 2-D (plane waves), 3-D (point load), or Enhanced 3-D (point load with sublayers)."}};
inline constexpr IntControl E3D_NSUBL{
    Panel::FMODELING,
    "E3D_NSUBL",
    "Sublayers",
    16,
    {.hint = "Number of sublayers of the Enhanced 3-D analysis, 1 or more.", .min = 1.0, .step = 1.0}};
inline constexpr NumericControl E3D_FDB{
    Panel::FMODELING,
    "E3D_FDB",
    "Displacement bulb",
    1.75,
    {.hint = "Depth of the displacement bulb in wavelengths for the Enhanced 3-D analysis, above 0.",
     .min = 0.0,
     .step = 0.05}};

inline constexpr IntControl NLAYERS{
    Panel::FMODELING,
    "NLAYERS",
    "Number of layers",
    10,
    {.hint = "Number of layers, the half-space included, 1 or more; the table follows.",
     .min = 1.0,
     .step = 1.0}};
inline constexpr TableControl SOILPROFILE{
    Panel::FMODELING,
    "SOILPROFILE",
    "Soil profile",
    10,
    kSoilColumns,
    {.hint =
         "Layers from the top: thickness in the unit of length, P- and S-wave velocity in that unit per "
         "second, density, Poisson's ratio from 0 to 0.5, damping factor; the last row is the half-space."}};
inline constexpr GraphControl PROFILE{
    Panel::FMODELING,
    "PROFILE",
    "Picture of the layers",
    {.hint = "Shear wave velocity over depth of the layers in the table, as they are typed."}};
inline constexpr TableControl SOILPROFILE_DFLT{
    Panel::FMODELING, "SOILPROFILE_DFLT",
    "Defaults",       1,
    kSoilColumns,     {.hint = "One row of values that the buttons below copy to all layers."}};
inline constexpr ButtonControl UPDATE_PROFILE1{
    Panel::FMODELING,
    "UPDATE_PROFILE1",
    "Apply All",
    {.hint = "Copies the default thickness to all layers.", .spoken = "Apply All, Thickness"}};
inline constexpr ButtonControl UPDATE_PROFILE2{
    Panel::FMODELING,
    "UPDATE_PROFILE2",
    "Apply All",
    {.hint = "Copies the default P-wave velocity to all layers.", .spoken = "Apply All, P-Wave Vel"}};
inline constexpr ButtonControl UPDATE_PROFILE3{
    Panel::FMODELING,
    "UPDATE_PROFILE3",
    "Apply All",
    {.hint = "Copies the default S-wave velocity to all layers.", .spoken = "Apply All, S-Wave Vel"}};
inline constexpr ButtonControl UPDATE_PROFILE4{
    Panel::FMODELING,
    "UPDATE_PROFILE4",
    "Apply All",
    {.hint = "Copies the default density to all layers.", .spoken = "Apply All, Density"}};
inline constexpr ButtonControl UPDATE_PROFILE5{
    Panel::FMODELING,
    "UPDATE_PROFILE5",
    "Apply All",
    {.hint = "Copies the default Poisson's ratio to all layers.", .spoken = "Apply All, Poisson's R"}};
inline constexpr ButtonControl UPDATE_PROFILE6{
    Panel::FMODELING,
    "UPDATE_PROFILE6",
    "Apply All",
    {.hint = "Copies the default damping factor to all layers.", .spoken = "Apply All, Damping F"}};
inline constexpr IntControl EDITLAYERNO{
    Panel::FMODELING,
    "EDITLAYERNO",
    "Layer",
    1,
    {.hint = "Layer that Insert and Delete act on, counted from 1.", .min = 1.0, .step = 1.0}};
inline constexpr ButtonControl INSERTLAYER{
    Panel::FMODELING,
    "INSERTLAYER",
    "Insert",
    {.hint = "Inserts an empty layer above this one.", .spoken = "Insert, layer"}};
inline constexpr ButtonControl DELETEROW{
    Panel::FMODELING, "DELETEROW", "Delete", {.hint = "Deletes this layer.", .spoken = "Delete, layer"}};
inline constexpr ButtonControl CLEARROW{
    Panel::FMODELING,
    "CLEARROW",
    "Clear",
    {.hint = "Sets all cells of all layers to 0.", .spoken = "Clear, layers"}};
inline constexpr RingControl COPYPRF{
    Panel::FMODELING,
    "COPYPRF",
    "Profile",
    {.hint = "Stored profile that Copy takes: a starting profile or an iteration."}};
inline constexpr ButtonControl COPYFROMPRF{
    Panel::FMODELING,
    "COPYFROMPRF",
    "Copy",
    {.hint = "Copies the stored profile into the table of layers.", .spoken = "Copy, profile"}};
inline constexpr RingControl AUTOLAYERTYPE{
    Panel::FMODELING,
    "AUTOLAYERTYPE",
    "Layering",
    kLayerings,
    {.hint = "Thicknesses for Set up layers: automatic, or those of the table."}};
inline constexpr NumericControl MAXDEPTH{
    Panel::FMODELING,
    "MAXDEPTH",
    "Maximum depth",
    {.hint = "Depth that the layers must reach, in the unit of length, above 0.",
     .unit = "length",
     .min = 0.0}};
inline constexpr NumericControl TOTALDEPTH{
    Panel::FMODELING,
    "TOTALDEPTH",
    "Total depth",
    {.hint = "Depth of the top of the half-space, in the unit of length.",
     .role = Role::ReadOut,
     .unit = "length",
     .min = 0.0}};
inline constexpr ButtonControl SETUPLAYERING{
    Panel::FMODELING,
    "SETUPLAYERING",
    "Set up layers",
    {.hint = "Fills the table with layers down to the maximum depth."}};

inline constexpr RingControl GLOBAL_ARRAY{
    Panel::FMODELING,
    "GLOBAL_ARRAY",
    "Dispersion curves",
    kCurveKinds,
    1,
    {.hint = "Curves to compute: one global curve, or the array curves of receiver pairs."}};
inline constexpr NumericControl INCRATIO{
    Panel::FMODELING,
    "INCRATIO",
    "Increment ratio",
    1.07,
    {.hint = "Ratio of neighbouring points on the axis, above 1.", .min = 1.0, .step = 0.01}};
inline constexpr IntControl NDISPPOINTS{
    Panel::FMODELING,
    "NDISPPOINTS",
    "Points of a curve",
    50,
    {.hint = "Number of points of a theoretical curve, 1 or more.", .min = 1.0, .step = 1.0}};
inline constexpr auto GLOBAL_REC_TYPE = Hidden(
    RingControl{Panel::FMODELING,
                "GLOBAL_REC_TYPE",
                "Receivers",
                kReceiverKinds,
                {.hint = "Receivers of the global curve: at two and four wavelengths, or at fixed places."}});
inline constexpr auto R1_LOC = Hidden(
    NumericControl{Panel::FMODELING,
                   "R1_LOC",
                   "Receiver 1",
                   1.0,
                   {.hint = "Distance of the first receiver from the source, in the unit of length, above 0.",
                    .unit = "length",
                    .min = 0.0}});
inline constexpr auto R2_LOC = Hidden(NumericControl{
    Panel::FMODELING,
    "R2_LOC",
    "Receiver 2",
    2.0,
    {.hint =
         "Distance of the second receiver from the source, in the unit of length, above that of the first.",
     .unit = "length",
     .min = 0.0}});
inline constexpr auto XDOMAIN_TYPE =
    Hidden(RingControl{Panel::FMODELING,
                       "XDOMAIN_TYPE",
                       "Domain",
                       kDomains,
                       {.hint = "Quantity of the range of the global curve: wavelength or frequency."}});
inline constexpr auto XMIN = Hidden(NumericControl{
    Panel::FMODELING,
    "XMIN",
    "Min. WaveL : ",
    1.0,
    {.hint = "Smallest wavelength (unit of length) or frequency (Hz) of the global curve, above 0.",
     .spoken = "Least wavelength or frequency",
     .min = 0.0}});
inline constexpr auto XMAX = Hidden(NumericControl{
    Panel::FMODELING,
    "XMAX",
    "Max. WaveL : ",
    100.0,
    {.hint = "Largest wavelength (unit of length) or frequency (Hz) of the global curve, above the smallest.",
     .spoken = "Greatest wavelength or frequency",
     .min = 0.0}});
inline constexpr IntControl NRECEIVERS{
    Panel::FMODELING,
    "NRECEIVERS",
    "Number of receivers",
    8,
    {.hint = "Number of receivers on the line, 1 or more; the table follows.", .min = 1.0, .step = 1.0}};
inline constexpr TableControl RECEIVERLOC{
    Panel::FMODELING,
    "RECEIVERLOC",
    "Receivers",
    8,
    kReceiverColumns,
    {.hint = "Distance of each receiver from the source, in the unit of length, from the nearest on.",
     .spoken = "Receivers, locations",
     .unit = "length",
     .min = 0.0}};
inline constexpr IntControl NDISPCURVES{
    Panel::FMODELING,
    "NDISPCURVES",
    "Number of curves",
    7,
    {.hint = "Number of array curves, 1 or more; the table of pairs follows.", .min = 1.0, .step = 1.0}};
inline constexpr TableControl DISPCURVINFO{
    Panel::FMODELING,
    "DISPCURVINFO",
    "Receiver pairs",
    7,
    kPairColumns,
    {.hint = "Receiver pairs: numbers of the first and the second receiver, and the band in Hz for which the "
             "curve is computed."}};

inline constexpr ButtonControl DISPCURVINFOIN{
    Panel::FMODELING,
    "DISPCURVINFOIN",
    "From memory",
    {.hint = "Takes receivers, pairs and points from the representative curves of the project."}};
inline constexpr ButtonControl LOADDISPCURV{
    Panel::FMODELING,
    "LOADDISPCURV",
    "Load curves",
    {.hint = "Takes the representative curves of the project as the curves to compute."}};
inline constexpr ButtonControl UPDATE{
    Panel::FMODELING, "UPDATE", "Update", {.hint = "Stores all settings of this panel."}};
inline constexpr ButtonControl SAVE{
    Panel::FMODELING, "SAVE", "Save", {.hint = "Writes this panel to an .fmd file."}};
inline constexpr ButtonControl READ{
    Panel::FMODELING, "READ", "Read", {.hint = "Reads this panel from an .fmd file."}};
inline constexpr ButtonControl CLOSE{Panel::FMODELING, "CLOSE", "Close", {.hint = "Hides this panel."}};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&ANALYSISTYPE,
                                               &E3D_NSUBL,
                                               &E3D_FDB,
                                               &NLAYERS,
                                               &SOILPROFILE,
                                               &PROFILE,
                                               &SOILPROFILE_DFLT,
                                               &UPDATE_PROFILE1,
                                               &UPDATE_PROFILE2,
                                               &UPDATE_PROFILE3,
                                               &UPDATE_PROFILE4,
                                               &UPDATE_PROFILE5,
                                               &UPDATE_PROFILE6,
                                               &EDITLAYERNO,
                                               &INSERTLAYER,
                                               &DELETEROW,
                                               &CLEARROW,
                                               &COPYPRF,
                                               &COPYFROMPRF,
                                               &AUTOLAYERTYPE,
                                               &MAXDEPTH,
                                               &TOTALDEPTH,
                                               &SETUPLAYERING,
                                               &GLOBAL_ARRAY,
                                               &INCRATIO,
                                               &NDISPPOINTS,
                                               &GLOBAL_REC_TYPE,
                                               &R1_LOC,
                                               &R2_LOC,
                                               &XDOMAIN_TYPE,
                                               &XMIN,
                                               &XMAX,
                                               &NRECEIVERS,
                                               &RECEIVERLOC,
                                               &NDISPCURVES,
                                               &DISPCURVINFO,
                                               &DISPCURVINFOIN,
                                               &LOADDISPCURV,
                                               &UPDATE,
                                               &SAVE,
                                               &READ,
                                               &CLOSE};

}  // namespace sondera::fmodeling
