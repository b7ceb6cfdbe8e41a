// refresh.h - updates the windows from the store. Changes are collected; they are shown at the end of a
// person's event, in each poll of a run, before a box, and when the event loop is idle.
#pragma once

namespace sondera {

/// Starts and ends observing the store.
void StartRefresh();
void StopRefresh();
/// Shows the collected changes.
void FlushViews();

}  // namespace sondera
