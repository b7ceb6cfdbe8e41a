// The project after a measuring run: its bytes against a second writer, its decimation, and its pairs against the
// averages.
#include <complex>

#include "app/averages_fixture.h"
#include "app/script/run.h"
#include "panels/mainmenu_project.h"
#include "support/project_bytes.h"

namespace sondera {
namespace {

using testing::Noise;
using testing::testBoard;

class MeasuredProject : public testing::AveragesTest {};

TEST_F(MeasuredProject, IsWhatASecondWriterWritesAndItsPairsAreThoseOfTheAverages) {
  testBoard.minRate = 2000.0;
  testBoard.volts = Noise;
  Begin();
  Plan(3, 16, 4);
  Places().recLoc = {5.0, 10.0, 20.0};
  ASSERT_EQ(Start(), 0);
  ASSERT_EQ(Hw().decimation, 10);
  const RawData taken = Raw();
  session.projectFileName = folder.File("site.da");
  ASSERT_EQ(SaveRawData(), 0);
  const std::string bytes = test::ReadWhole(folder.File("site.da"));
  EXPECT_TRUE(bytes == testing::ProjectBytes().bytes);
  EXPECT_NE(bytes.find(std::string("ProjID||||  10\0", 15)), std::string::npos)
      << "decimation behind the bars";

  InstallDaqDriver(&daqNone);
  StartSession();
  ASSERT_EQ(OpenFileProc(folder.File("site.da"), OpenFor::Reading), 0);
  EXPECT_EQ(frontEnd.messages, std::vector<std::string>{});
  EXPECT_EQ(Hw().decimation, 10);
  EXPECT_EQ(Places().recLoc, (std::vector<double>{5.0, 10.0, 20.0}));
  for (const auto block : kRawBlocks) EXPECT_EQ(Raw().*block, taken.*block);

  script::Source source = script::Source::OfText("*sondera 2\npair measID 2 3\n");
  ASSERT_EQ(script::Run("job", {}).run(source), 0);
  const PMeasInfo* const pair = FindPair(Hw().key, 1, 2);
  ASSERT_NE(pair, nullptr);
  const int n = 2 * Hw().nLines;
  const testing::PlainSpectra mean = testing::PlainMean({0, 1, 2, 3}, 3, n, 10);
  for (int k = 1; k < Hw().nLines; ++k) {
    const auto ref = static_cast<std::size_t>(n + k), channel = static_cast<std::size_t>(2 * n + k);
    const std::complex<double> wanted = std::complex(mean.crossRe[channel], mean.crossIm[channel]) /
                                        std::complex(mean.crossRe[ref], mean.crossIm[ref]);
    const std::complex<double> got(pair->hRe[static_cast<std::size_t>(k)],
                                   pair->hIm[static_cast<std::size_t>(k)]);
    EXPECT_LT(std::abs(got - wanted), 1e-11 * std::abs(wanted)) << k;
  }
}

}  // namespace
}  // namespace sondera
