// The reference of the controls: the page in docs/ is what the program prints, and every control is in it.
#include "app/control_reference.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "app/command_line.h"
#include "runtime/control.h"

namespace sondera {
namespace {

TEST(ControlReference, IsThePageOfTheDocumentation) {
  std::ifstream file(SONDERA_SOURCE_DIR "/docs/controls.md");
  std::stringstream page;
  page << file.rdbuf();
  EXPECT_EQ(page.str(), ControlReference())
      << "sondera --help controls > docs/controls.md brings it up to date";
  EXPECT_EQ(HelpText("controls"), ControlReference());
}

TEST(ControlReference, HasEveryControlWithItsHint) {
  const std::string text = ControlReference();
  for (int i = 0; i < kPanelCount; ++i)
    for (const ControlId c : ControlsOf(static_cast<Panel>(i))) {
      const std::string name = SpokenName(*c).empty() ? "" : SpokenName(*c) + " ";
      EXPECT_NE(text.find("| `" + std::string(c->name) + "` | " + name + "|"), std::string::npos) << c->name;
      EXPECT_NE(text.find(std::string(c->facts.hint)), std::string::npos) << c->name;
    }
}

}  // namespace
}  // namespace sondera
