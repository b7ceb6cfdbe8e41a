// import_fixture.h - a session with the import dialog: files written for one test, entries in one call, the
// resulting records.
#pragma once

#include <complex>
#include <string>
#include <vector>

#include "panels/loadtxdata.h"
#include "records/measdb.h"
#include "support/session_fixture.h"
#include "support/temp_folder.h"

namespace sondera::testing {

inline constexpr char kCannotRead[] = "Error in reading the file.";

/// Entries of the dialog.
struct ImportEntries {
  ImportKind kind = ImportKind::TransferFunction;
  std::string measID = "new";
  int receivers = 2;
  bool source = false;
  std::vector<std::string> files = {};
  std::vector<double> locations = {};  ///< source, receivers; empty: 0, 10, 20, ...
};

class ImportTest : public SessionTest {
 protected:
  /// Also puts the empty measurement of a fresh session, "measID", into the database.
  void SetUp() override;

  /// Writes a file of the test and returns its name.
  std::string Write(const std::string& name, const std::string& text);
  /// Fills the dialog and presses Load. The result of the callback.
  int Import(const ImportEntries& entries);

  /// Whether the id is in the database, and its records. An unknown id fails the test and gives empty
  /// records.
  bool Has(const std::string& measID) const;
  const HWSetup& Hardware(const std::string& measID = "new") const;
  const MeasSetup& MeasurementSetup(const std::string& measID = "new") const;
  const RawData& Data(const std::string& measID = "new") const;
  /// Element i of 0..2 nLines - 1 of a channel's cross spectrum.
  std::complex<double> Cross(int channel, int i, const std::string& measID = "new") const;

  test::TempFolder folder;
};

/// Text of a file of one line per sample.
std::string TimText(double firstTime, double step, const std::vector<double>& values);
/// Text of a file of lines at f0, f0 + df, ... with values at(i) for i = 0..count-1.
template <class F>
std::string SpectrumText(double f0, double df, int count, F at);
std::string SpectrumLine(double f, std::complex<double> value);

template <class F>
std::string SpectrumText(double f0, double df, int count, F at) {
  std::string text;
  for (int i = 0; i < count; ++i) text += SpectrumLine(f0 + i * df, at(i));
  return text;
}

}  // namespace sondera::testing
