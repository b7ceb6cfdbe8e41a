// report_input.h - input of the report's pages beside the records.
#pragma once

#include <string>
#include <vector>

namespace sondera {

struct ReportInput {
  std::string projectFile;   ///< shown in the footer of each page
  double unitFactor = 1.0;   ///< metres per unit of length
  std::vector<int> entries;  ///< entries of InvParam that were stored, ascending
};

}  // namespace sondera
