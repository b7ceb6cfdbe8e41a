// report_input.h - what the pages of a report have to be told beside the records.
#pragma once

#include <string>
#include <vector>

namespace sondera {

struct ReportInput {
  std::string projectFile;   ///< shown at the foot of each page
  double unitFactor = 1.0;   ///< metres per unit of length
  std::vector<int> entries;  ///< entries of InvParam that were stored, ascending
};

}  // namespace sondera
