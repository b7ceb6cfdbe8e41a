// rep_curves.h - the representative dispersion curves: one global curve out of all included pairs (GDisp),
// and one curve for each pair on the same frequencies (ADisp).
//
// AverageCurves makes both. They are the observations of the inversion, are shown on the dispersion page,
// saved with the project and written as text (rep_curve_files.h). A GDisp is created anew each time; ADisp
// records are kept and overwritten. An ADisp whose pair is no longer included stays in the list: code that
// shows or writes an ADisp must first check that its pair is included.
//
// The settings are CDispParam (signal_state.h); panels/cdisppnl.h has the panel. An "included curve" is a
// pair record with included = 1 and at least one point.
#pragma once

#include <string>

#include "records/measdb.h"
#include "runtime/listener.h"
#include "runtime/refusal.h"
#include "signal/signal_state.h"

namespace sondera {

// ---- settings ---------------------------------------------------------------------------------------

/// Limits of the settings of AverageCurves: a typing error must not exhaust the memory or run for hours.
inline constexpr int kMaxRepPoints = 100000;
inline constexpr int kMaxPolyTerms = 64;

/// Sets CDispParam to its defaults. Does not change the panel.
void SetupCDispParameter();

// ---- averaging --------------------------------------------------------------------------------------

/// Makes the global curve and then the array curves.
/// @param takeAllG, takeAllA  1: every point is taken as it is, with deviation 0; 0: the windowed fit
/// @param listener            events are let in before each pair; the averaging does not end by a halt
/// @return refused, with a reason and unchanged curves, when a setting is outside its limits. Without an
/// included curve nothing happens, there is no message, and the old curves stay
Refusal AverageCurves(int takeAllG, int takeAllA, Listener& listener);

/// Ranges of the included curves, over points with a velocity above 0: frequencies in Hz, wavelengths in
/// units of length. Without one: 1e10 and -1.
void GetMinMaxDisp(double& fMin, double& fMax, double& wMin, double& wMax);

/// Makes the one GDisp of all included curves, by CDispParam.
/// @param[in]  xMin, xMax  range of the abscissa that avgDomain names
/// @param[in]  takeAll     as above; 1 also sets CDispParam.nPointsG to the number of all points
/// @param[out] grid        1..result: the frequencies of the curve, ascending; untouched for no curve
/// @return the number of points; 0 without an included curve, and then the old GDisp stays
/// Only rows with a velocity above 0 are kept. Kept: the stored curve is in the order of its wavelengths, the
/// grid in that of the frequencies.
int AverageDispG(double xMin, double xMax, int takeAll, OffsetVector<double>& grid);

/// Makes the ADisp of each included curve, pairs of small spacing first, by CDispParam.
/// @param[in] n           entries of grid
/// @param[in] fMin, fMax  range of frequencies
/// @param[in] takeAll     as above; 1 sets CDispParam.nPointsA to the size of the largest curve
/// @param[in] grid        1..n, frequencies of the rows, ascending; not used with takeAll 1
/// Kept: rows of velocity 0 stay, so that all curves share the rows of the grid; a row with a negative
/// velocity (a polynomial may give one) is dropped. Kept: the amplitude of point i is that of line i; if
/// lines are masked, this is not the line of the point.
void AverageDisp(int n, double fMin, double fMax, int takeAll, const OffsetVector<double>& grid,
                 Listener& listener);

// ---- records ----------------------------------------------------------------------------------------

/// Number of valid points of a pair's curve: nDispPoints, limited to the length of its arrays; 0 when the
/// pair is not included or its curve must not be used (HasUsableCurve).
int IncludedPoints(const PMeasInfo& pair);

/// Lists the included curves of known measurements, by ascending distance of the two receivers; equal
/// distances have the order of the heap sort. All outputs 1..result.
/// @param[out] index         position in the list of pairs
/// @param[out] chan1, chan2  channels, from 0
/// @param[out] spacing       distance, absolute; 0 where the receiver locations are not known
int SearchChannels(OffsetVector<int>& index, OffsetVector<int>& chan1, OffsetVector<int>& chan2,
                   OffsetVector<double>& spacing);

/// Finds the ADisp of a pair, or appends one with nPointsA points and the label of the pair.
void InitArrayCDisp(DispInfo*& ad, int refChan, int dspChan, int key);
/// Frees every GDisp and appends a new one with nPointsG points, key 0, channels 1 and 1, labelled by the
/// project.
void InitGlobalCDisp(DispInfo*& gd);

/// Position of the ADisp of a pair and the record; -1, with ad unchanged, without one.
int GetADispFromKey(int key, int refChan, int dspChan, DispInfo*& ad);

/// Six zero vectors for nPointsA or nPointsG points; earlier contents are lost.
void AllocateADispArray(DispInfo& ad);
void AllocateGDispArray(DispInfo& gd);
void ReAllocateADispArray(DispInfo& ad);
void ReAllocateGDispArray(DispInfo& gd);
/// Releases the six vectors; no points are left.
void FreeGDispSetupArrays(DispInfo& d);

// ---- receiver distances -----------------------------------------------------------------------------

/// Why the included curves have no receiver lines, or "": a source is between the receivers of a pair. Check
/// this before you read or write array curves.
std::string ReceiverLinesFault();

/// The two receiver lines of the file of array curves, over the included curves of known measurements.
/// @param[out] line1  number of distinct distances |receiver - source| above 0, then those, ascending
/// @param[out] line2  number of pairs, then the numbers in line1 of both distances of each pair, from 1
/// The distances are absolute, so the end of the line at which the source is does not matter. Only exactly
/// equal distances are the same. Kept: a distance of 0 cannot be stored; a number below 1 is written for it.
void GetReceiverArrays(std::string& line1, std::string& line2);

/// Puts a distance into the first slot that holds 0, unless the table contains it.
void InsertRecLocInArray(OffsetVector<double>& table, double distance);
/// Index of a distance in the table; 1 when it is not there.
int ChannelNOofRecLoc(const OffsetVector<double>& table, double distance);

}  // namespace sondera
