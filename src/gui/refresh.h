// refresh.h - brings the windows up to date with the store. Changes are gathered; they are shown when a person's event
// has ended, in each poll of a run, before a box, and when the event loop has nothing else to do.
#pragma once

namespace sondera {

/// Begins and ends to observe the store.
void StartRefresh();
void StopRefresh();
/// Shows what has changed.
void FlushViews();

}  // namespace sondera
