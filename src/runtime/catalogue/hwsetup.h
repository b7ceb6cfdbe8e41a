// hwsetup.h - hardware parameters of a measurement: channels, lines and span, inputs, trigger, averaging.
//
// The lists of channels start with the four channels of a session without a board and are filled anew for the
// board that is found. The first item of NCHANNELS4 and NCHANNELS5 has the value -1, so channel 0 is the
// second.
#pragma once

#include "runtime/controls.h"

namespace sondera::hwsetup {

inline constexpr ListItem kChannelCounts[] = {{"  1", 1}, {"  2", 2}, {"  3", 3}, {"  4", 4}};
inline constexpr ListItem kReferenceChannels[] = {{"  1", 0}, {"  2", 1}, {"  3", 2}, {"  4", 3}};
inline constexpr ListItem kInputChannels[] = {
    {"All Channels", -1}, {"  1", 0}, {"  2", 1}, {"  3", 2}, {"  4", 3}};
inline constexpr ListItem kTriggerChannels[] = {
    {"Free Run", -1}, {"  1", 0}, {"  2", 1}, {"  3", 2}, {"  4", 3}};
/// The value is the index into the table of lines, not the number itself.
inline constexpr ListItem kFreqLines[] = {{"512", 0},    {"1024", 1},   {"2048", 2},   {"4096", 3},
                                          {"8192", 4},   {"16384", 5},  {"32768", 6},  {"65536", 7},
                                          {"131072", 8}, {"262144", 9}, {"524288", 10}};
inline constexpr ListItem kCouplings[] = {{"AC", 0}, {"DC", 1}};
inline constexpr ListItem kGroundings[] = {{"Grounded", 0}, {"Floating", 1}};
inline constexpr ListItem kSlopes[] = {{"Falling", 0}, {"Rising", 1}};
inline constexpr ListItem kSensorTypes[] = {
    {"Voltage", 0}, {"Sensor, 4 mA excitation", 1}, {"Sensor, 2.1 mA excitation", 2}};

inline constexpr RingControl NCHANNELS1{
    Panel::HWSETUP,
    "NCHANNELS1",
    "Number of channels",
    kChannelCounts,
    1,
    {.hint = "Number of channels that are measured, 1 up to those of the board."}};
inline constexpr RingControl NCHANNELS2{Panel::HWSETUP,
                                        "NCHANNELS2",
                                        "Reference channel",
                                        kReferenceChannels,
                                        {.hint = "Channel that transfer functions are referred to."}};
inline constexpr RingControl FREQLINES{
    Panel::HWSETUP,
    "FREQLINES",
    "Frequency lines",
    kFreqLines,
    1,
    {.hint = "Number of lines of a spectrum, 512 to 524288; a record has twice as many samples."}};
inline constexpr NumericControl FREQSPAN{
    Panel::HWSETUP,
    "FREQSPAN",
    "Frequency span, Hz",
    51200.0,
    {.hint = "Highest frequency of the spectra, Hz, above 0; the board may round it.",
     .unit = "Hz",
     .min = 0.0}};
inline constexpr RingControl SENSORTYPE{Panel::HWSETUP,
                                        "SENSORTYPE",
                                        "Sensor",
                                        kSensorTypes,
                                        {.hint = "Sensors: plain voltage, or fed by 4 mA or 2.1 mA."}};
inline constexpr RingControl NCHANNELS4{
    Panel::HWSETUP,
    "NCHANNELS4",
    "Settings of channel",
    kInputChannels,
    1,
    {.hint = "Channel that coupling, grounding and range below are set for, or all channels."}};
inline constexpr RingControl ACDC{
    Panel::HWSETUP, "ACDC", "Coupling", kCouplings, {.hint = "Coupling of the input, AC or DC."}};
inline constexpr RingControl GROUNDFLOAT{
    Panel::HWSETUP, "GROUNDFLOAT", "Grounding", kGroundings, 1, {.hint = "Input grounded or floating."}};
inline constexpr RealRingControl INPUTRANGE{
    Panel::HWSETUP,
    "INPUTRANGE",
    "Input range, V",
    {.hint = "Largest voltage of the input, V, one of the ranges of the board.", .unit = "V"}};
inline constexpr ButtonControl INPUTCHNLUPDATE{
    Panel::HWSETUP,
    "INPUTCHNLUPDATE",
    "Update",
    {.hint = "Gives the channel this coupling, grounding and range.", .spoken = "Update, input"}};
inline constexpr ListControl INPUTCHNLLIST{
    Panel::HWSETUP,
    "INPUTCHNLLIST",
    "Channels",
    {.hint = "Settings of each channel; the selected line shows them above."}};
inline constexpr RingControl NCHANNELS5{Panel::HWSETUP,
                                        "NCHANNELS5",
                                        "Trigger source",
                                        kTriggerChannels,
                                        1,
                                        {.hint = "Channel that starts a record, or free run."}};
inline constexpr RingControl TRIGGERSLOPE{Panel::HWSETUP,
                                          "TRIGGERSLOPE",
                                          "Trigger slope",
                                          kSlopes,
                                          1,
                                          {.hint = "Edge that starts a record, falling or rising."}};
inline constexpr NumericControl TRIGGERLEVEL{Panel::HWSETUP,
                                             "TRIGGERLEVEL",
                                             "Trigger level, mV",
                                             10.0,
                                             {.hint = "Voltage that starts a record, mV.", .unit = "mV"}};
inline constexpr NumericControl TRIGGERDELAY{Panel::HWSETUP,
                                             "TRIGGERDELAY",
                                             "Pre-trigger, %",
                                             10.0,
                                             {.hint = "Share of the record before the trigger, %, 0 to 100.",
                                              .unit = "%",
                                              .min = 0.0,
                                              .max = 100.0,
                                              .step = 1.0}};
inline constexpr ToggleControl AVERAGEONOFF{
    Panel::HWSETUP, "AVERAGEONOFF", "Averaging", 1, {.hint = "Averages the spectra of several blows."}};
inline constexpr IntControl NAVERAGE{
    Panel::HWSETUP,
    "NAVERAGE",
    "Number of averages",
    5,
    {.hint = "Number of blows that are averaged, 1 or more.", .min = 1.0, .step = 1.0}};
inline constexpr ToggleControl PREVIEW_ONOFF{
    Panel::HWSETUP, "PREVIEW_ONOFF", "Preview", 1, {.hint = "Shows each record before it is averaged."}};
inline constexpr ButtonControl COFIG_SETUP{Panel::HWSETUP,
                                           "COFIG_SETUP",
                                           "Configure",
                                           {.hint = "Checks these settings with the board and stores them."}};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {
    &NCHANNELS1,   &NCHANNELS2,   &FREQLINES,       &FREQSPAN,      &SENSORTYPE, &NCHANNELS4,   &ACDC,
    &GROUNDFLOAT,  &INPUTRANGE,   &INPUTCHNLUPDATE, &INPUTCHNLLIST, &NCHANNELS5, &TRIGGERSLOPE, &TRIGGERLEVEL,
    &TRIGGERDELAY, &AVERAGEONOFF, &NAVERAGE,        &PREVIEW_ONOFF, &COFIG_SETUP};

}  // namespace sondera::hwsetup
