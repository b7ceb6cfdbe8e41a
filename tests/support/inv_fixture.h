// inv_fixture.h - start of every test of the inversion's session: a small plane-wave case with a global curve
// computed for known ground, the panel filled from the records, notices that note what was drawn.
#pragma once

#include <string>
#include <vector>

#include "support/run_fixture.h"

namespace sondera::testing {

class InversionTest : public RunTest {
 protected:
  void SetUp() override;
  void TearDown() override;

  /// Curve of the true ground as measured data, with a uniform start of 185 on panel and in the record.
  void SetUpCase();
  /// A starting profile with given Vs, and the thicknesses of the case, in an entry of a record; the record
  /// claims that many layers.
  void StoreProfile(InvRecord& record, int entry, const std::vector<double>& Vs);
  /// Vs column of a settings record, as far as it has layers.
  static std::vector<double> VsOf(const ModelRecord& m);
  /// Vs column of the soil table.
  static std::vector<double> VsOnPanel();
  /// All messages so far, one per line.
  std::string Messages() const;

  static inline const std::vector<double> kTrueVs = {150.0, 220.0, 300.0};
  static inline const std::vector<double> kStartVs = {185.0, 185.0, 185.0};

  std::string drawn;  ///< notices, in order
};

}  // namespace sondera::testing
