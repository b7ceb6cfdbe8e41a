// raw_section.cpp - see raw_section.h.
#include "project/raw_section.h"

#include <algorithm>
#include <climits>
#include <cstdint>

#include "project/setup_section.h"
#include "records/measdb.h"
#include "records/session.h"
#include "runtime/text_format.h"

namespace sondera {

namespace {

constexpr std::int64_t kBlocks = static_cast<std::int64_t>(kRawBlocks.size());

/// Entries of one block in the file.
std::int64_t BlockLength(const HWSetup& hw) {
  return hw.nLines > 0 ? std::int64_t{2} * hw.nLines * StoredChannels(&hw) : 0;
}

/// The record of a key, appended if missing. As SetupRawDataArrays, but without the zeros.
RawData& RecordOf(int key) {
  const int position = MeasDB.rawDataList.findKey(key);
  RawData& raw = position > 0 ? *MeasDB.rawDataList.at(position) : *MeasDB.rawDataList.append();
  raw.key = key;
  return raw;
}

}  // namespace

int ReadRawData(SectionReader& file, const std::function<void()>& poll) {
  const int count = file.Count("raw data records", kMostMeasurements);
  for (std::size_t i = 0; i < static_cast<std::size_t>(count) && !file.Ended(); ++i) {
    if (poll) poll();
    if (i >= session.fileKeyList.size()) {
      file.GiveUp("there are more raw data records than measurements.");
      return -1;
    }
    const int key = session.fileKeyList[i];
    const HWSetup* hw = MeasDB.hwSetupList.at(MeasDB.hwSetupList.findKey(key));
    file.Int32();  // the key; the order of the records replaces it
    if (!hw || file.Ended()) break;
    const std::int64_t inMemory = std::int64_t{2} * FullTimeLines(hw->nLines) * hw->nChannels;
    if (!file.Afford(kBlocks, inMemory, sizeof(double))) {
      file.GiveUp(FormatText("measurement %d claims %d lines of %d channels.", static_cast<int>(i) + 1,
                             hw->nLines, hw->nChannels));
      break;
    }
    RawData& raw = RecordOf(key);
    const std::size_t length = hw->nLines > 0 ? static_cast<std::size_t>(inMemory) : 0;
    for (auto block : kRawBlocks) (raw.*block) = {};  // of an overwritten measurement: room for the new data
    for (auto block : kRawBlocks)
      LoadVector(raw.*block, static_cast<std::size_t>(BlockLength(*hw)), length, file);
    SetupAuxiallyArrays(static_cast<int>(std::min<std::size_t>(length, INT_MAX)));
  }
  return 0;
}

void StoreRawData(AtomicWriter& file, const std::function<void()>& poll) {
  const auto records = InFileOrder(MeasDB.rawDataList);
  file.Int32(static_cast<int>(records.size()));
  for (std::size_t i = 0; i < records.size(); ++i) {
    if (poll) poll();
    const int key = MeasDB.idList.at(static_cast<int>(i) + 1)->key;
    const HWSetup* hw = MeasDB.hwSetupList.at(MeasDB.hwSetupList.findKey(key));
    const std::int64_t length = hw ? BlockLength(*hw) : 0;
    file.Int32(key);
    for (auto block : kRawBlocks) {
      if (records[i])
        StorePadded(records[i]->*block, length, file);
      else
        StorePadded(nullptr, 0, length, file);
    }
  }
}

}  // namespace sondera
