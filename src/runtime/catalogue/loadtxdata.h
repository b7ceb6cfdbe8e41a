// loadtxdata.h - "Load Measurement Data (Text Format)": the import of measurements made elsewhere.
//
// Ten rows of files (the source's, then nine channels) and nine rows of locations; the import logic shows as
// many as the kind of data needs and words their labels; without receivers only the source has a row.
#pragma once

#include "runtime/catalogue/items.h"

namespace sondera::loadtxdata {

inline constexpr ListItem kDataTypes[] = {{"Time Histories", 0},
                                          {"Transfer Functions", 1},
                                          {"Cross Power Spectra", 2},
                                          {"Transfer Functions(58 Format)", 3},
                                          {"Cross Power Spectra(58 Format)", 4}};
inline constexpr ListItem kSourceInstrumented[] = {{"No", 0}, {"Yes", 1}};

inline constexpr TextControl MEASID{Panel::LOADTXDATA, "MEASID", "Measurement ID"};
inline constexpr IntControl NCHANS{Panel::LOADTXDATA, "NCHANS", "Number of receivers"};
inline constexpr RingControl DATATYPE{Panel::LOADTXDATA, "DATATYPE", "Data", kDataTypes, 1};
inline constexpr RingControl SRCINSTRUMENT{Panel::LOADTXDATA, "SRCINSTRUMENT", "Source instrumented",
                                           kSourceInstrumented};
inline constexpr LabelControl TEXTMSG_39{Panel::LOADTXDATA, "TEXTMSG_39", "  Transfer Functions"};

inline constexpr auto DFCH0 = Hidden(LabelControl{Panel::LOADTXDATA, "DFCH0", "- Row 1: "});
inline constexpr auto FNAMESRC = Hidden(TextControl{Panel::LOADTXDATA, "FNAMESRC", "File of the first row"});
inline constexpr auto FILEOPEN_SRC = Hidden(ButtonControl{Panel::LOADTXDATA, "FILEOPEN_SRC", "..."});
inline constexpr auto DFCH1 = Hidden(LabelControl{Panel::LOADTXDATA, "DFCH1", "- Row 2: "});
inline constexpr auto FNAMECH1 = Hidden(TextControl{Panel::LOADTXDATA, "FNAMECH1", "File of row 2"});
inline constexpr auto FILEOPEN_CH1 = Hidden(ButtonControl{Panel::LOADTXDATA, "FILEOPEN_CH1", "..."});
inline constexpr auto DFCH2 = Hidden(LabelControl{Panel::LOADTXDATA, "DFCH2", "- Row 3: "});
inline constexpr auto FNAMECH2 = Hidden(TextControl{Panel::LOADTXDATA, "FNAMECH2", "File of row 3"});
inline constexpr auto FILEOPEN_CH2 = Hidden(ButtonControl{Panel::LOADTXDATA, "FILEOPEN_CH2", "..."});
inline constexpr auto DFCH3 = Hidden(LabelControl{Panel::LOADTXDATA, "DFCH3", "- Row 4: "});
inline constexpr auto FNAMECH3 = Hidden(TextControl{Panel::LOADTXDATA, "FNAMECH3", "File of row 4"});
inline constexpr auto FILEOPEN_CH3 = Hidden(ButtonControl{Panel::LOADTXDATA, "FILEOPEN_CH3", "..."});
inline constexpr auto DFCH4 = Hidden(LabelControl{Panel::LOADTXDATA, "DFCH4", "- Row 5: "});
inline constexpr auto FNAMECH4 = Hidden(TextControl{Panel::LOADTXDATA, "FNAMECH4", "File of row 5"});
inline constexpr auto FILEOPEN_CH4 = Hidden(ButtonControl{Panel::LOADTXDATA, "FILEOPEN_CH4", "..."});
inline constexpr auto DFCH5 = Hidden(LabelControl{Panel::LOADTXDATA, "DFCH5", "- Row 6: "});
inline constexpr auto FNAMECH5 = Hidden(TextControl{Panel::LOADTXDATA, "FNAMECH5", "File of row 6"});
inline constexpr auto FILEOPEN_CH5 = Hidden(ButtonControl{Panel::LOADTXDATA, "FILEOPEN_CH5", "..."});
inline constexpr auto DFCH6 = Hidden(LabelControl{Panel::LOADTXDATA, "DFCH6", "- Row 7: "});
inline constexpr auto FNAMECH6 = Hidden(TextControl{Panel::LOADTXDATA, "FNAMECH6", "File of row 7"});
inline constexpr auto FILEOPEN_CH6 = Hidden(ButtonControl{Panel::LOADTXDATA, "FILEOPEN_CH6", "..."});
inline constexpr auto DFCH7 = Hidden(LabelControl{Panel::LOADTXDATA, "DFCH7", "- Row 8: "});
inline constexpr auto FNAMECH7 = Hidden(TextControl{Panel::LOADTXDATA, "FNAMECH7", "File of row 8"});
inline constexpr auto FILEOPEN_CH7 = Hidden(ButtonControl{Panel::LOADTXDATA, "FILEOPEN_CH7", "..."});
inline constexpr auto DFCH8 = Hidden(LabelControl{Panel::LOADTXDATA, "DFCH8", "- Row 9: "});
inline constexpr auto FNAMECH8 = Hidden(TextControl{Panel::LOADTXDATA, "FNAMECH8", "File of row 9"});
inline constexpr auto FILEOPEN_CH8 = Hidden(ButtonControl{Panel::LOADTXDATA, "FILEOPEN_CH8", "..."});
inline constexpr auto DFCH9 = Hidden(LabelControl{Panel::LOADTXDATA, "DFCH9", "- Row 10: "});
inline constexpr auto FNAMECH9 = Hidden(TextControl{Panel::LOADTXDATA, "FNAMECH9", "File of row 10"});
inline constexpr auto FILEOPEN_CH9 = Hidden(ButtonControl{Panel::LOADTXDATA, "FILEOPEN_CH9", "..."});

inline constexpr LabelControl LOCRECNO0{Panel::LOADTXDATA, "LOCRECNO0", "Source"};
inline constexpr NumericControl LOC_SRC{Panel::LOADTXDATA, "LOC_SRC", "Location of the source"};
inline constexpr auto LOCRECNO1 = Hidden(LabelControl{Panel::LOADTXDATA, "LOCRECNO1", "R1"});
inline constexpr auto LOC_REC1 =
    Hidden(NumericControl{Panel::LOADTXDATA, "LOC_REC1", "Location of receiver 1"});
inline constexpr auto LOCRECNO2 = Hidden(LabelControl{Panel::LOADTXDATA, "LOCRECNO2", "R2"});
inline constexpr auto LOC_REC2 =
    Hidden(NumericControl{Panel::LOADTXDATA, "LOC_REC2", "Location of receiver 2"});
inline constexpr auto LOCRECNO3 = Hidden(LabelControl{Panel::LOADTXDATA, "LOCRECNO3", "R3"});
inline constexpr auto LOC_REC3 =
    Hidden(NumericControl{Panel::LOADTXDATA, "LOC_REC3", "Location of receiver 3"});
inline constexpr auto LOCRECNO4 = Hidden(LabelControl{Panel::LOADTXDATA, "LOCRECNO4", "R4"});
inline constexpr auto LOC_REC4 =
    Hidden(NumericControl{Panel::LOADTXDATA, "LOC_REC4", "Location of receiver 4"});
inline constexpr auto LOCRECNO5 = Hidden(LabelControl{Panel::LOADTXDATA, "LOCRECNO5", "R5"});
inline constexpr auto LOC_REC5 =
    Hidden(NumericControl{Panel::LOADTXDATA, "LOC_REC5", "Location of receiver 5"});
inline constexpr auto LOCRECNO6 = Hidden(LabelControl{Panel::LOADTXDATA, "LOCRECNO6", "R6"});
inline constexpr auto LOC_REC6 =
    Hidden(NumericControl{Panel::LOADTXDATA, "LOC_REC6", "Location of receiver 6"});
inline constexpr auto LOCRECNO7 = Hidden(LabelControl{Panel::LOADTXDATA, "LOCRECNO7", "R7"});
inline constexpr auto LOC_REC7 =
    Hidden(NumericControl{Panel::LOADTXDATA, "LOC_REC7", "Location of receiver 7"});
inline constexpr auto LOCRECNO8 = Hidden(LabelControl{Panel::LOADTXDATA, "LOCRECNO8", "R8"});
inline constexpr auto LOC_REC8 =
    Hidden(NumericControl{Panel::LOADTXDATA, "LOC_REC8", "Location of receiver 8"});

inline constexpr RealRingControl LENGTHUNIT{Panel::LOADTXDATA, "LENGTHUNIT", "Unit of length",
                                            panel_items::kLengthUnits};
inline constexpr RingControl SITECAT{Panel::LOADTXDATA, "SITECAT", "Site", panel_items::kSiteCategories};
inline constexpr NumericControl WLENGTHFILTER{Panel::LOADTXDATA, "WLENGTHFILTER", "Wavelength criterion",
                                              0.25};
inline constexpr ButtonControl LOAD{Panel::LOADTXDATA, "LOAD", "Load"};
inline constexpr ButtonControl CANCEL{Panel::LOADTXDATA, "CANCEL", "Cancel"};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {
    &MEASID,       &NCHANS,       &DATATYPE,     &SRCINSTRUMENT, &TEXTMSG_39,   &DFCH0,        &FNAMESRC,
    &FILEOPEN_SRC, &DFCH1,        &FNAMECH1,     &FILEOPEN_CH1,  &DFCH2,        &FNAMECH2,     &FILEOPEN_CH2,
    &DFCH3,        &FNAMECH3,     &FILEOPEN_CH3, &DFCH4,         &FNAMECH4,     &FILEOPEN_CH4, &DFCH5,
    &FNAMECH5,     &FILEOPEN_CH5, &DFCH6,        &FNAMECH6,      &FILEOPEN_CH6, &DFCH7,        &FNAMECH7,
    &FILEOPEN_CH7, &DFCH8,        &FNAMECH8,     &FILEOPEN_CH8,  &DFCH9,        &FNAMECH9,     &FILEOPEN_CH9,
    &LOCRECNO0,    &LOC_SRC,      &LOCRECNO1,    &LOC_REC1,      &LOCRECNO2,    &LOC_REC2,     &LOCRECNO3,
    &LOC_REC3,     &LOCRECNO4,    &LOC_REC4,     &LOCRECNO5,     &LOC_REC5,     &LOCRECNO6,    &LOC_REC6,
    &LOCRECNO7,    &LOC_REC7,     &LOCRECNO8,    &LOC_REC8,      &LENGTHUNIT,   &SITECAT,      &WLENGTHFILTER,
    &LOAD,         &CANCEL};

}  // namespace sondera::loadtxdata
