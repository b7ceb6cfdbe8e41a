// loadshots.h - "Load Shots of a Line": the import of whole shots (SEG-2, text columns) with its preview. The plan
// follows each setting; nothing is imported before the button says so.
#pragma once

#include "runtime/controls.h"

namespace sondera::loadshots {

inline constexpr ListItem kFormats[] = {{"SEG-2", 0}, {"Columns of text", 1}};
inline constexpr ListItem kMeasurements[] = {{"One for each pair", 1}, {"One for all receivers", 0}};
inline constexpr ListItem kSides[] = {{"Not chosen", 0}, {"Left", 1}, {"Right", 2}};
inline constexpr ListItem kUnits[] = {
    {"Of the file", 0.0}, {"m", 1.0}, {"ft", 0.3048}, {"cm", 0.01}, {"in", 0.0254}};
inline constexpr std::string_view kPairColumns[] = {
    "Use", "Near channel", "Far channel", "Near distance", "Spacing", "Far distance", "Wavelength to"};

inline constexpr RingControl FORMAT{
    Panel::LOADSHOTS,
    "FORMAT",
    "Files",
    kFormats,
    {.hint = "Kind of the files: SEG-2, or text with a column for each channel."}};
inline constexpr TextControl FILES{
    Panel::LOADSHOTS,
    "FILES",
    "File names",
    {.hint = "Files of shots at one place, with commas between them; they are averaged."}};
inline constexpr ButtonControl ADDFILE{
    Panel::LOADSHOTS, "ADDFILE", "Add", {.hint = "Adds a file to the list.", .spoken = "File names, add"}};
inline constexpr TextControl MEASID{
    Panel::LOADSHOTS,
    "MEASID",
    "Measurement ID",
    {.hint = "Id of the new measurements; the two distances of a pair are added to it."}};
inline constexpr RingControl PAIRS{
    Panel::LOADSHOTS,
    "PAIRS",
    "Measurements",
    kMeasurements,
    {.hint = "A measurement of two channels for each pair, or one measurement of all planned receivers."}};
inline constexpr RingControl SIDE{Panel::LOADSHOTS,
                                  "SIDE",
                                  "Side of the source",
                                  kSides,
                                  {.hint = "Side whose receivers are used, for a source inside the line."}};
inline constexpr NumericControl NEAREST{
    Panel::LOADSHOTS,
    "NEAREST",
    "Nearest distance",
    0.0,
    {.hint = "Smallest distance of a first receiver from the source.", .unit = "length", .min = 0.0}};
inline constexpr TextControl CHANNELS{
    Panel::LOADSHOTS,
    "CHANNELS",
    "Channels",
    {.hint = "Channels to use, from 1, with commas between them; empty: planned by distance."}};
inline constexpr TextControl SOURCE{Panel::LOADSHOTS,
                                    "SOURCE",
                                    "Source at",
                                    {.hint = "Place of the source on the line; empty: that of the file."}};
inline constexpr TextControl RECEIVERS{
    Panel::LOADSHOTS,
    "RECEIVERS",
    "Receivers at",
    {.hint = "Places of the channels, with commas between them; empty: those of the file."}};
inline constexpr RealRingControl UNIT{Panel::LOADSHOTS,
                                      "UNIT",
                                      "Unit of length",
                                      kUnits,
                                      {.hint = "Unit of the places, where the file does not tell it."}};
inline constexpr NumericControl INTERVAL{
    Panel::LOADSHOTS,
    "INTERVAL",
    "Sampling interval",
    0.0,
    {.hint = "Sampling interval of text columns, s; 0: the first column is the time.",
     .unit = "s",
     .min = 0.0}};
inline constexpr ToggleControl WHOLERATE{
    Panel::LOADSHOTS,
    "WHOLERATE",
    "Take the whole sampling rate",
    0,
    {.hint = "Takes the whole number of Hz that a rounded interval stands for."}};
inline constexpr ToggleControl SKEW{
    Panel::LOADSHOTS,
    "SKEW",
    "Correct unequal sampling times",
    0,
    {.hint = "Takes the sampling times of the channels (SKEW) out of the spectra."}};
inline constexpr TextControl PREVIEW{
    Panel::LOADSHOTS,
    "PREVIEW",
    "Preview",
    {.hint = "What was understood of the first file, the plan, and what is still to be answered.",
     .role = Role::TextBox}};
inline constexpr TableControl PAIRTABLE{
    Panel::LOADSHOTS,
    "PAIRTABLE",
    "Pairs",
    1,
    kPairColumns,
    {.hint = "Pairs of the plan with channels, distances and longest usable "
             "wavelength; a pair with 0 in the first column is not "
             "imported."}};
inline constexpr ButtonControl LOAD{
    Panel::LOADSHOTS, "LOAD", "Import", {.hint = "Imports the pairs of the plan."}};
inline constexpr ButtonControl CLOSE{Panel::LOADSHOTS, "CLOSE", "Close", {.hint = "Hides this panel."}};

/// All of the above, in the order of the panel.
inline constexpr const Control* kControls[] = {&FORMAT,    &FILES,    &ADDFILE, &MEASID,    &PAIRS, &SIDE,
                                               &NEAREST,   &CHANNELS, &SOURCE,  &RECEIVERS, &UNIT,  &INTERVAL,
                                               &WHOLERATE, &SKEW,     &PREVIEW, &PAIRTABLE, &LOAD,  &CLOSE};

}  // namespace sondera::loadshots
