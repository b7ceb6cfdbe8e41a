// plot_ps.h - includes the whole PostScript drawing library: paged documents, drawn by calls in cm or user
// units.
//
//   document.h     open, pages, close                       ps_iniplot, ps_newpage, ps_endplot
//   inclusion.h    PostScript from elsewhere               ps_include, ps_code
//   moves.h        coordinate systems, the pen              ps_echel, ps_origin, ps_movea, ps_drawa
//   shapes.h       lines, areas, curves, symbols            ps_polyline, ps_closed_curve, ps_point
//   arcs.h         arcs, circles, ellipses                  ps_arc, ps_disk, ps_ellipse
//   ink.h          grey, colour, width, dash                ps_gray, ps_line_width, ps_dashed_line
//   text.h         fonts and text                           ps_font, ps_writea
//   axes.h         axes with ticks and numbers              ps_X_axis, ps_axes
//   histogram.h    histograms and their statistics          ps_histo, stat_histo
//   perspective.h  boxes in space                           ps_3Dsetup, ps_3Dbar
//   state.h        its whole state                          plotPs, ResetPlotPs
//
// Problems are reported by a line on the error stream, and the drawing continues. The file is 7-bit text if
// the texts passed to it are.
#pragma once

#include "plot_ps/arcs.h"
#include "plot_ps/axes.h"
#include "plot_ps/document.h"
#include "plot_ps/histogram.h"
#include "plot_ps/inclusion.h"
#include "plot_ps/ink.h"
#include "plot_ps/moves.h"
#include "plot_ps/perspective.h"
#include "plot_ps/shapes.h"
#include "plot_ps/state.h"
#include "plot_ps/text.h"
