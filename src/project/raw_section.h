// raw_section.h - second section of a project file: the averaged data of every measurement.
//
// Layout: count, then per measurement: key (not read), and the six blocks of RawData with 2 * nLines *
// nChannels reals each. The i-th record belongs to the i-th measurement of the setup section. Decimation has
// no effect.
#pragma once

#include <functional>

#include "project/section_io.h"

namespace sondera {

/// Reads the section for the keys of session.fileKeyList. An incomplete record keeps its data, followed by
/// zeros. Returns 0; -1 when there are more records than measurements.
/// @param poll  called before each measurement; may be empty
int ReadRawData(SectionReader& file, const std::function<void()>& poll = {});
void StoreRawData(AtomicWriter& file, const std::function<void()>& poll = {});

}  // namespace sondera
