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

inline constexpr RingControl ANALYSISTYPE{Panel::FMODELING, "ANALYSISTYPE", "Analysis", kAnalyses, 1};
inline constexpr IntControl E3D_NSUBL{Panel::FMODELING, "E3D_NSUBL", "Sublayers", 16};
inline constexpr NumericControl E3D_FDB{Panel::FMODELING, "E3D_FDB", "Displacement bulb", 1.75};

inline constexpr IntControl NLAYERS{Panel::FMODELING, "NLAYERS", "Number of layers", 10};
inline constexpr TableControl SOILPROFILE{Panel::FMODELING, "SOILPROFILE", "Soil profile", 10, kSoilColumns};
inline constexpr TableControl SOILPROFILE_DFLT{Panel::FMODELING, "SOILPROFILE_DFLT", "Defaults", 1,
                                               kSoilColumns};
inline constexpr ButtonControl UPDATE_PROFILE1{Panel::FMODELING, "UPDATE_PROFILE1", "Apply All"};
inline constexpr ButtonControl UPDATE_PROFILE2{Panel::FMODELING, "UPDATE_PROFILE2", "Apply All"};
inline constexpr ButtonControl UPDATE_PROFILE3{Panel::FMODELING, "UPDATE_PROFILE3", "Apply All"};
inline constexpr ButtonControl UPDATE_PROFILE4{Panel::FMODELING, "UPDATE_PROFILE4", "Apply All"};
inline constexpr ButtonControl UPDATE_PROFILE5{Panel::FMODELING, "UPDATE_PROFILE5", "Apply All"};
inline constexpr ButtonControl UPDATE_PROFILE6{Panel::FMODELING, "UPDATE_PROFILE6", "Apply All"};
inline constexpr IntControl EDITLAYERNO{Panel::FMODELING, "EDITLAYERNO", "Layer", 1};
inline constexpr ButtonControl INSERTLAYER{Panel::FMODELING, "INSERTLAYER", "Insert"};
inline constexpr ButtonControl DELETEROW{Panel::FMODELING, "DELETEROW", "Delete"};
inline constexpr ButtonControl CLEARROW{Panel::FMODELING, "CLEARROW", "Clear"};
inline constexpr RingControl COPYPRF{Panel::FMODELING, "COPYPRF", "Profile"};
inline constexpr ButtonControl COPYFROMPRF{Panel::FMODELING, "COPYFROMPRF", "Copy"};
inline constexpr RingControl AUTOLAYERTYPE{Panel::FMODELING, "AUTOLAYERTYPE", "Layering", kLayerings};
inline constexpr NumericControl MAXDEPTH{Panel::FMODELING, "MAXDEPTH", "Maximum depth"};
inline constexpr NumericControl TOTALDEPTH{Panel::FMODELING, "TOTALDEPTH", "Total depth"};
inline constexpr ButtonControl SETUPLAYERING{Panel::FMODELING, "SETUPLAYERING", "Set up layers"};

inline constexpr RingControl GLOBAL_ARRAY{Panel::FMODELING, "GLOBAL_ARRAY", "Dispersion curves", kCurveKinds,
                                          1};
inline constexpr NumericControl INCRATIO{Panel::FMODELING, "INCRATIO", "Increment ratio", 1.07};
inline constexpr IntControl NDISPPOINTS{Panel::FMODELING, "NDISPPOINTS", "Points of a curve", 50};
inline constexpr auto GLOBAL_REC_TYPE =
    Hidden(RingControl{Panel::FMODELING, "GLOBAL_REC_TYPE", "Receivers", kReceiverKinds});
inline constexpr auto R1_LOC = Hidden(NumericControl{Panel::FMODELING, "R1_LOC", "Receiver 1", 1.0});
inline constexpr auto R2_LOC = Hidden(NumericControl{Panel::FMODELING, "R2_LOC", "Receiver 2", 2.0});
inline constexpr auto XDOMAIN_TYPE =
    Hidden(RingControl{Panel::FMODELING, "XDOMAIN_TYPE", "Domain", kDomains});
inline constexpr auto XMIN = Hidden(NumericControl{Panel::FMODELING, "XMIN", "Min. WaveL : ", 1.0});
inline constexpr auto XMAX = Hidden(NumericControl{Panel::FMODELING, "XMAX", "Max. WaveL : ", 100.0});
inline constexpr IntControl NRECEIVERS{Panel::FMODELING, "NRECEIVERS", "Number of receivers", 8};
inline constexpr TableControl RECEIVERLOC{Panel::FMODELING, "RECEIVERLOC", "Receivers", 8, kReceiverColumns};
inline constexpr IntControl NDISPCURVES{Panel::FMODELING, "NDISPCURVES", "Number of curves", 7};
inline constexpr TableControl DISPCURVINFO{Panel::FMODELING, "DISPCURVINFO", "Receiver pairs", 7,
                                           kPairColumns};

inline constexpr ButtonControl DISPCURVINFOIN{Panel::FMODELING, "DISPCURVINFOIN", "From memory"};
inline constexpr ButtonControl LOADDISPCURV{Panel::FMODELING, "LOADDISPCURV", "Load curves"};
inline constexpr ButtonControl UPDATE{Panel::FMODELING, "UPDATE", "Update"};
inline constexpr ButtonControl SAVE{Panel::FMODELING, "SAVE", "Save"};
inline constexpr ButtonControl READ{Panel::FMODELING, "READ", "Read"};
inline constexpr ButtonControl CLOSE{Panel::FMODELING, "CLOSE", "Close"};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&ANALYSISTYPE,
                                               &E3D_NSUBL,
                                               &E3D_FDB,
                                               &NLAYERS,
                                               &SOILPROFILE,
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
