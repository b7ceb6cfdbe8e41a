// measpanel_preview.h - a new record on the measurement page, before it is added to the averages. No state.
#pragma once

namespace sondera {

/// Shows the record in timeHist on the measurement page and asks "Accept the current measurements ?".
bool PreviewAccepted();

/// Adds the record in session.measBuffer to the averages of the measurement in PROJID and MEASID of HMSETUP.
/// With session.measOptions.previewOn it first shows the record, as the first two channels of the measurement
/// page, and asks "Accept the current measurements ?". Returns as its computing form (signal/spectra.h).
int CalcSpectralFns();

}  // namespace sondera
