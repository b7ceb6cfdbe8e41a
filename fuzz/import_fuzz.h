// import_fuzz.h - a whole import from one block of bytes, and the conditions afterwards for all bytes. Shared
// by the targets of the four formats.
//
// First byte: two bits of channels, one for an instrumented source, one for an id that is there already. The
// rest are the files of the rows, separated by a byte 0x1E.
#pragma once

#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "demand.h"
#include "project/import_record.h"
#include "records/session.h"
#include "runtime/controls.h"
#include "runtime/dialogs.h"

namespace sondera::fuzz {

inline bool AllFinite(const std::vector<double>& values) {
  for (double v : values)
    if (!std::isfinite(v)) return false;
  return true;
}

/// A record that the rest of the system can work with.
inline void DemandSoundRecord(const ImportRequest& request) {
  MeasRecords r;
  Demand(GetInfoFromKey(GetKeyFromID(session.curProjID, request.measID), r) != -1);
  Demand(r.hwPos == 1 && r.measPos == 1 && r.rawPos == 1);
  const HWSetup& hw = *r.hwSetup;
  Demand(hw.nChannels == request.nChannels && hw.nLines >= 1 && FullTimeLines(hw.nLines) == hw.nLines);
  for (double v :
       {hw.freqSpan, hw.deltaF, hw.deltaT, hw.timeLength, hw.startFreq, hw.stopFreq, hw.triggerDelay})
    Demand(std::isfinite(v));
  Demand(hw.freqSpan != 0.0 && hw.deltaF > 0.0 && hw.deltaT > 0.0 && hw.timeLength > 0.0 &&
         hw.stopFreq > 0.0);
  const std::size_t row = 2 * static_cast<std::size_t>(hw.nLines);
  for (auto block : kRawBlocks) {
    Demand((r.rawData->*block).size() == row * static_cast<std::size_t>(hw.nChannels));
    Demand(AllFinite(r.rawData->*block));
  }
  if (hw.freqSpan > 0.0) return;
  for (std::size_t c = 0; c < static_cast<std::size_t>(hw.nChannels); ++c) {
    const double* re = r.rawData->crossSpecRe.data() + c * row;
    const double* im = r.rawData->crossSpecIm.data() + c * row;
    for (std::size_t i = 1; i < row / 2; ++i) Demand(re[i] == re[row - i] && im[i] == -im[row - i]);
    Demand(im[row / 2] == 0.0 && (re[row / 2] == 0.0 || re[row / 2] == 1.0));
  }
}

/// Runs one import. A refused import must report that once and leave nothing.
inline int RunImport(int (*load)(const ImportRequest&), const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  ResetSession();
  SetupGlobalArrays();
  FrontEnd frontEnd;
  frontEnd.confirm = [](std::string_view, std::string_view) { return true; };
  InstallFrontEnd(frontEnd);

  ImportRequest request;
  request.measID = "fuzz";
  request.nChannels = 1 + (data[0] & 3);
  request.sourceInstrumented = (data[0] & 4) != 0;
  for (int i = 0; i <= request.nChannels; ++i) request.locations.push_back(i);
  if ((data[0] & 8) != 0) {
    const int key = InsertNewIDInfo("ProjID", request.measID);
    SetupHWSetupArrays(key, 3)->nLines = 4;
    SetupMSetupArrays(key);
    SetupRawDataArrays(key);
  }
  std::vector<std::string_view> files;
  std::string_view rest(reinterpret_cast<const char*>(data) + 1, size - 1);
  while (true) {
    const std::size_t end = rest.find('\x1E');
    files.push_back(rest.substr(0, end));
    request.files.push_back(files.back().empty() ? "" : std::to_string(files.size() - 1));
    if (end == std::string_view::npos) break;
    rest.remove_prefix(end + 1);
  }
  request.open = [&](const std::string& name, TextReader& text, std::string&) {
    text.OpenMemory(files[static_cast<std::size_t>(std::atoi(name.c_str()))]);
    return true;
  };
  const int before = MessageCount();
  const int status = load(request);
  Demand(status == 0 || status == -1);
  Demand(MessageCount() == before - status);
  if (status == 0) {
    DemandSoundRecord(request);
  } else {
    // Either nothing was changed, or nothing is left.
    const bool untouched =
        (data[0] & 8) != 0 && MeasDB.hwSetupList.count() == 1 && MeasDB.hwSetupList.at(1)->nLines == 4;
    Demand(untouched || (MeasDB.idList.empty() && MeasDB.hwSetupList.empty() &&
                         MeasDB.measSetupList.empty() && MeasDB.rawDataList.empty()));
  }
  return 0;
}

}  // namespace sondera::fuzz
