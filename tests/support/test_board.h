// test_board.h - a board inside the test program: properties, records and faults prepared by the test, and a
// log of every request in the words of the board protocol.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "acquisition/daq_driver.h"

namespace sondera::testing {

struct TestBoard {
  // facts
  std::string devices = "Tst1", type = "Board of tests";
  int category = daq_category::kDynamicSignal, trigger = 1, inputs = 4;
  double maxRate = 102400.0, minRate = 0.0;
  std::vector<double> ranges = {10.0, 1.0};
  std::vector<double> rates;  ///< the only ones it has, ascending; empty: any
  int countSaid = 0;          ///< channels of a record for every request; 0: as requested

  // records
  /// Volts of sample i of channel c of record r, from 0 each.
  std::function<double(int r, int c, int i)> volts = [](int, int, int) { return 0.0; };
  double seconds = 0.0;               ///< from the start to a record
  int neverFrom = -1;                 ///< from this record on none comes
  int shortRecord = -1;               ///< this record has one sample less
  std::uint64_t mask = 0;             ///< reported overloads
  std::map<std::string, int> failAt;  ///< request -> which call of it fails, from 1
  bool gone = false;                  ///< every request fails from now on
  std::function<void()> onStart;

  // what happened
  std::vector<std::string> log;
  int task = 0, channels = 0, samples = 0, starts = 0, records = 0;
  double rate = 0.0;

  int Count(const std::string& word) const;
  /// First word of each request, without waits.
  std::string Words() const;
};
extern TestBoard testBoard;
extern const DaqDriver daqTestBoard;

}  // namespace sondera::testing
