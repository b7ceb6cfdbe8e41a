// Tests of the text files of an update for debugging: their names, formats and contents.
#include "inversion/update_dump.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "inversion/max_likelihood.h"
#include "runtime/text_format.h"
#include "support/kernel_fixture.h"

namespace sondera::testing {
namespace {

class UpdateDump : public UpdateTest {
 protected:
  void SetUp() override {
    UpdateTest::SetUp();
    former_ = std::filesystem::current_path();
    std::filesystem::current_path(folder.Path());
    Start(2, 3);
    Randomize(7);
    ASSERT_EQ(FS_MaxLiklihood(computed, amplitude), 0);
  }
  void TearDown() override {
    std::filesystem::current_path(former_);
    UpdateTest::TearDown();
  }
  std::string Text(const std::string& name) const { return test::ReadWhole(folder.File(name)); }
  static std::string Rows(const ColumnMatrix& a) {
    std::string text;
    for (int i = 1; i <= a.rows(); ++i) {
      for (int j = 1; j <= a.cols(); ++j) text += FormatText("%le \t", a(i, j));
      text += "\n";
    }
    return text;
  }
  /// What a dump prints.
  std::string Dump() {
    ::testing::internal::CaptureStdout();
    DumpUpdate(run, computed, boxes);
    return ::testing::internal::GetCapturedStdout();
  }

 private:
  std::filesystem::path former_;
};

TEST_F(UpdateDump, LeavesAFileForEveryVectorAndMatrix) {
  Dump();
  for (const char* name : {"compvel_obsvel.dat", "Cm", "DeltaVel", "G", "Hessian", "InvH", "Weight", "InvCd",
                           "Gt_Cdi", "InvCm", "DeltaModel", "site.sh"})
    EXPECT_GT(Text(name).size(), 0u) << name;
}

TEST_F(UpdateDump, MatricesHaveALineForEachRow) {
  Dump();
  EXPECT_EQ(Text("G"), Rows(run.update.GActive));
  EXPECT_EQ(Text("Weight"), Rows(run.update.Weight));
  EXPECT_EQ(Text("InvH"), Rows(run.update.InvH));
  EXPECT_EQ(Text("site.sh"), Rows(run.update.Hessian));
  ColumnMatrix T(2, 3);
  for (int p = 1; p <= 2; ++p)
    for (int r = 1; r <= 3; ++r) T(p, r) = run.update.GActive(r, p) / run.update.CdActive.diag(r);
  EXPECT_EQ(Count(Text("Gt_Cdi"), "\n"), 2);
  EXPECT_EQ(Text("Gt_Cdi").substr(0, 13), Rows(T).substr(0, 13));
}

TEST_F(UpdateDump, VectorsHaveALineForEachNumber) {
  Dump();
  std::string velocities = "compvel\tobsvel\n", deltas;
  for (int i = 1; i <= 3; ++i) {
    velocities += FormatText("%lf\t%lf\n", computed[i], run.observations.runVel[i]);
    deltas += FormatText("%lg\n", run.update.deltaVel[i]);
  }
  EXPECT_EQ(Text("compvel_obsvel.dat"), velocities);
  EXPECT_EQ(Text("DeltaVel"), deltas);
}

TEST_F(UpdateDump, PrintsItsHeadsInOrder) {
  run.course.iCurIterNo = 4;
  const std::string printed = Dump();
  std::size_t at = 0;
  for (const char* head : {"iCurIterNo ... 4\n", "rModel ... \n", "delta Vel... \n", "Cd ... \n", "Cm ... \n",
                           "delta rModel ... \n"}) {
    const std::size_t found = printed.find(head, at);
    ASSERT_NE(found, std::string::npos) << head;
    at = found + 1;
  }
}

}  // namespace
}  // namespace sondera::testing
