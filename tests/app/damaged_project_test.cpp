// A damaged project that is opened and saved again: what could not be read must stay somewhere.
#include "app/app_fixture.h"
#include "app/command_line.h"
#include "project/project_file.h"
#include "project/session.h"
#include "runtime/panels/measpanel.h"

namespace sondera {
namespace {

class DamagedProject : public testing::AppTest {
 protected:
  std::string Read(const std::string& name) {
    std::ifstream in(folder.File(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  /// A saved project with its end cut off, opened.
  void OpenCutProject() {
    session.projectFileName = folder.File("site.da");
    ASSERT_EQ(Commit(measpanel::F6), 0);
    cut = Read("site.da");
    cut.resize(cut.size() / 2);
    std::ofstream(folder.File("site.da"), std::ios::binary) << cut;
    StartSession();
    ASSERT_EQ(OpenFileProc(folder.File("site.da")), -1);
    ASSERT_EQ(frontEnd.messages.size(), 1u);
  }
  std::string cut;
};

TEST_F(DamagedProject, StaysInTheBackupThroughAnyNumberOfSaves) {
  OpenCutProject();
  for (int save = 0; save < 3; ++save) {
    ASSERT_EQ(Commit(measpanel::F6), 0);
    EXPECT_EQ(Read("site.da.bkup"), cut) << "save " << save;
  }
  EXPECT_NE(Read("site.da"), cut);
}

TEST_F(DamagedProject, IsNotOverwrittenWhenItCannotBeCopied) {
  OpenCutProject();
  std::filesystem::create_directory(folder.File("site.da.bkup"));
  EXPECT_EQ(Commit(measpanel::F6), -1);
  EXPECT_EQ(Read("site.da"), cut);
  EXPECT_EQ(frontEnd.messages.size(), 2u);
}

TEST_F(DamagedProject, AnotherProjectOpenedLaterIsBackedUpAsEver) {
  OpenCutProject();
  ASSERT_EQ(Commit(measpanel::F6), 0);
  ASSERT_EQ(OpenFileProc(folder.File("site.da")), 0) << "whole again";
  const std::string whole = Read("site.da");
  ASSERT_EQ(Commit(measpanel::F6), 0);
  EXPECT_EQ(Read("site.da.bkup"), whole);
}

}  // namespace
}  // namespace sondera
