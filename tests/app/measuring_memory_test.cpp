// The memory of a measuring run: it does not grow from record to record, and the buffer is released.
// SONDERA_RECORDS sets the number of records, SONDERA_BUFFER_MIB the size of the buffer.
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "app/measuring_fixture.h"
#include "support/sanitized.h"

namespace sondera {
namespace {

using testing::testBoard;

class MeasuringMemory : public testing::MeasuringTest {
 protected:
  void SetUp() override {
    MeasuringTest::SetUp();
    if (kSanitized) GTEST_SKIP() << "an instrumented program keeps what is given back";
  }
  static int Wanted(const char* name, int otherwise) {
    const char* const text = std::getenv(name);
    return text ? std::max(1, std::atoi(text)) : otherwise;
  }
  static double ResidentMegabytes() {
    long all = 0, resident = 0;
    std::FILE* statm = std::fopen("/proc/self/statm", "r");
    if (!statm) return 0.0;
    if (std::fscanf(statm, "%ld %ld", &all, &resident) != 2) resident = 0;
    std::fclose(statm);
    return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1048576.0;
  }
};

TEST_F(MeasuringMemory, ManyRecordsInARowTakeNoMoreThanAHundred) {
  const int records = Wanted("SONDERA_RECORDS", 2000);
  testBoard.volts = [](int r, int c, int i) { return 0.001 * ((r + 1) * (c + 3) * i % 997); };
  Plan(4, 512, 1);
  Hw().averageOn = 0;
  double at100 = 0.0, atEnd = 0.0;
  frontEnd.onProcessEvents = [&] {
    if (!measRun.measRunning) return;
    testBoard.log.clear();
    if (measRun.delivered == 100 && at100 == 0.0) at100 = ResidentMegabytes();
    if (measRun.delivered < records) return;
    atEnd = ResidentMegabytes();
    Commit(measpanel::STOPMEAS);
  };
  ASSERT_EQ(Start(), 0);
  EXPECT_EQ(measRun.delivered, records);
  ASSERT_GT(at100, 0.0);
  EXPECT_NEAR(atEnd, at100, 1.0);
}

TEST_F(MeasuringMemory, TheBufferOfALongRecordIsGivenBack) {
  const int megabytes = Wanted("SONDERA_BUFFER_MIB", 64);
  testBoard.minRate = 102400.0;
  Begin();
  Enter(hwsetup::NCHANNELS1, 1);
  Enter(hwsetup::FREQSPAN,
        51200.0 * 1024.0 * 8.0 / (megabytes * 1048576.0));  // the board's samples at 102400 Hz
  Enter(hwsetup::NAVERAGE, 1);
  const double before = ResidentMegabytes();
  double during = 0.0;
  frontEnd.onProcessEvents = [&] {
    if (measRun.measRunning && measRun.delivered == 1) during = ResidentMegabytes();
  };
  ASSERT_EQ(Start(), 0);
  EXPECT_GT(during - before, 0.95 * megabytes);
  EXPECT_LT(ResidentMegabytes() - before, 4.0);
  ExpectIdle();
}

}  // namespace
}  // namespace sondera
