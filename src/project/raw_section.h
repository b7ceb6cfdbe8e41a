// raw_section.h - second section of a project file: the averaged data of every measurement.
//
// Layout: count, then per measurement: key (not read), and the six blocks of RawData with 2 * nLines *
// nChannels reals each. The i-th record belongs to the i-th measurement of the setup section. Decimation does
// not enter.
#pragma once

#include "project/section_io.h"

namespace sondera {

/// Reads the section for the keys of session.fileKeyList. A record whose end is missing keeps what was there,
/// with zeros behind it. Returns 0; -1 when there are more records than measurements.
int ReadRawData(SectionReader& file);
void StoreRawData(AtomicWriter& file);

}  // namespace sondera
