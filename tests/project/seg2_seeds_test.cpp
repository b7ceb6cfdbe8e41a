// The seeds of the fuzz target of SEG-2 files, in both byte orders: they equal the output of the writer of
// the tests, and with SONDERA_WRITE_CORPUS set to a folder they are written there again.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <map>

#include "project/import_seg2.h"
#include "runtime/paths.h"
#include "runtime/text_format.h"
#include "support/seg2_writer.h"
#include "support/temp_folder.h"

namespace sondera::testing {
namespace {

std::map<std::string, std::string> Seg2Seeds() {
  std::map<std::string, std::string> seeds;
  for (bool big : {false, true}) {
    const std::string order = big ? "big" : "little";
    for (int code = 1; code <= 5; ++code) {
      test::Seg2Line line;
      line.bigEndian = big;
      line.code = code;
      line.receivers = {2.0, 4.0, 8.0};
      line.samples = 10;
      line.value = [](std::size_t r, double t) {
        return 0.01 * std::sin(300.0 * t + static_cast<double>(r));
      };
      seeds[order + std::to_string(code)] = test::Seg2Bytes(test::Seg2OfLine(line));
    }
    test::Seg2Line line;
    line.bigEndian = big;
    line.code = 1;
    line.source = 5.0;
    line.receivers = {0.0, 3.0, 7.0, 10.0};
    line.samples = 4;
    line.units = "FEET";
    line.value = [](std::size_t r, double t) {
      return 0.001 * static_cast<double>(r + 1) * (1.0 + 100.0 * t);
    };
    line.number = [](double x) { return FormatText("%g,5 0 0", x); };
    test::Seg2Spec odd = test::Seg2OfLine(line);
    odd.terminator = "\r\n";
    odd.pointerBlock = 64;
    odd.blocksBackwards = true;
    odd.traces[1].claimedBytes = 2;
    odd.traces[2].claimedSamples = 400;
    odd.traces[3].strings.push_back("SKEW 0.0001");
    seeds[order + "_odd"] = test::Seg2Bytes(odd);
  }
  return seeds;
}

TEST(Seg2Seeds, AreWhatTheWriterMakesToday) {
  const char* target = std::getenv("SONDERA_WRITE_CORPUS");
  for (const auto& [name, bytes] : Seg2Seeds()) {
    if (target) {
      test::WriteWhole(std::string(target) + "/seg2/" + name, bytes);
      continue;
    }
    EXPECT_TRUE(test::ReadWhole(JoinPath(SONDERA_SOURCE_DIR, "fuzz/corpus/seg2/" + name)) == bytes) << name;
    Shot shot;
    EXPECT_EQ(ShotOfSeg2(name, bytes, shot), "") << name;
  }
  EXPECT_EQ(target, nullptr)
      << "the seeds were written; look at them and run again without SONDERA_WRITE_CORPUS";
}

}  // namespace
}  // namespace sondera::testing
