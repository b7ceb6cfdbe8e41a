// ps_fixture.h - start of every test of the PostScript library: fresh state, a folder, and short functions
// for the bytes and marks of a drawing.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "plot_ps/plot_ps.h"
#include "support/ghostscript.h"
#include "support/temp_folder.h"

namespace sondera::testing {

constexpr float kNan = std::numeric_limits<float>::quiet_NaN(), kInf = std::numeric_limits<float>::infinity();
constexpr double kCm = 28.346457;  // points

using Drawing = std::function<void()>;

class PsTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  /// A whole document of one drawing, and its name; checked for its grammar.
  std::string FileOf(const Drawing& draw);
  std::string BytesOf(const Drawing& draw) { return test::ReadWhole(FileOf(draw)); }
  /// Only the statements of a drawing, from after the first origin to its last one.
  std::string Drawn(const Drawing& draw);
  /// Marks of a drawing; fails the test when Ghostscript does. Skip without Ghostscript first.
  test::Trace Traced(const Drawing& draw);
  /// What a drawing says on the error stream, and the statements that it leaves in `drawn`, if given.
  std::string Said(const Drawing& draw, std::string* drawn = nullptr);

  test::TempFolder folder;
};

/// "12.3 4.5" as in the file.
std::string Tenths(double x, double y);
/// The same for cm.
std::string Cm(double x, double y);
std::vector<std::string> Lines(const std::string& text);

}  // namespace sondera::testing
