// The word figure: a graph as a file.
#include <gtest/gtest.h>

#include "runtime/catalogue/measpanel.h"
#include "runtime/graphs.h"
#include "runtime/paths.h"
#include "script_fixture.h"

namespace sondera::testing {
namespace {

class ScriptFigure : public ScriptTest {};

TEST_F(ScriptFigure, WritesTheGraphAsItStands) {
  PlotXY(measpanel::DISPLAY_A, {1.0, 2.0}, {3.0, 4.0}, PlotStyle::Line, kNoMarker, 0x123456);
  const std::string name = folder.File("a.svg");
  EXPECT_EQ(Run("figure MEASPANEL.DISPLAY_A \"" + name + "\" width=400 height=300\n"), 0) << err;
  const std::string svg = Read("a.svg");
  EXPECT_NE(svg.find("width=\"300pt\" height=\"225pt\""), std::string::npos);
  EXPECT_NE(svg.find("#123456"), std::string::npos);
}

TEST_F(ScriptFigure, FaultsAreFoundBeforeTheRun) {
  EXPECT_EQ(Check("figure MEASPANEL.DISPLAY_A a.jpg\n"), 1);
  EXPECT_NE(err.find(".pdf, .svg or .png"), std::string::npos) << err;
  EXPECT_EQ(Check("figure MEASPANEL.DISPLAY_A a.svg width=99\n"), 1);
  EXPECT_NE(err.find("width= is 100 to 10000 pixels"), std::string::npos) << err;
  EXPECT_EQ(Check("figure MEASPANEL.PROJID a.svg\n"), 1);
}

TEST_F(ScriptFigure, AFolderThatIsNotThereStopsTheScript) {
  EXPECT_EQ(Run("figure MEASPANEL.DISPLAY_A \"" + folder.File("no/a.svg") + "\"\n"), 1);
  EXPECT_NE(err.find("no/a.svg"), std::string::npos) << err;
}

}  // namespace
}  // namespace sondera::testing
