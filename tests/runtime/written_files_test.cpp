#include "runtime/written_files.h"

#include <gtest/gtest.h>

#include "runtime/atomic_writer.h"
#include "support/temp_folder.h"

namespace sondera {
namespace {

TEST(WrittenFiles, HoldEachFileThatIsInPlaceOnce) {
  const test::TempFolder folder;
  ClearWrittenFiles();
  for (const char* name : {"a.txt", "b.txt", "a.txt"}) {
    TextWriter file(folder.File(name));
    file.Put("text");
    ASSERT_TRUE(file.Close());
  }
  { TextWriter notClosed(folder.File("c.txt")); }
  TextWriter nowhere(folder.File("none/d.txt"));
  EXPECT_FALSE(nowhere.Close());
  EXPECT_EQ(WrittenFiles(), (std::vector<std::string>{folder.File("a.txt"), folder.File("b.txt")}));
  ClearWrittenFiles();
  EXPECT_TRUE(WrittenFiles().empty());
}

}  // namespace
}  // namespace sondera
