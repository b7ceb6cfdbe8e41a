// loadtxdata.cpp - see loadtxdata.h. Owns no state; the entries live in the controls of the dialog.
// Rows: the first required file is always in the first row (FNAMESRC). Only its label shows which channel it
// belongs to; it counts as in the theory: H21 is receiver 2 over receiver 1, index 0 is the source.
#include "panels/loadtxdata.h"

#include <algorithm>
#include <array>
#include <string>

#include "panels/loadtxdata_import.h"
#include "project/import_preview.h"
#include "project/import_spectra.h"
#include "project/uff58.h"
#include "records/session.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/loadtxdata.h"
#include "runtime/catalogue/meassetup.h"
#include "runtime/dialogs.h"
#include "runtime/files.h"

namespace sondera {
namespace {

using namespace loadtxdata;

struct FileRow {
  const LabelControl& label;
  const TextControl& name;
  const ButtonControl& button;
};
constexpr std::array<FileRow, 10> kFileRows = {{{DFCH0, FNAMESRC, FILEOPEN_SRC},
                                                {DFCH1, FNAMECH1, FILEOPEN_CH1},
                                                {DFCH2, FNAMECH2, FILEOPEN_CH2},
                                                {DFCH3, FNAMECH3, FILEOPEN_CH3},
                                                {DFCH4, FNAMECH4, FILEOPEN_CH4},
                                                {DFCH5, FNAMECH5, FILEOPEN_CH5},
                                                {DFCH6, FNAMECH6, FILEOPEN_CH6},
                                                {DFCH7, FNAMECH7, FILEOPEN_CH7},
                                                {DFCH8, FNAMECH8, FILEOPEN_CH8},
                                                {DFCH9, FNAMECH9, FILEOPEN_CH9}}};

struct LocationRow {
  const LabelControl& label;
  const NumericControl& location;
};
constexpr std::array<LocationRow, 9> kLocationRows = {{{LOCRECNO0, LOC_SRC},
                                                       {LOCRECNO1, LOC_REC1},
                                                       {LOCRECNO2, LOC_REC2},
                                                       {LOCRECNO3, LOC_REC3},
                                                       {LOCRECNO4, LOC_REC4},
                                                       {LOCRECNO5, LOC_REC5},
                                                       {LOCRECNO6, LOC_REC6},
                                                       {LOCRECNO7, LOC_REC7},
                                                       {LOCRECNO8, LOC_REC8}}};
constexpr int kMostReceivers = static_cast<int>(kLocationRows.size()) - 1;

/// Group label, dialog filter, by kind.
struct KindTexts {
  std::string_view group;
  std::string_view filter;
};
constexpr std::array<KindTexts, 5> kKindTexts = {{{"  Time Histories", "*.tim"},
                                                  {"  Transfer Functions", "*.Hyx"},
                                                  {"  Cross Power Spectra", "*.Gyx"},
                                                  {"  Transfer Functions(58 Format)", "*.*"},
                                                  {"  Cross Power Spectra(58 Format)", "*.*"}}};

constexpr double kDefaultCriterion = 0.25;

ImportKind CurrentKind() {
  return static_cast<ImportKind>(
      std::clamp(GetCtrlVal(DATATYPE), 0, static_cast<int>(kKindTexts.size()) - 1));
}

bool IsCrossSpectrum(ImportKind kind) {
  return kind == ImportKind::CrossSpectrum || kind == ImportKind::CrossSpectrum58;
}

/// Indices of the rows shown; none when last < first.
struct IndexRange {
  int first, last;
  int count() const { return std::max(last - first + 1, 0); }
};

IndexRange RowIndices(ImportKind kind, int n, bool source) {
  if (kind == ImportKind::TimeHistory) return {1, n};
  if (!IsCrossSpectrum(kind)) return {source ? 1 : 2, n};
  return source ? IndexRange{0, n + 1} : IndexRange{1, n};
}

std::string RowLabel(ImportKind kind, int index, bool source) {
  if (kind == ImportKind::TimeHistory) return FormatText("- Ch%2d: ", index);
  if (!IsCrossSpectrum(kind)) return FormatText("- H%d%d: ", index, source ? 0 : 1);
  if (!source) return FormatText("- G%d%d: ", index, 1);
  // G00 and G11 are auto spectra; from G10 on the number of the receiver is one less than the index.
  return index < kSourceRows ? FormatText("- G%d%d: ", index, index) : FormatText("- G%d%d: ", index - 1, 0);
}

void ShowGroupLabel(ImportKind kind) {
  SetCtrlVal(TEXTMSG_39, kKindTexts[static_cast<std::size_t>(kind)].group);
  // Kept: cross spectra do not change the label of the kind.
  if (kind == ImportKind::CrossSpectrum)
    SetCtrlVal(TEXTMSG_39, kKindTexts[static_cast<std::size_t>(ImportKind::TransferFunction58)].group);
}

/// Files and locations in the rows of the dialog.
ImportRequest ReadDialog(ImportKind kind) {
  ImportRequest request;
  request.measID = GetCtrlVal(MEASID);
  request.nChannels = GetCtrlVal(NCHANS);
  request.sourceInstrumented = GetCtrlVal(SRCINSTRUMENT) == 1;
  request.lengthUnit = GetCtrlVal(LENGTHUNIT);
  const int n = std::clamp(request.nChannels, 0, kMostReceivers);
  const int rows = RowIndices(kind, n, request.sourceInstrumented).count();
  for (int row = 0; row < rows && row < static_cast<int>(kFileRows.size()); ++row)
    request.files.push_back(GetCtrlVal(kFileRows[static_cast<std::size_t>(row)].name));
  for (int i = 0; i <= n; ++i)
    request.locations.push_back(GetCtrlVal(kLocationRows[static_cast<std::size_t>(i)].location));
  return request;
}

bool HasEmptyRow(const ImportRequest& request) {
  return std::any_of(request.files.begin(), request.files.end(),
                     [](const std::string& f) { return f.empty(); });
}

/// Receivers must move away from the source in one direction: every gap has the sign of the first.
bool LocationsAreValid(const ImportRequest& request) {
  if (request.nChannels > kMostReceivers) return false;
  const std::vector<double>& at = request.locations;
  for (std::size_t i = 2; i < at.size(); ++i)
    if (!((at[1] - at[0]) * (at[i] - at[i - 1]) > 0.0)) return false;
  return true;
}

void TakeCriterion() {
  double criterion = GetCtrlVal(WLENGTHFILTER);
  SetCtrlVal(meassetup::HYX_WLENFILTER, criterion);
  if (!(criterion >= 0.0)) {
    MessagePopup(session.appTitle, "Invalid wavelength filter criteria ! Set to the default value.");
    criterion = kDefaultCriterion;
    SetCtrlVal(WLENGTHFILTER, criterion);
    SetCtrlVal(meassetup::HYX_WLENFILTER, criterion);
  }
  session.alphaWlen = criterion;
}

int Dispatch(ImportKind kind, const ImportRequest& request) {
  switch (kind) {
    case ImportKind::TimeHistory:
      return LoadTimeData(request);
    case ImportKind::TransferFunction:
      return LoadHyxData(request);
    case ImportKind::CrossSpectrum:
      return LoadGyxData(request);
    case ImportKind::TransferFunction58:
      return LoadHyx58Data(request);
    case ImportKind::CrossSpectrum58:
      return LoadGyx58Data(request);
  }
  return -1;
}

void SetSessionUnit(double unit) {
  const double oldUnit = session.lengthUnit;
  session.lengthUnit = unit;
  UpdateMajorUnitRoutine(oldUnit);
}

/// After a refusal the session continues with the selected measurement, and so with its unit.
void RestoreUnit(double unitBefore) {
  MeasRecords records;
  const bool selected = GetInfoFromKey(GetKeyFromID(session.curProjID, session.curMeasID), records) != -1;
  SetSessionUnit(selected && records.measPos > 0 ? records.measSetup->lengthUnit : unitBefore);
}

int LayOutAgain(Event event) {
  if (event == Event::Commit) UpdateLoadTextData(GetCtrlVal(NCHANS));
  return 0;
}

}  // namespace

void UpdateMajorUnitRoutine(double oldUnit) {
  if (session.lengthUnit != oldUnit) SetCtrlVal(meassetup::LENGTHUNIT, session.lengthUnit);
}

void UpdateLoadTextData(int n) {
  const ImportKind kind = CurrentKind();
  const bool source = GetCtrlVal(SRCINSTRUMENT) == 1;
  const IndexRange indices = RowIndices(kind, std::clamp(n, 0, kMostReceivers), source);
  ShowGroupLabel(kind);
  for (int row = 0; row < static_cast<int>(kFileRows.size()); ++row) {
    const FileRow& controls = kFileRows[static_cast<std::size_t>(row)];
    const bool shown = row < indices.count();
    SetVisible(controls.label, shown);
    SetVisible(controls.name, shown);
    SetVisible(controls.button, shown);
    if (shown) SetCtrlVal(controls.label, RowLabel(kind, indices.first + row, source));
  }
  for (int i = 0; i < static_cast<int>(kLocationRows.size()); ++i) {
    const LocationRow& controls = kLocationRows[static_cast<std::size_t>(i)];
    const bool shown = i <= n;
    SetVisible(controls.label, shown);
    SetVisible(controls.location, shown);
    if (shown) SetCtrlVal(controls.location, 0.0);
  }
}

void ShowImportPreview() {
  const ImportKind kind = CurrentKind();
  const ImportRequest request = ReadDialog(kind);
  const auto named = std::find_if(request.files.begin(), request.files.end(),
                                  [](const std::string& file) { return !file.empty(); });
  std::string text;
  if (named != request.files.end()) {
    switch (kind) {
      case ImportKind::TimeHistory:
        text = PreviewOfColumns(*named, 1, "time", "s");
        break;
      case ImportKind::TransferFunction:
      case ImportKind::CrossSpectrum:
        text = PreviewOfColumns(*named, 2, "frequency", "Hz");
        break;
      case ImportKind::TransferFunction58:
        text = PreviewOfUff58(*named, uff58_function::kFrequencyResponse);
        break;
      case ImportKind::CrossSpectrum58:
        text = PreviewOfUff58(*named, uff58_function::kCrossSpectrum);
        break;
    }
  }
  if (GetCtrlVal(PREVIEW) != text) ResetTextBox(PREVIEW, text);
}

int Load_TwoChnlDataCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  DisplayPanel(Panel::LOADTXDATA);
  MeasRecords records;
  const int key = GetKeyFromID(GetCtrlVal(hmsetup::PROJID), GetCtrlVal(MEASID));
  if (GetInfoFromKey(key, records) != -1 && records.hwPos > 0) SetCtrlVal(NCHANS, records.hwSetup->nChannels);
  UpdateLoadTextData(GetCtrlVal(NCHANS));
  return 0;
}

int LoadTxDataCancelCallback(Panel, ControlId, Event event, long) {
  if (event == Event::Commit) HidePanel(Panel::LOADTXDATA);
  return 0;
}

int DataTypeCallback(Panel, ControlId, Event event, long) {
  return LayOutAgain(event);
}
int NoChannelsCallback(Panel, ControlId, Event event, long) {
  return LayOutAgain(event);
}
int SRCINSTRUMENTED(Panel, ControlId, Event event, long) {
  return LayOutAgain(event);
}

int FileOpenCallback(Panel, ControlId control, Event event, long) {
  if (event != Event::Commit) return 0;
  const auto row = std::find_if(kFileRows.begin(), kFileRows.end(), [&](const FileRow& r) {
    return static_cast<ControlId>(&r.button) == control || (control && r.button.name == control->name);
  });
  if (row == kFileRows.end()) return -1;
  const std::string filter(kKindTexts[static_cast<std::size_t>(CurrentKind())].filter);
  const FileChoice choice = FileSelectPopup({ProjectDirectory(), filter, "File Open", false});
  if (choice.answer == FileAnswer::Exists) {
    SetCtrlVal(row->name, choice.path);
    return 0;
  }
  if (choice.answer == FileAnswer::Cancelled) return 0;
  MessagePopup(session.appTitle, "File does not exist.");
  return -1;
}

int LoadTextDataCallback(Panel, ControlId, Event event, long) {
  if (event != Event::Commit) return 0;
  const ImportKind kind = CurrentKind();
  const ImportRequest request = ReadDialog(kind);
  if (request.measID.empty()) return Refuse("Empty ID String !");
  if (request.nChannels < 1)
    return Refuse(import_text::CannotRead("There is no receiver to read a file for."));
  // A missing cross spectrum has a meaning for its readers.
  if (!IsCrossSpectrum(kind) && HasEmptyRow(request))
    return Refuse(import_text::CannotRead("A row has no file name."));
  const double unitBefore = session.lengthUnit;
  SetSessionUnit(request.lengthUnit);
  int status = -1;
  if (LocationsAreValid(request)) {
    TakeCriterion();
    SetSiteVelocities(GetCtrlVal(SITECAT));
    status = Dispatch(kind, request);
  } else {
    MessagePopup(session.appTitle, "Invalid source or receiver location !");
  }
  if (status != 0) RestoreUnit(unitBefore);
  return status;
}

}  // namespace sondera
