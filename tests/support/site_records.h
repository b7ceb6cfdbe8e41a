// site_records.h - import files of the synthetic site, for tests that need a record but no particular one.
#pragma once

#include <string>

#include "forward/site_files.h"

namespace sondera::test {

/// Transfer function (.hyx) of two receivers at these distances from the source, m: the standard ground, a
/// blow with a little noise, 1025 lines of 0.48828125 Hz.
/// @param lines  how many of the first lines; 0: all
void WriteSitePair(const std::string& path, double first, double second, std::size_t lines = 0);

/// rec1.tim to rec6.tim of the examples' survey, below a folder.
void WriteSiteRecords(const std::string& folder);

}  // namespace sondera::test
