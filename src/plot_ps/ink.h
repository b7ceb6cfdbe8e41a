// ink.h - grey, colour, line width, dash, and the page's own scale and rotation.
//
// A change affects all following marks, and also a line that was drawn and is still pending. ps_line_width()
// strokes pending lines first; before another change, move the pen to do the same. A new page starts with
// black solid lines of width 1.
#pragma once

namespace sondera {

/// Pens 0, 1, 2 are the greys 0, 0.3, 0.7. 0 for another pen, else 1.
int ps_pen(int n);
/// Grey from 0 (black) to 1 (white); other values are limited to this range, NaN counts as 0.
void ps_gray(float g);
/// Line width in points; NaN, infinite and negative widths count as 0, the thinnest line of the device.
void ps_line_width(float w);
/// Dash and gap in cm, and where in the pattern a line begins, cm. NaN, infinite and negative lengths count
/// as 0; two lengths that are written as 0 give a solid line.
void ps_dashed_line(float on, float off, float phase);
void ps_solid_line();

/// Scales and rotates the page's system, degrees truncated to integers. The library's current point does not
/// follow: continue with an absolute move. A factor that is 0 to one decimal or not finite is refused with a
/// line on the error stream.
void ps_scale(float x, float y);
void ps_rotate(float deg);

// Colours; parts from 0 to 1, other values are limited to this range.
void ps_set_rgb_color(float r, float g, float b);
void ps_set_hsb_color(float h, float s, float b);
/// Kept: writes the word "setcymkcolor". The document defines it at the first use, by ps_code().
void ps_set_cmyk_color(float c, float m, float y, float k);

}  // namespace sondera
