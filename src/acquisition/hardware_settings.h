// hardware_settings.h - checks the hardware settings of a measurement with the board in use, and adapts the
// records to what the board grants.
//
// Callers: the set-up dialogs and the measuring run. Plain records in and out: no control, no message. State:
// the device data of the session.
#pragma once

#include <string>

#include "acquisition/board_plan.h"
#include "records/measdb.h"

namespace sondera {

/// A text of the program that several refusals share.
inline constexpr const char* kInappropriateParameters = "Inappropriate Hardware Parameters!";

/// A board is in use.
bool HasBoard();
/// A board that has four channels for every request.
bool HasFourFixedChannels();

/// Request of a measurement to the board in use. A span that was not edited since a board granted it keeps
/// its decimation.
BoardPlan PlanOf(const HWSetup& hw);

/// Checks a plan with the board: makes a task of it and clears it again. Without a board, everything within
/// the session's device data is granted, at the requested rate.
/// @param[out] reason  why not; may be empty
/// @return 0; -1 for a plan that cannot be sampled, a range of 0, a trigger at a board that has none, and
/// every refusal of the driver
int DetermineDAQParam(const BoardPlan& plan, BoardGrant& grant, std::string& reason);

/// Span, sample interval, length, line spacing and decimation as granted.
void TakeGrant(HWSetup& hw, const BoardGrant& grant);

/// If the board has an input range at or above the requested one: the smallest of these, else 0. V
double AcceptedRange(double range);

/// Whether any value of the measurement's blocks is not 0.
bool HoldsData(const RawData& raw);
bool HoldsData(int key);
/// Whether all samples of a record of so many lines (to the next power of two) and channels fit: at most
/// 2^27.
bool FitsRecord(int lines, int channels, int decimation = 1);

/// New zero data of the record's present shape; pairs lose their results, the mark of an import is removed.
/// Pairs of channels that the measurement does not have are removed.
void RemoveData(int key);

/// Changes the number of channels of a measurement: settings of remaining channels are kept, a new channel
/// copies those of the last, at place 0; reference and trigger channels that no longer exist become the first
/// channel and free run. Its data are then zero. The session's number of channels changes too.
void SetChannelCount(int key, int channels);
/// Changes the number of lines; its data are then zero.
void SetLineCount(int key, int lines);

/// Adapts buffer, blocks and pairs of a measurement to its settings, before a run. Lines are raised to the
/// next power of two. Parts that already fit do not change.
void FitSizes(int key);

}  // namespace sondera
