// measpanel_preview.h - a new record on the measurement page, before it goes into the averages. No state.
#pragma once

namespace sondera {

/// Shows the record in timeHist on the measurement page and asks "Accept the current measurements ?".
bool PreviewAccepted();

/// Folds the record in session.measBuffer into the averages of the measurement that PROJID and MEASID of
/// HMSETUP name. With session.measOptions.previewOn it shows the record first, as the first two channels of
/// the measurement page, and asks "Accept the current measurements ?". Returns as its computing form
/// (signal/spectra.h).
int CalcSpectralFns();

}  // namespace sondera
