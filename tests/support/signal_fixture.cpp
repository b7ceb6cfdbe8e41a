#include "support/signal_fixture.h"

#include <fstream>
#include <sstream>

namespace sondera::testing {

std::vector<std::vector<double>> ReadColumns(const std::string& path) {
  std::vector<std::vector<double>> columns;
  std::ifstream in(path);
  EXPECT_TRUE(in) << path;
  for (std::string line; std::getline(in, line);) {
    std::istringstream row(line);
    std::size_t c = 0;
    for (double value; row >> value; ++c) {
      if (c == columns.size()) columns.emplace_back();
      columns[c].push_back(value);
    }
    if (c == 0) break;
  }
  return columns;
}

}  // namespace sondera::testing
