// import_fixture.cpp - see import_fixture.h.
#include "support/import_fixture.h"

#include <array>

#include "runtime/catalogue/loadtxdata.h"
#include "runtime/text_format.h"

namespace sondera::testing {
namespace {

using namespace loadtxdata;

const std::array<const TextControl*, 10> kFiles = {&FNAMESRC, &FNAMECH1, &FNAMECH2, &FNAMECH3, &FNAMECH4,
                                                   &FNAMECH5, &FNAMECH6, &FNAMECH7, &FNAMECH8, &FNAMECH9};

void SetLocation(std::size_t i, double value) {
  switch (i) {
    case 0:
      return SetCtrlVal(LOC_SRC, value);
    case 1:
      return SetCtrlVal(LOC_REC1, value);
    case 2:
      return SetCtrlVal(LOC_REC2, value);
    case 3:
      return SetCtrlVal(LOC_REC3, value);
    case 4:
      return SetCtrlVal(LOC_REC4, value);
    case 5:
      return SetCtrlVal(LOC_REC5, value);
    case 6:
      return SetCtrlVal(LOC_REC6, value);
    case 7:
      return SetCtrlVal(LOC_REC7, value);
    case 8:
      return SetCtrlVal(LOC_REC8, value);
    default:
      ADD_FAILURE() << "no row for location " << i;
  }
}

}  // namespace

void ImportTest::SetUp() {
  SessionTest::SetUp();
  AddMeasurement({.measID = "measID", .nChannels = 4});
}

std::string ImportTest::Write(const std::string& name, const std::string& text) {
  test::WriteWhole(folder.File(name), text);
  return folder.File(name);
}

int ImportTest::Import(const ImportEntries& entries) {
  SetCtrlVal(DATATYPE, static_cast<int>(entries.kind));
  SetCtrlVal(SRCINSTRUMENT, entries.source ? 1 : 0);
  SetCtrlVal(NCHANS, entries.receivers);
  NoChannelsCallback(Panel::LOADTXDATA, &NCHANS, Event::Commit, 0);
  SetCtrlVal(MEASID, entries.measID);
  for (std::size_t row = 0; row < kFiles.size(); ++row)
    SetCtrlVal(*kFiles[row], row < entries.files.size() ? entries.files[row] : "");
  for (int i = 0; i <= entries.receivers && entries.locations.empty() && i <= 8; ++i)
    SetLocation(static_cast<std::size_t>(i), 10.0 * i);
  for (std::size_t i = 0; i < entries.locations.size(); ++i) SetLocation(i, entries.locations[i]);
  return LoadTextDataCallback(Panel::LOADTXDATA, &LOAD, Event::Commit, 0);
}

bool ImportTest::Has(const std::string& measID) const {
  return GetKeyFromID("ProjID", measID) != -1;
}

const HWSetup& ImportTest::Hardware(const std::string& measID) const {
  static const HWSetup none;
  MeasRecords records;
  GetInfoFromKey(GetKeyFromID("ProjID", measID), records);
  EXPECT_GT(records.hwPos, 0) << measID;
  return records.hwPos > 0 ? *records.hwSetup : none;
}

const MeasSetup& ImportTest::MeasurementSetup(const std::string& measID) const {
  static const MeasSetup none;
  MeasRecords records;
  GetInfoFromKey(GetKeyFromID("ProjID", measID), records);
  EXPECT_GT(records.measPos, 0) << measID;
  return records.measPos > 0 ? *records.measSetup : none;
}

const RawData& ImportTest::Data(const std::string& measID) const {
  static const RawData none;
  MeasRecords records;
  GetInfoFromKey(GetKeyFromID("ProjID", measID), records);
  EXPECT_GT(records.rawPos, 0) << measID;
  return records.rawPos > 0 ? *records.rawData : none;
}

std::complex<double> ImportTest::Cross(int channel, int i, const std::string& measID) const {
  const RawData& raw = Data(measID);
  const std::size_t at =
      2 * static_cast<std::size_t>(Hardware(measID).nLines) * static_cast<std::size_t>(channel) +
      static_cast<std::size_t>(i);
  if (at >= raw.crossSpecRe.size()) {
    ADD_FAILURE() << "no entry " << i << " in channel " << channel;
    return {};
  }
  return {raw.crossSpecRe[at], raw.crossSpecIm[at]};
}

std::string TimText(double firstTime, double step, const std::vector<double>& values) {
  std::string text;
  for (std::size_t i = 0; i < values.size(); ++i)
    text += FormatText("%.9g %.17g\n", firstTime + static_cast<double>(i) * step, values[i]);
  return text;
}

std::string SpectrumLine(double f, std::complex<double> value) {
  return FormatText("%.12g %.17g %.17g\n", f, value.real(), value.imag());
}

}  // namespace sondera::testing
