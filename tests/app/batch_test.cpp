// Many sites by one script: the list, the script of a site, the results of a run, continuing and resuming.
#include "app/batch/batch.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <sstream>
#include <thread>

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

/// A list of `sites` whose script runs at once, and one line of the table for the script of a site.
class BatchOfMany : public Batch {
 protected:
  void MakeMany(int sites) {
    std::string list = "site,near,far\n";
    for (int i = 0; i < sites; ++i)
      list += "s" + std::to_string(i) + "," + std::to_string(10 + i % 5) + ",30\n";
    Write("sites.csv", list);
    test::WriteSitePair(folder.File("pair.hyx"), 14.0, 30.0);
    Write("job.txt",
          "*sondera 2\nread hyx id=pair files=${dir}/pair.hyx source=0 at=${near},${far}\npair pair 1 2\n"
          "phase original\nmask 0 7\nmask 48 500\ndisperse\nwrite csv t only=curves\nsave ${site}.da\n");
  }
  /// The same script with `times` more presses, so that a process lives for a while.
  void WriteLongJob(int times, const std::string& end = "") {
    std::string job = Read("job.txt");
    for (int i = 0; i < times; ++i) job += "disperse\n";
    Write("job.txt", job + end);
  }
  /// The summary without its last column: runs differ in their seconds.
  std::string Summary() {
    std::istringstream in(Read("summary.csv"));
    std::string text;
    for (std::string line; std::getline(in, line);) text += line.substr(0, line.rfind(',')) + "\n";
    return text;
  }
  /// Starts a batch in the background; its process.
  pid_t Start(const std::vector<std::string>& options) {
    const pid_t process = ::fork();
    if (process != 0) return process;
    const int null = ::open("/dev/null", O_RDWR);
    for (const int stream : {0, 1, 2}) ::dup2(null, stream);
    std::vector<std::string> words = {"sondera", "batch", "sites.csv", "job.txt"};
    words.insert(words.end(), options.begin(), options.end());
    std::vector<char*> argv;
    for (std::string& word : words) argv.push_back(word.data());
    argv.push_back(nullptr);
    if (::chdir(folder.Path().c_str()) == 0) ::execv(kProgram.c_str(), argv.data());
    ::_exit(127);
  }
  static int StatusOf(pid_t process) {
    int raw = 0;
    ::waitpid(process, &raw, 0);
    return WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
  }
  /// The process that works in a folder; 0 for none.
  static pid_t ProcessIn(const std::string& place) {
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
      std::error_code error;
      const std::string name = entry.path().filename();
      if (name.find_first_not_of("0123456789") != std::string::npos) continue;
      if (std::filesystem::read_symlink(entry.path() / "cwd", error) == place && !error)
        return static_cast<pid_t>(std::stol(name));
    }
    return 0;
  }
};

TEST_F(BatchOfMany, KilledTenTimesAndResumedItGivesWhatOneRunGives) {
  MakeMany(20);
  ASSERT_NE(Run("sites.csv job.txt --jobs=2"), 1) << Read("err.log");
  const std::string whole = Summary();
  std::vector<std::string> files;
  for (int i = 0; i < 20; ++i) {
    const std::string site = "s" + std::to_string(i);
    files.push_back(Read(site + "/t_curves.csv") + Read(site + "/" + site + ".da"));
    ASSERT_GT(files.back().size(), 1000u);
    std::filesystem::remove_all(folder.File(site));
  }
  std::filesystem::remove(folder.File("summary.csv"));
  std::mt19937 random(7);
  int killed = 0;
  for (int i = 0; i < 10; ++i) {
    const pid_t batch = Start({"--jobs=2", "--resume"});
    std::this_thread::sleep_for(std::chrono::milliseconds(random() % 120));
    ::kill(batch, SIGKILL);
    killed += StatusOf(batch) == -1;
  }
  EXPECT_GT(killed, 2) << "a batch that has ended cannot be killed";
  ASSERT_NE(Run("sites.csv job.txt --jobs=2 --resume"), 1) << Read("err.log");
  EXPECT_EQ(Summary(), whole);
  for (int i = 0; i < 20; ++i) {
    const std::string site = "s" + std::to_string(i);
    EXPECT_TRUE(Read(site + "/t_curves.csv") + Read(site + "/" + site + ".da") ==
                files[static_cast<std::size_t>(i)])
        << site;
  }
}

TEST_F(BatchOfMany, ASiteEndsWithItsBatch) {
  MakeMany(1);
  WriteLongJob(20000);
  const pid_t batch = Start({});
  pid_t site = 0;
  for (int i = 0; i < 500 && site == 0; ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
    site = ProcessIn(folder.File("s0"));
  }
  ASSERT_NE(site, 0);
  ::kill(batch, SIGKILL);
  StatusOf(batch);
  for (int i = 0; i < 500 && ProcessIn(folder.File("s0")) != 0; ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  EXPECT_EQ(ProcessIn(folder.File("s0")), 0);
}

TEST_F(BatchOfMany, ACrashAMissingFileAndATrappedRunLeaveTheOthersAlone) {
  MakeMany(1);
  Write("job.txt",
        "*sondera 2\nread hyx id=pair files=${dir}/${file} source=0 at=14,30\npair pair 1 2\n"
        "phase original\nmask 0 7\nmask 48 500\n");
  WriteLongJob(300,
               "condense points=12\nlayers 2,3,4,6,80\nload global\n"
               "invert iterations=8 lb_vs=${least}\nonerror stop\n");
  Write("sites.csv",
        "site,file,least\none,pair.hyx,1\ncrash,pair.hyx,1\nlost,none.hyx,1\ntrapped,pair.hyx,179.99\n"
        "last,pair.hyx,1\n");
  const pid_t batch = Start({"--keep-going"});
  pid_t site = 0;
  for (int i = 0; i < 20000 && site == 0; ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
    site = ProcessIn(folder.File("crash"));
  }
  ASSERT_NE(site, 0);
  ::kill(site, SIGSEGV);
  EXPECT_EQ(StatusOf(batch), 1);
  const std::string summary = Summary();
  EXPECT_NE(summary.find("\ncrash,1,ended by signal 11,"), std::string::npos) << summary;
  EXPECT_NE(summary.find("\nlost,1,script.txt:2: read: "), std::string::npos) << summary;
  EXPECT_NE(summary.find("\ntrapped,1,script.txt:310: invert: Warning: Reduce the uncertainty factor"),
            std::string::npos)
      << summary;
  for (const char* good : {"one", "last"}) {
    SiteStatus status;
    ASSERT_TRUE(ReadStatus(folder.File(good), status)) << summary;
    EXPECT_NE(status.status, 1) << status.reason;
  }
}

TEST_F(BatchOfMany, AnInterruptStartsNoFurtherSiteAndIterationsAreFinished) {
  MakeMany(1);
  // Many layers make an iteration long enough to be interrupted in its middle.
  Write("job.txt", Read("job.txt") +
                       "condense points=40\nlayers 1,1,1,1,1,2,2,2,3,3,4,6,80\nload global\n"
                       "invert iterations=${most}\n");
  Write("sites.csv", "site,near,far,most\na,10,30,500\nb,11,30,1\nc,12,30,1\n");
  const pid_t batch = Start({"--keep-going"});
  bool runs = false;
  for (int i = 0; i < 2000 && !runs; ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
    if (!Exists("a")) continue;
    for (const auto& entry : std::filesystem::directory_iterator(folder.File("a")))
      runs = runs || entry.path().filename().string().find(".pcm.saving-") != std::string::npos;
  }
  ASSERT_TRUE(runs) << Read("a/log.txt");
  ::kill(batch, SIGINT);
  EXPECT_EQ(StatusOf(batch), 1);
  EXPECT_FALSE(Exists("b") || Exists("c"));
  const std::string said = Read("a/log.txt");
  EXPECT_NE(said.find("The inversion was halted."), std::string::npos) << said;
  EXPECT_EQ(said.find("nothing is kept of this run"), std::string::npos) << said;
  EXPECT_NE(said.find("halted here"), std::string::npos) << said;
  const std::string summary = Summary();
  EXPECT_NE(summary.find("\na,1,"), std::string::npos) << summary;
  EXPECT_NE(summary.find("\nb,,not run,"), std::string::npos) << summary;
  EXPECT_NE(summary.find("\nc,,not run,"), std::string::npos) << summary;
}

TEST_F(BatchOfMany, DoubtsOfASiteAreTheStatusOfTheBatch) {
  MakeMany(1);
  std::istringstream pair(Read("pair.hyx"));
  std::string zeros;
  for (std::string line; std::getline(pair, line);)
    zeros += line.substr(0, line.find_first_of(" \t,", line.find_first_not_of(" \t"))) + " 0 0\n";
  Write("zeros.hyx", zeros);
  Write("job.txt", "*sondera 2\nread hyx id=pair files=${dir}/${file} source=0 at=14,30\n");
  Write("sites.csv", "site,file\ncalm,pair.hyx\ndoubtful,zeros.hyx\ncalm2,pair.hyx\n");
  EXPECT_EQ(Run("sites.csv job.txt"), 3) << Read("err.log");
  const std::string summary = Summary();
  EXPECT_NE(summary.find("\ncalm,0,,"), std::string::npos) << summary;
  EXPECT_NE(summary.find("\ndoubtful,3,\"doubts, see log.txt\","), std::string::npos) << summary;
  EXPECT_NE(Read("doubtful/log.txt").find("doubt: "), std::string::npos) << Read("doubtful/log.txt");
  Write("sites.csv", "site,file\ncalm,pair.hyx\n");
  EXPECT_EQ(Run("sites.csv job.txt"), 0) << Read("err.log");
}

TEST_F(BatchOfMany, ValuesOfTheListReachNoShell) {
  MakeMany(1);
  Write("sites.csv",
        "site,text,file\none,$(touch made); touch made | `touch made` && rm -rf ..,../pair.hyx\n");
  Write("job.txt", "*sondera 2\nprint \"${text}\"\nread hyx id=pair files=${file} source=0 at=14,30\n");
  EXPECT_NE(Run("sites.csv job.txt"), 1) << Read("one/log.txt");
  EXPECT_NE(Read("one/log.txt").find("$(touch made); touch made | `touch made` && rm -rf ..\n"),
            std::string::npos)
      << Read("one/log.txt");
  EXPECT_FALSE(Exists("made") || Exists("one/made"));
  EXPECT_TRUE(Exists("pair.hyx"));
  Write("job.txt", "*sondera 2\nsave \"${text}.da\"\n");
  Write("sites.csv", "site,text\none,a b;c\n");
  EXPECT_NE(Run("sites.csv job.txt"), 1) << Read("one/log.txt");
  EXPECT_TRUE(Exists("one/a b;c.da"));
}

TEST_F(BatchOfMany, RowsRunByAnotherProgramGiveTheSameSummary) {
  MakeMany(4);
  ASSERT_NE(Run("sites.csv job.txt"), 1) << Read("err.log");
  const std::string whole = Summary();
  for (int i = 0; i < 4; ++i) std::filesystem::remove_all(folder.File("s" + std::to_string(i)));
  if (std::system("parallel --version >/dev/null 2>&1") != 0) GTEST_SKIP() << "no GNU parallel";
  ASSERT_NE(std::system(("cd '" + folder.Path() + "' && parallel -j 2 \"'" + kProgram +
                         "'\" batch sites.csv job.txt --only={} ::: 1 2 3 4 >par.log 2>&1 </dev/null")
                            .c_str()),
            -1);
  ASSERT_NE(Run("sites.csv job.txt --collect"), 1) << Read("par.log");
  EXPECT_EQ(Summary(), whole);
}

}  // namespace
}  // namespace sondera::batch
