// loadtxdata.h - "Load Measurement Data (Text Format)": the import of measurements made elsewhere.
//
// Ten rows of files (the source's, then nine channels) and nine rows of locations; the import shows as many
// as the kind of data needs and sets their labels; without receivers only the source has a row.
#pragma once

#include "runtime/catalogue/items.h"

namespace sondera::loadtxdata {

inline constexpr ListItem kDataTypes[] = {{"Time Histories", 0},
                                          {"Transfer Functions", 1},
                                          {"Cross Power Spectra", 2},
                                          {"Transfer Functions(58 Format)", 3},
                                          {"Cross Power Spectra(58 Format)", 4}};
inline constexpr ListItem kSourceInstrumented[] = {{"No", 0}, {"Yes", 1}};

inline constexpr TextControl MEASID{Panel::LOADTXDATA,
                                    "MEASID",
                                    "Measurement ID",
                                    {.hint = "Id of the new measurement, up to 255 bytes.", .max = 255.0}};
inline constexpr IntControl NCHANS{
    Panel::LOADTXDATA,
    "NCHANS",
    "Number of receivers",
    {.hint = "Number of receivers, 0 to 8; the rows of files and places follow.",
     .min = 0.0,
     .max = 8.0,
     .step = 1.0}};
inline constexpr RingControl DATATYPE{
    Panel::LOADTXDATA,
    "DATATYPE",
    "Data",
    kDataTypes,
    1,
    {.hint = "What the files hold: time histories, transfer functions or cross power spectra, as columns of "
             "text or in UFF 58 format."}};
inline constexpr RingControl SRCINSTRUMENT{Panel::LOADTXDATA,
                                           "SRCINSTRUMENT",
                                           "Source instrumented",
                                           kSourceInstrumented,
                                           {.hint = "Whether the source has a channel of its own."}};
inline constexpr LabelControl TEXTMSG_39{Panel::LOADTXDATA,
                                         "TEXTMSG_39",
                                         "  Transfer Functions",
                                         {.hint = "Kind of data that the rows below name."}};

inline constexpr auto DFCH0 =
    Hidden(LabelControl{Panel::LOADTXDATA, "DFCH0", "- Row 1: ", {.hint = "What the file of row 1 holds."}});
inline constexpr auto FNAMESRC = Hidden(TextControl{Panel::LOADTXDATA,
                                                    "FNAMESRC",
                                                    "File of the first row",
                                                    {.hint = "File of row 1.", .spoken = "File of row 1"}});
inline constexpr auto FILEOPEN_SRC =
    Hidden(ButtonControl{Panel::LOADTXDATA,
                         "FILEOPEN_SRC",
                         "...",
                         {.hint = "Chooses the file of row 1.", .spoken = "File of row 1, browse"}});
inline constexpr auto DFCH1 =
    Hidden(LabelControl{Panel::LOADTXDATA, "DFCH1", "- Row 2: ", {.hint = "What the file of row 2 holds."}});
inline constexpr auto FNAMECH1 = Hidden(TextControl{
    Panel::LOADTXDATA, "FNAMECH1", "File of row 2", {.hint = "File of row 2.", .spoken = "File of row 2"}});
inline constexpr auto FILEOPEN_CH1 =
    Hidden(ButtonControl{Panel::LOADTXDATA,
                         "FILEOPEN_CH1",
                         "...",
                         {.hint = "Chooses the file of row 2.", .spoken = "File of row 2, browse"}});
inline constexpr auto DFCH2 =
    Hidden(LabelControl{Panel::LOADTXDATA, "DFCH2", "- Row 3: ", {.hint = "What the file of row 3 holds."}});
inline constexpr auto FNAMECH2 = Hidden(TextControl{
    Panel::LOADTXDATA, "FNAMECH2", "File of row 3", {.hint = "File of row 3.", .spoken = "File of row 3"}});
inline constexpr auto FILEOPEN_CH2 =
    Hidden(ButtonControl{Panel::LOADTXDATA,
                         "FILEOPEN_CH2",
                         "...",
                         {.hint = "Chooses the file of row 3.", .spoken = "File of row 3, browse"}});
inline constexpr auto DFCH3 =
    Hidden(LabelControl{Panel::LOADTXDATA, "DFCH3", "- Row 4: ", {.hint = "What the file of row 4 holds."}});
inline constexpr auto FNAMECH3 = Hidden(TextControl{
    Panel::LOADTXDATA, "FNAMECH3", "File of row 4", {.hint = "File of row 4.", .spoken = "File of row 4"}});
inline constexpr auto FILEOPEN_CH3 =
    Hidden(ButtonControl{Panel::LOADTXDATA,
                         "FILEOPEN_CH3",
                         "...",
                         {.hint = "Chooses the file of row 4.", .spoken = "File of row 4, browse"}});
inline constexpr auto DFCH4 =
    Hidden(LabelControl{Panel::LOADTXDATA, "DFCH4", "- Row 5: ", {.hint = "What the file of row 5 holds."}});
inline constexpr auto FNAMECH4 = Hidden(TextControl{
    Panel::LOADTXDATA, "FNAMECH4", "File of row 5", {.hint = "File of row 5.", .spoken = "File of row 5"}});
inline constexpr auto FILEOPEN_CH4 =
    Hidden(ButtonControl{Panel::LOADTXDATA,
                         "FILEOPEN_CH4",
                         "...",
                         {.hint = "Chooses the file of row 5.", .spoken = "File of row 5, browse"}});
inline constexpr auto DFCH5 =
    Hidden(LabelControl{Panel::LOADTXDATA, "DFCH5", "- Row 6: ", {.hint = "What the file of row 6 holds."}});
inline constexpr auto FNAMECH5 = Hidden(TextControl{
    Panel::LOADTXDATA, "FNAMECH5", "File of row 6", {.hint = "File of row 6.", .spoken = "File of row 6"}});
inline constexpr auto FILEOPEN_CH5 =
    Hidden(ButtonControl{Panel::LOADTXDATA,
                         "FILEOPEN_CH5",
                         "...",
                         {.hint = "Chooses the file of row 6.", .spoken = "File of row 6, browse"}});
inline constexpr auto DFCH6 =
    Hidden(LabelControl{Panel::LOADTXDATA, "DFCH6", "- Row 7: ", {.hint = "What the file of row 7 holds."}});
inline constexpr auto FNAMECH6 = Hidden(TextControl{
    Panel::LOADTXDATA, "FNAMECH6", "File of row 7", {.hint = "File of row 7.", .spoken = "File of row 7"}});
inline constexpr auto FILEOPEN_CH6 =
    Hidden(ButtonControl{Panel::LOADTXDATA,
                         "FILEOPEN_CH6",
                         "...",
                         {.hint = "Chooses the file of row 7.", .spoken = "File of row 7, browse"}});
inline constexpr auto DFCH7 =
    Hidden(LabelControl{Panel::LOADTXDATA, "DFCH7", "- Row 8: ", {.hint = "What the file of row 8 holds."}});
inline constexpr auto FNAMECH7 = Hidden(TextControl{
    Panel::LOADTXDATA, "FNAMECH7", "File of row 8", {.hint = "File of row 8.", .spoken = "File of row 8"}});
inline constexpr auto FILEOPEN_CH7 =
    Hidden(ButtonControl{Panel::LOADTXDATA,
                         "FILEOPEN_CH7",
                         "...",
                         {.hint = "Chooses the file of row 8.", .spoken = "File of row 8, browse"}});
inline constexpr auto DFCH8 =
    Hidden(LabelControl{Panel::LOADTXDATA, "DFCH8", "- Row 9: ", {.hint = "What the file of row 9 holds."}});
inline constexpr auto FNAMECH8 = Hidden(TextControl{
    Panel::LOADTXDATA, "FNAMECH8", "File of row 9", {.hint = "File of row 9.", .spoken = "File of row 9"}});
inline constexpr auto FILEOPEN_CH8 =
    Hidden(ButtonControl{Panel::LOADTXDATA,
                         "FILEOPEN_CH8",
                         "...",
                         {.hint = "Chooses the file of row 9.", .spoken = "File of row 9, browse"}});
inline constexpr auto DFCH9 = Hidden(
    LabelControl{Panel::LOADTXDATA, "DFCH9", "- Row 10: ", {.hint = "What the file of row 10 holds."}});
inline constexpr auto FNAMECH9 = Hidden(TextControl{Panel::LOADTXDATA,
                                                    "FNAMECH9",
                                                    "File of row 10",
                                                    {.hint = "File of row 10.", .spoken = "File of row 10"}});
inline constexpr auto FILEOPEN_CH9 =
    Hidden(ButtonControl{Panel::LOADTXDATA,
                         "FILEOPEN_CH9",
                         "...",
                         {.hint = "Chooses the file of row 10.", .spoken = "File of row 10, browse"}});

inline constexpr LabelControl LOCRECNO0{
    Panel::LOADTXDATA, "LOCRECNO0", "Source", {.hint = "Caption of the place of the source."}};
inline constexpr NumericControl LOC_SRC{
    Panel::LOADTXDATA,
    "LOC_SRC",
    "Location of the source",
    {.hint = "Place of the source on the line, in the unit of length.", .unit = "length"}};
inline constexpr auto LOCRECNO1 = Hidden(
    LabelControl{Panel::LOADTXDATA, "LOCRECNO1", "R1", {.hint = "Caption of the place of receiver 1."}});
inline constexpr auto LOC_REC1 = Hidden(
    NumericControl{Panel::LOADTXDATA,
                   "LOC_REC1",
                   "Location of receiver 1",
                   {.hint = "Place of receiver 1 on the line, in the unit of length.", .unit = "length"}});
inline constexpr auto LOCRECNO2 = Hidden(
    LabelControl{Panel::LOADTXDATA, "LOCRECNO2", "R2", {.hint = "Caption of the place of receiver 2."}});
inline constexpr auto LOC_REC2 = Hidden(
    NumericControl{Panel::LOADTXDATA,
                   "LOC_REC2",
                   "Location of receiver 2",
                   {.hint = "Place of receiver 2 on the line, in the unit of length.", .unit = "length"}});
inline constexpr auto LOCRECNO3 = Hidden(
    LabelControl{Panel::LOADTXDATA, "LOCRECNO3", "R3", {.hint = "Caption of the place of receiver 3."}});
inline constexpr auto LOC_REC3 = Hidden(
    NumericControl{Panel::LOADTXDATA,
                   "LOC_REC3",
                   "Location of receiver 3",
                   {.hint = "Place of receiver 3 on the line, in the unit of length.", .unit = "length"}});
inline constexpr auto LOCRECNO4 = Hidden(
    LabelControl{Panel::LOADTXDATA, "LOCRECNO4", "R4", {.hint = "Caption of the place of receiver 4."}});
inline constexpr auto LOC_REC4 = Hidden(
    NumericControl{Panel::LOADTXDATA,
                   "LOC_REC4",
                   "Location of receiver 4",
                   {.hint = "Place of receiver 4 on the line, in the unit of length.", .unit = "length"}});
inline constexpr auto LOCRECNO5 = Hidden(
    LabelControl{Panel::LOADTXDATA, "LOCRECNO5", "R5", {.hint = "Caption of the place of receiver 5."}});
inline constexpr auto LOC_REC5 = Hidden(
    NumericControl{Panel::LOADTXDATA,
                   "LOC_REC5",
                   "Location of receiver 5",
                   {.hint = "Place of receiver 5 on the line, in the unit of length.", .unit = "length"}});
inline constexpr auto LOCRECNO6 = Hidden(
    LabelControl{Panel::LOADTXDATA, "LOCRECNO6", "R6", {.hint = "Caption of the place of receiver 6."}});
inline constexpr auto LOC_REC6 = Hidden(
    NumericControl{Panel::LOADTXDATA,
                   "LOC_REC6",
                   "Location of receiver 6",
                   {.hint = "Place of receiver 6 on the line, in the unit of length.", .unit = "length"}});
inline constexpr auto LOCRECNO7 = Hidden(
    LabelControl{Panel::LOADTXDATA, "LOCRECNO7", "R7", {.hint = "Caption of the place of receiver 7."}});
inline constexpr auto LOC_REC7 = Hidden(
    NumericControl{Panel::LOADTXDATA,
                   "LOC_REC7",
                   "Location of receiver 7",
                   {.hint = "Place of receiver 7 on the line, in the unit of length.", .unit = "length"}});
inline constexpr auto LOCRECNO8 = Hidden(
    LabelControl{Panel::LOADTXDATA, "LOCRECNO8", "R8", {.hint = "Caption of the place of receiver 8."}});
inline constexpr auto LOC_REC8 = Hidden(
    NumericControl{Panel::LOADTXDATA,
                   "LOC_REC8",
                   "Location of receiver 8",
                   {.hint = "Place of receiver 8 on the line, in the unit of length.", .unit = "length"}});

inline constexpr RealRingControl LENGTHUNIT{
    Panel::LOADTXDATA,
    "LENGTHUNIT",
    "Unit of length",
    panel_items::kLengthUnits,
    {.hint = "Unit of the places above and of all results of this measurement."}};
inline constexpr RingControl SITECAT{
    Panel::LOADTXDATA,
    "SITECAT",
    "Site",
    panel_items::kSiteCategories,
    {.hint = "Kind of site, by which the filter gets its first velocities."}};
inline constexpr NumericControl WLENGTHFILTER{
    Panel::LOADTXDATA,
    "WLENGTHFILTER",
    "Wavelength criterion",
    0.25,
    {.hint = "Wavelengths above the distance from the source to the first receiver divided by this number "
             "are dropped, above 0.",
     .min = 0.0,
     .step = 0.05}};
inline constexpr TextControl PREVIEW{
    Panel::LOADTXDATA,
    "PREVIEW",
    "First file",
    {.hint = "First lines of the first file that is named, and what the program understands of it.",
     .role = Role::TextBox}};
inline constexpr ButtonControl LOAD{
    Panel::LOADTXDATA, "LOAD", "Load", {.hint = "Reads the files as a new measurement."}};
inline constexpr ButtonControl CANCEL{Panel::LOADTXDATA, "CANCEL", "Cancel", {.hint = "Hides this panel."}};

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
    &PREVIEW,      &LOAD,         &CANCEL};

}  // namespace sondera::loadtxdata
