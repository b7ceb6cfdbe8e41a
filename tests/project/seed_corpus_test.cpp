// The seeds of the fuzz targets, small files of every kind made by the writers: they agree with the tables,
// and with SONDERA_WRITE_CORPUS set to a folder they are written there again.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <limits>
#include <map>

#include "project/analysis_section.h"
#include "project/project_file.h"
#include "records/inv_records.h"
#include "records/model_records.h"
#include "runtime/paths.h"
#include "support/project_bytes.h"
#include "support/section_records.h"
#include "support/session_fixture.h"
#include "support/temp_folder.h"

namespace sondera::testing {
namespace {

/// A line of curves whose places and points are no numbers, or too large.
void PutHostileStations() {
  constexpr double kInf = std::numeric_limits<double>::infinity(),
                   kNan = std::numeric_limits<double>::quiet_NaN();
  FreeDispList(MeasDB.gDispList);
  test::PutStations(
      {{"inf", kInf, {1.0, 2.0}, {100.0, 200.0}, true},
       {"nan", kNan, {1.0, 2.0}, {100.0, 200.0}, true},
       {"far", 1e308, {1e308, kInf, kNan, -1.0, 0.0, 5.0}, {1e308, 1.0, 1.0, 1.0, 1.0, kNan}, true},
       {"left", -1e308, {1.0, 2.0, 3.0}, {-100.0, 200.0, 0.0}, true},
       {"empty", 3.0, {}, {}, true},
       {"good", 4.0, {1.0, 2.0, 3.0}, {100.0, 150.0, 180.0}, true}});
}

/// File names below the corpus folder and their bytes.
std::map<std::string, std::string> Seeds() {
  std::map<std::string, std::string> seeds;
  MakeSmallProject();
  const std::string setup = SetupBytes().bytes, raw = RawBytes().bytes, analysis = AnalysisBytes().bytes,
                    modelling = ModelingBytes().bytes;
  seeds["project/small.da"] = setup + raw + analysis + modelling;
  seeds["project/without_models.da"] = setup + raw + analysis;
  seeds["project/without_analysis.da"] = setup + raw;
  seeds["project/cut_in_the_models.da"] = setup + raw + analysis + modelling.substr(0, modelling.size() / 3);
  PutHostileStations();
  seeds["station/hostile.da"] = setup + raw + AnalysisBytes().bytes;
  std::string ia = analysis;
  PutInt(ia, 4 + 40 + 4, 2);
  seeds["analysis/small.ia"] = ia;
  seeds["analysis/cut.ia"] = ia.substr(0, ia.size() / 2);
  for (unsigned seed : {3u, 8u}) {
    MakeRandomProject(seed);
    for (PMeasInfo& p : MeasDB.pMeasList) p.timeDiv = p.freqDiv = 3;
    seeds["project/random" + std::to_string(seed) + ".da"] = ProjectBytes().bytes;
  }
  StartEmptyProject();
  InvParam.nEntries = SMPParam.nEntries = 1;
  seeds["project/empty.da"] = ProjectBytes().bytes;
  seeds["analysis/empty.ia"] = AnalysisBytes().bytes;
  return seeds;
}

TEST(SeedCorpus, IsWhatTheWritersMakeToday) {
  const char* target = std::getenv("SONDERA_WRITE_CORPUS");
  for (const auto& [name, bytes] : Seeds()) {
    if (target) {
      test::WriteWhole(std::string(target) + "/" + name, bytes);
      continue;
    }
    const std::string path = JoinPath(SONDERA_SOURCE_DIR, "fuzz/corpus/" + name);
    ASSERT_TRUE(std::filesystem::exists(path)) << path;
    EXPECT_TRUE(test::ReadWhole(path) == bytes) << name << " differs";
  }
  EXPECT_EQ(target, nullptr)
      << "the seeds were written; look at them and run again without SONDERA_WRITE_CORPUS";
}

}  // namespace
}  // namespace sondera::testing
