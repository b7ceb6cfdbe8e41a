// Many sites by one script: the list, the script of a site, the results of a run, continuing and resuming.
#include "app/batch/batch.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "app/batch/site_list.h"
#include "app/batch/site_status.h"
#include "support/site_records.h"
#include "support/temp_folder.h"

namespace sondera::batch {
namespace {

const std::string kProgram = std::filesystem::absolute(SONDERA_PROGRAM).string();

class Batch : public ::testing::Test {
 protected:
  int Run(const std::string& arguments) {
    const std::string command = "cd '" + folder.Path() + "' && '" + kProgram + "' batch " + arguments +
                                " >out.log 2>err.log </dev/null";
    const int raw = std::system(command.c_str());
    return WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
  }
  std::string Read(const std::string& name) {
    std::ifstream in(folder.File(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  void Write(const std::string& name, const std::string& text) { std::ofstream(folder.File(name)) << text; }
  bool Exists(const std::string& name) { return std::filesystem::exists(folder.File(name)); }
  /// The reason for which a list is refused.
  std::string FaultOf(const std::string& list) {
    Write("bad.csv", list);
    std::vector<Site> sites;
    return ReadSites(folder.File("bad.csv"), sites);
  }
  /// Two good sites, and one with a missing file.
  void MakeThree() {
    test::WriteSitePair(folder.File("north.hyx"), 14.0, 30.0);
    test::WriteSitePair(folder.File("south.hyx"), 10.0, 20.0);
    Write("sites.csv",
          "site,file,near,far\nnorth,north.hyx,14,30\nlost,none.hyx,1,2\nsouth,south.hyx,10,20\n");
    Write("job.txt",
          "*sondera 2\nread hyx id=pair files=${dir}/${file} source=0 at=${near},${far}\npair pair 1 "
          "2\nphase original\n"
          "mask 0 7\nmask 48 500\ndisperse\nsave ${site}.da\nonerror stop\n");
  }

  test::TempFolder folder;
};

TEST_F(Batch, AListIsReadWithItsColumns) {
  Write("sites.csv", "\xEF\xBB\xBFsite,name of\r\n");
  EXPECT_NE(FaultOf("site,name of\na,b\n").find("line 1: \"name of\" is not a column name"),
            std::string::npos);
  Write("sites.csv", "\xEF\xBB\xBFsite,files\r\nA-1,\"a,b\"\r\n\r\nB.2,\n");
  std::vector<Site> sites;
  ASSERT_EQ(ReadSites(folder.File("sites.csv"), sites), "");
  ASSERT_EQ(sites.size(), 2u);
  EXPECT_EQ(sites[0].name, "A-1");
  EXPECT_EQ(sites[0].values[1].second, "a,b");
  EXPECT_EQ(sites[1].values[1].second, "");
}

TEST_F(Batch, AListThatCannotBeRunIsRefusedByItsLine) {
  EXPECT_NE(FaultOf("").find("holds no site"), std::string::npos);
  EXPECT_NE(FaultOf("id\na\n").find("there is no column \"site\""), std::string::npos);
  EXPECT_NE(FaultOf("site,site\na,b\n").find("is there twice"), std::string::npos);
  EXPECT_NE(FaultOf("site,dir\na,b\n").find("${dir}"), std::string::npos);
  for (const char* name : {"../a", "a/b", ".a", "-a", "", "a b"})
    EXPECT_NE(FaultOf(std::string("site,x\n") + name + ",1\n").find("line 2: "), std::string::npos) << name;
  EXPECT_NE(FaultOf("site\na\nA\n").find("line 3: the site A is there twice"), std::string::npos);
  EXPECT_NE(FaultOf("site,x\na\n").find("line 2: 1 values for 2 columns"), std::string::npos);
  EXPECT_NE(FaultOf("site,x\na,b\"c\n").find("quotation mark"), std::string::npos);
  EXPECT_NE(FaultOf("site,x\na,\"b\"\"c\"\n").find("quotation mark"), std::string::npos);
  EXPECT_NE(FaultOf("site,x\na,\"b\nc\"\n").find("not closed"), std::string::npos);
}

TEST_F(Batch, OnlyColumnsAreReplacedInTheScript) {
  const Site site{"a", {{"site", "a"}, {"x", "$(rm -r ${site})"}}};
  std::string made;
  EXPECT_EQ(ScriptOfSite("open ${dir}/${site}.da $HOME ${x}\n", site, "/data", made), "");
  EXPECT_EQ(made, "open /data/a.da $HOME $(rm -r ${site})\n");
  EXPECT_EQ(ScriptOfSite("a\nb ${y}\n", site, "", made), "line 2: ${y} is not a column of the list");
  EXPECT_NE(ScriptOfSite("a ${x", site, "", made), "");
}

TEST_F(Batch, EachSiteRunsInItsFolderAndTheSummaryHasAllInOrder) {
  MakeThree();
  EXPECT_EQ(Run("sites.csv job.txt --keep-going --jobs=2"), 1) << Read("err.log");
  EXPECT_TRUE(Exists("north/north.da") && Exists("south/south.da"));
  const std::string summary = Read("summary.csv");
  const std::size_t north = summary.find("\nnorth,"), lost = summary.find("\nlost,1,"),
                    south = summary.find("\nsouth,");
  ASSERT_NE(south, std::string::npos) << summary;
  EXPECT_LT(north, lost);
  EXPECT_LT(lost, south);
  EXPECT_NE(summary.find("\nlost,1,script.txt:2: read: "), std::string::npos) << summary;
  SiteStatus status;
  ASSERT_TRUE(ReadStatus(folder.File("north"), status));
  EXPECT_NE(status.status, 1);
  ASSERT_EQ(status.inputs.size(), 1u) << Read("north/session.log");
  EXPECT_TRUE(status.inputs[0].name.ends_with("north.hyx"));
  EXPECT_TRUE(InputsAreUnchanged(folder.File("north"), status.inputs));
  EXPECT_NE(status.figures.find("\"pairs\":1"), std::string::npos) << status.figures;
}

TEST_F(Batch, StopsAfterAFailureUnlessItIsToGoOn) {
  MakeThree();
  EXPECT_EQ(Run("sites.csv job.txt"), 1);
  EXPECT_TRUE(Exists("lost"));
  EXPECT_FALSE(Exists("south"));
  EXPECT_NE(Read("summary.csv").find("\nsouth,,not run,"), std::string::npos) << Read("summary.csv");
}

TEST_F(Batch, ResumeSkipsOnlyWhatIsDoneAndUnchanged) {
  MakeThree();
  Write("sites.csv", "site,file,near,far\nnorth,north.hyx,14,30\nsouth,south.hyx,10,20\n");
  ASSERT_NE(Run("sites.csv job.txt"), 1) << Read("err.log");
  ASSERT_NE(Run("sites.csv job.txt --resume"), 1);
  EXPECT_EQ(Read("err.log"), "north: done before\nsouth: done before\n");
  test::WriteSitePair(folder.File("south.hyx"), 10.0, 22.0);  // another file
  ASSERT_NE(Run("sites.csv job.txt --resume"), 1);
  EXPECT_TRUE(Read("err.log").starts_with("north: done before\nsouth: status ")) << Read("err.log");
  Write("sites.csv", "site,file,near,far\nnorth,north.hyx,14,31\nsouth,south.hyx,10,20\n");  // another row
  ASSERT_NE(Run("sites.csv job.txt --resume"), 1);
  EXPECT_NE(Read("err.log").find("north: status "), std::string::npos) << Read("err.log");
  EXPECT_NE(Read("err.log").find("south: done before"), std::string::npos);
  Write("job.txt", Read("job.txt") + "# another script\n");
  ASSERT_NE(Run("sites.csv job.txt --resume"), 1);
  EXPECT_EQ(Read("err.log").find("done before"), std::string::npos);
}

TEST_F(Batch, OneRowRunsAloneAndTheFoldersGiveTheSameSummary) {
  MakeThree();
  for (const char* row : {"1", "3"})
    EXPECT_NE(Run(std::string("sites.csv job.txt --only=") + row), 1) << Read("err.log");
  EXPECT_FALSE(Exists("summary.csv"));
  EXPECT_EQ(Run("sites.csv job.txt --only=4"), 1);
  EXPECT_EQ(Run("sites.csv job.txt --collect"), 1);  // one was not run
  EXPECT_NE(Read("summary.csv").find("\nlost,,not run,"), std::string::npos) << Read("summary.csv");
  EXPECT_EQ(Run("sites.csv job.txt --only=2"), 1);
  EXPECT_EQ(Run("sites.csv job.txt --collect"), 1);
  EXPECT_NE(Read("summary.csv").find("\nlost,1,"), std::string::npos) << Read("summary.csv");
}

TEST_F(Batch, OptionsBelongToIt) {
  EXPECT_EQ(Run("sites.csv job.txt --jobs=0"), 1);
  EXPECT_NE(Read("err.log").find("--jobs= takes a number"), std::string::npos) << Read("err.log");
  EXPECT_EQ(Run("none.csv job.txt"), 1);
  EXPECT_NE(Read("err.log").find("nothing was run"), std::string::npos) << Read("err.log");
  EXPECT_EQ(Run("sites.csv"), 1);
  EXPECT_NE(Read("err.log").find("it is sondera batch <sites.csv> <script>"), std::string::npos);
}

}  // namespace
}  // namespace sondera::batch
