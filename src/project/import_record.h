// import_record.h - the records of an import: found or added by id, filled with the settings that all imports
// share.
//
// The order of the readers: read the first file, BeginImport (asks before it overwrites), Make... , the
// channels, and CompletePairs at the end. When the first file is refused, nothing has changed. When a later
// file is refused, the measurement is lost, also if it existed before: its data were released when the import
// began. The caller then removes it (ImportResult::begun) and shows the measurement otherwise
// (panels/loadtxdata_import.h).
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "project/import_layout.h"
#include "records/measdb.h"
#include "runtime/refusal.h"
#include "runtime/text_reader.h"

namespace sondera {

/// Settings of an import.
struct ImportRequest {
  std::string projID;  ///< project text of the measurement
  std::string measID;
  int nChannels = 0;  ///< receivers
  bool sourceInstrumented = false;
  double lengthUnit = 1.0;        ///< metres per unit
  std::vector<double> locations;  ///< source, then receivers: nChannels + 1
  std::vector<std::string>
      files;  ///< rows of the dialog from the first on; a missing or empty name is an empty row
  /// Opens a row's file, or gives the reason; replaced where the bytes are in memory.
  std::function<bool(const std::string& name, TextReader& text, std::string& reason)> open =
      [](const std::string& name, TextReader& text, std::string& reason) { return text.Open(name, &reason); };
  std::function<bool()> mayOverwrite;  ///< called when the id is in the list already; empty: no
};

/// How an import ended.
struct ImportResult {
  Refusal refusal;     ///< without a reason: the answer to the question was no
  bool begun = false;  ///< the measurement exists: complete, or, when refused, to be removed

  static ImportResult Refused(Refusal refusal) { return {std::move(refusal), false}; }
  static ImportResult Abandoned(Refusal refusal) { return {std::move(refusal), true}; }
  static ImportResult Done() { return {{}, true}; }
};

/// Name in a row, from 0; empty outside.
const std::string& FileInRow(const ImportRequest& request, int row);
/// Opens the file of a row; false, with the reason, for an empty row too.
bool OpenRow(const ImportRequest& request, int row, TextReader& text, std::string& reason);

/// Texts that refuse an import.
namespace import_text {
inline constexpr std::string_view kCannotRead = "Error in reading the file.";
inline constexpr std::string_view kCannotOpen = "Error in opening the file.";
inline constexpr std::string_view kNotUff58 = "Error: The file is not in 58 format.";
inline constexpr std::string_view kWrongType = "Error: The data type is not matched.";

/// kCannotRead, and a second line with the file, its line and the cause.
std::string CannotRead(const std::string& path, const TextFault& fault);
/// kCannotRead, and a second line with the cause alone, which names the file.
std::string CannotRead(const std::string& cause);
}  // namespace import_text

/// The records of the present measurement, borrowed from MeasDB.
struct ImportRecords {
  int key = -1;
  bool existed = false;  ///< the id was in the list before
  HWSetup* hw = nullptr;
  MeasSetup* meas = nullptr;
  RawData* raw = nullptr;
};

enum class IfPresent { Ask, Overwrite };

/// Makes projID the current project and finds or adds the id. For an id that exists it asks. False when the
/// answer is no; then no measurement has changed.
bool BeginImport(const ImportRequest& request, IfPresent ifPresent, ImportRecords& records);
/// The three records of imported spectra, data zero.
void MakeSpectrumRecords(const ImportRequest& request, const SpectrumLayout& layout, ImportRecords& records);
/// The three records of an imported time record, data zero; earlier records are cleared.
void MakeTimeRecords(const ImportRequest& request, const TimeLayout& layout, ImportRecords& records);

/// Resizes and clears the pairs of an overwritten measurement; those of channels that no longer exist are
/// removed.
void CompletePairs(const ImportRequest& request, const ImportRecords& records);

}  // namespace sondera
