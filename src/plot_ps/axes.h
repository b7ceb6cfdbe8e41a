// axes.h - axes with ticks and numbers, from the current point, which does not change.
//
// Positions along an axis are in the units of the mode; tick, height and the places of texts are in cm. Texts
// run from left to right for every rotation of the user system, with text.h's width of letters.
#pragma once

#include <string_view>

namespace sondera {

/// Axis of length max - min, along x or y. The tick length is `tick`, every fifth 2 tick, every tenth 3 tick
/// with a number; ticks point down, or left. There are 10 to 100 steps along the axis, each 0.1, 1, 10, ... :
/// (max - min)/(10 m), where m is the length scaled to 1..10 by powers of ten. The first tick is at the value
/// `start`; there is none at `end` or beyond, and no more than 10 000.
/// @param[in]  format  of a number: exactly one printf conversion of a real number, else "%g" is taken; null
///                     or a first byte of 0xFF: "%.2f"
/// @param[in]  height  of numbers and title; 0: the current height
/// A length that is 0, negative or NaN: a line on the error stream, nothing is drawn.
void ps_X_axis(float min, float max, float tick, float start, float end, std::string_view title,
               const char* format, float height);
void ps_Y_axis(float min, float max, float tick, float start, float end, std::string_view title,
               const char* format, float height);

/// Axes of a graph w by h cm: titles below and left, with boxed != 0 its frame, and a line through the zero
/// of each range that has one inside.
void ps_axes(float w, float h, float xmin, float xmax, float ymin, float ymax, std::string_view xtitle,
             std::string_view ytitle, float height, int boxed);

/// Both axes with ticks over their whole ranges, with boxed != 0 the frame.
void ps_ticked_axes(float xmin, float xmax, float ymin, float ymax, float tick, std::string_view xtitle,
                    std::string_view ytitle, const char* xformat, const char* yformat, float height,
                    int boxed);

}  // namespace sondera
