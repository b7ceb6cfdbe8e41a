// hardware_settings.h - the hardware settings of a measurement against the board in use: what is asked, what the board
// makes of it, and how the records follow.
//
// Callers: the set-up dialogs and the measuring run. Plain records in and out: no control, no message. State: the
// device facts of the session.
#pragma once

#include <string>

#include "acquisition/board_plan.h"
#include "records/measdb.h"

namespace sondera {

/// A text of the program that several refusals share.
inline constexpr const char* kInappropriateParameters = "Inappropriate Hardware Parameters!";

/// A board is in use.
bool HasBoard();
/// A board that has four channels whatever is asked of it.
bool HasFourFixedChannels();

/// What a measurement asks of the board in use. A span that was not edited since a board granted it keeps its
/// decimation.
BoardPlan PlanOf(const HWSetup& hw);

/// Checks a plan with the board: makes a task of it and clears it again. Without a board everything that the session's
/// facts allow is granted, at the rate asked for.
/// @param[out] reason  why not; may be empty
/// @return 0; -1 for a plan that cannot be sampled, a range of 0, a trigger at a board that has none, and whatever
/// the driver refuses
int DetermineDAQParam(const BoardPlan& plan, BoardGrant& grant, std::string& reason);

/// Span, sample interval, length, line spacing and decimation as granted.
void TakeGrant(HWSetup& hw, const BoardGrant& grant);

/// The smallest input range of the board at or above one asked for exists: then that range, else 0. V
double AcceptedRange(double range);

/// Some value of the measurement's blocks is not 0.
bool HoldsData(const RawData& raw);
bool HoldsData(int key);
/// All samples of a record of so many lines (to the next power of two) and channels fit: at most 2^27.
bool FitsRecord(int lines, int channels, int decimation = 1);

/// Fresh zero data of the record's present shape, pairs without results, no mark of an import. Pairs of channels that
/// the measurement does not have go.
void RemoveData(int key);

/// Gives a measurement another number of channels: settings of a channel that stays are kept, a new one takes those of
/// the last, at place 0; reference and trigger channels that are gone become the first channel and free run. Its data
/// are zero then. The session's number of channels follows.
void SetChannelCount(int key, int channels);
/// Another number of lines; its data are zero then.
void SetLineCount(int key, int lines);

/// Brings buffer, blocks and pairs of a measurement in step with its settings, before a run. Lines go up to the next
/// power of two. What fits is left alone.
void FitSizes(int key);

}  // namespace sondera
