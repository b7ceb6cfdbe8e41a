// text.h - fonts and text.
//
// Texts are bytes between parentheses, written without change: the caller must put a backslash before "\",
// "(" and ")" in names from elsewhere. Fewer than 200 bytes are written, longer texts are refused.
// Heights in cm, from 37.5 points of font size per cm; angles in degrees, truncated to integers.
// A text moves PostScript's point to its end; the library's stays at its start: continue with an absolute
// move. A
// document has no font until the first height is set.
#pragma once

#include <string>
#include <string_view>

namespace sondera {

/// Writes "(text) S". 1; 0 with a line on the error stream for 200 bytes or more.
int p_puts(std::string_view text);

/// Font by its PostScript name; height 0 keeps the height. 0 with a line on the error stream when it is not a
/// name, else 1.
int ps_font(const std::string& name, float height);
/// Height of letters, cm. Heights that are not finite, 0 or less change nothing.
void ps_size(float height);

/// Text after a move or draw by a code of MoveCode, in cm (ps_chara) or user units (ps_chars). Height 0 keeps
/// the height. 1; 0 for another code or a text that is refused. Nothing is written at a position that is not
/// finite.
int ps_chara(float x, float y, int code, std::string_view text, float height, float angle);
int ps_chars(float x, float y, int code, std::string_view text, float height, float angle);

/// Text at the current point, in the current height.
int ps_write(std::string_view text);

// In the units of the mode: at a point or a step away, in the current height; "h" horizontal, "v" upwards.
int ps_writea(float x, float y, std::string_view text, float angle);
int ps_writer(float x, float y, std::string_view text, float angle);
int ps_writeah(float x, float y, std::string_view text, float height);
int ps_writeav(float x, float y, std::string_view text, float height);

// Numbers, as "%g" and "%d". The upright forms move to (0, 0) afterwards.
int ps_writefloatah(float x, float y, float value, float height);
int ps_writefloatav(float x, float y, float value, float height);
int ps_writeintah(float x, float y, int value, float height);
int ps_writeintav(float x, float y, int value, float height);

/// Width that the library assumes for a letter, cm per cm of height. Most letters are wider.
inline constexpr float kLetterWidth = 0.6f;

}  // namespace sondera
