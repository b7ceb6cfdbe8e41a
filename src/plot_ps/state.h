// state.h - the state that the PostScript library keeps between two calls.
//
// One document at a time, so there is one such structure. Drawing routines change it, ps_iniplot() starts it
// again, ResetPlotPs() restores the values of a fresh process.
#pragma once

#include <memory>
#include <string>

#include "runtime/atomic_writer.h"

namespace sondera {

inline constexpr float kPointsPerCm = 28.346457f;

/// Units of userX, userY.
enum class UserPoint {
  cm,     // centimetres
  user,   // user units
  stale,  // neither: moved in both systems; ps_where() computes it from the page
};

/// View of a box in space; lengths in cm, angles in radians. See perspective.h.
struct PerspectiveState {
  double length[3] = {1.0, 1.0, 1.0};   // box sizes along x, y, z
  double lowest[3] = {0.0, 0.0, 0.0};   // data value at the near end of each size
  double highest[3] = {1.0, 1.0, 1.0};  // and at its far end
  double a = 0.0, b = 0.0;
  double D = 0.0;  // 0 until ps_3Dsetup(): nothing is drawn
  double E = 1.0;
};

/// Points mean PostScript points in the system of the page, as moved by ps_origin().
struct PlotPsState {
  std::unique_ptr<TextWriter> outFile;  // null: no document is open, all writing is dropped
  std::string reason;                   // why the last document was not opened or not put in place

  float curX = 0.0f, curY = 0.0f;  // current point, points
  int strokePending = 0;           // 1: a path is open and not stroked yet
  int pathPainted = 0;             // 1: the file's current path is stroked; it must not be stroked again
  int gap = 0;                     // 1: the last coordinate was not finite; the next draw is a move

  float userX = 0.0f, userY = 0.0f;  // current point in the units of the caller
  UserPoint userPoint = UserPoint::cm;

  float minX = 576.0f, minY = 756.0f;  // running bounding box, points; starts with min above max
  float maxX = 15.0f, maxY = 72.0f;

  float scaleX = kPointsPerCm, scaleY = kPointsPerCm;  // points per user unit
  float shiftX = 0.0f, shiftY = 0.0f;                  // user origin, points
  float cosA = 1.0f, sinA = 0.0f;                      // rotation of the user system
  int cmMode = 1;                                      // 1: coordinates are centimetres, 0: user units

  float originX = 0.0f, originY = 0.0f;  // last reported origin, points
  int pageNo = 1;

  std::string fontName = "Courier";
  float charHeight = 0.0f;  // cm; 0: the document has no font line yet

  int bannerOn = 0;  // 1: a flag page box on each page
  std::string queueName = "postscript";
  std::string docName;
  int cmykDefined = 0;  // 1: the document has defined its colour word of four inks

  PerspectiveState perspective;
};

extern PlotPsState plotPs;

/// As in a fresh process. An open document is dropped; its former file stays as it was.
void ResetPlotPs();

}  // namespace sondera
