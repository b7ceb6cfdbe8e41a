// moves.h - the pen: coordinate systems, moves and draws.
//
// Lengths are centimetres at the interface, points in the file; the file has tenths of a point. Positions are
// centimetres (ps_cms) or user units (ps_user), always relative to the last ps_origin().
//
// A coordinate that is NaN or infinite, or lies more than 1e6 points away, writes nothing: the path ends, and
// the next draw starts with a move to its own point. A curve gets a gap there, not a line across it.
//
// A path is stroked when the pen next moves elsewhere, with the grey, width and dash of that moment.
//
// Text moves PostScript's point but not the library's: after a text, begin with an absolute move.
#pragma once

namespace sondera {

/// What p_depl(), traa() and tras() do at a point.
enum MoveCode { absoluteMove = 0, absoluteDraw = 1, relativeMove = 2, relativeDraw = 3 };

/// The only writer of moves and draws. x, y in points. 1; 0 for another code, and nothing is written.
int p_depl(float x, float y, int code);
/// p_depl() of centimetres. 0 with a line on the error stream for another code.
int traa(float x, float y, int code);
/// p_depl() of user units: rotated, scaled and, for codes 0 and 1, shifted. 0 as traa().
int tras(float x, float y, int code);

void ps_cms();     // from here on coordinates are centimetres
void ps_benson();  // the same
void ps_user();    // from here on coordinates are user units
int ps_is_cms();   // 1: centimetres

/// The user system: sx, sy centimetres per user unit, ox, oy centimetres from the origin to the user's zero,
/// cosA, sinA its rotation. Switches to user units and returns 1. A scale of 0, or a value that is not
/// finite: switches to centimetres and returns 0.
int ps_echel(float sx, float sy, float ox, float oy, float cosA, float sinA);

/// Current point in the units of the mode. Returns 1 for centimetres.
int ps_where(float* x, float* y);

/// Moves the origin of the page to (x, y), centimetres in either mode; the current point is (0, 0) after it.
/// xa, ya (cm) are stored as the reported origin; one of more than 1155.9469 points keeps the former one,
/// with a warning. Coordinates that are not finite change nothing.
void ps_origin(float x, float y, float xa, float ya);

// In the units of the mode: "mov" and "draw", "a" to a point, "r" by a step. Results as p_depl().
int ps_movea(float x, float y);
int ps_mover(float x, float y);
int ps_drawa(float x, float y);
int ps_drawr(float x, float y);
int ps_home();  // moves to (0, 0)

// In fixed units: "b" centimetres, "s" user units.
int pmovba(float x, float y);
int pmovsa(float x, float y);
int pmovbr(float x, float y);
int pmovsr(float x, float y);
int plinba(float x, float y);
int plinsa(float x, float y);
int plinbr(float x, float y);
int plinsr(float x, float y);

}  // namespace sondera
