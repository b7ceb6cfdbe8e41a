// setup_section.h - first section of a project file: hardware and geometry of every measurement.
//
// Layout (integers 4 bytes, reals 8 bytes, texts 256 bytes, little-endian, no padding):
//   A  count, then per measurement: key, ProjID field, MeasID, the fields of HWSetup
//   B  count, then per measurement: key (not read), srcLoc, recLoc[nChannels], wlenFilter, lengthUnit
// The ProjID field is the text, "||||", and the decimation by "%4d". The i-th record of part B, and of the
// raw section, belongs to the i-th measurement of part A: both directions use this order.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "project/section_io.h"
#include "records/measdb.h"

namespace sondera {

/// Questions of a load. Empty functions: no, no id.
struct LoadQuestions {
  std::function<bool()> mayOverwrite;                     ///< the id is in the list already
  std::function<std::optional<std::string>()> newMeasID;  ///< another id for it; no value cancels the load
  std::function<void()> poll = {};                        ///< called before each measurement and pair
};

/// Result of reading part B.
struct GeometryRead {
  bool whole = true;  ///< false: it has a record without a measurement
  bool any = false;   ///< a geometry was read; the session has the length unit of the last one
};

struct SetupsRead {
  GeometryRead geometry;
  bool whole = false;     ///< false: the person cancelled at an id, or part B has more records than part A
  bool selected = false;  ///< the first measurement of the file is the session's current one
};

/// Reads the section into the database. For a pair of texts that is there already it asks: overwrite, or a
/// new id. session.fileKeyList gets the key of each measurement of the file, in file order. Keys are those of
/// the file, except where another measurement has the key.
SetupsRead ReadMHWSetup(SectionReader& file, const LoadQuestions& questions);
void StoreMHWSetup(AtomicWriter& file);

/// The fields of a HWSetup from nChannels to nAverage. withBand: startFreq, stopFreq and spanKind follow a
/// negative freqSpan. A channel count below 1 counts as 8 (useEight); a count that no board has ends the
/// reading.
void ReadHWSetupFields(SectionReader& file, HWSetup& hw, bool withBand, bool useEight);
void StoreHWSetupFields(AtomicWriter& file, const HWSetup& hw, bool withBand);

/// Number of channels for writing a record, which its reader accepts without change. 1 without a HWSetup.
int StoredChannels(const HWSetup* hw);

/// Part B for the keys of session.fileKeyList. The session's length unit follows each record.
GeometryRead ReadMeasSetups(SectionReader& file);
void StoreMeasSetups(AtomicWriter& file);

/// Key of a measurement of a file in the database: asks about texts that are there already. -1 when the
/// person cancelled.
int ClaimFileKey(SectionReader& file, const LoadQuestions& questions, int fileKey, const std::string& projID,
                 std::string measID);

/// Most bytes of a text field; the terminator follows them.
inline constexpr std::size_t kLongestFileText = 255;

/// Limits for one file: measurements, channels of a measurement and lines of a spectrum.
inline constexpr int kMostMeasurements = 10000, kMostChannels = 4096, kMostLines = 1 << 24;

/// The records of a list in the order of idList, up to the last measurement that has one; null where a
/// measurement in between has none.
template <class T>
std::vector<const T*> InFileOrder(const RecordList<T>& list) {
  std::vector<const T*> records;
  std::size_t used = 0;
  for (const IDInfo& id : MeasDB.idList) {
    records.push_back(list.at(list.findKey(id.key)));
    if (records.back()) used = records.size();
  }
  records.resize(used);
  return records;
}

}  // namespace sondera
