// Tests of the built program as a person or a job runner starts it: exit status, standard error, files.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "support/no_display.h"
#include "support/site_records.h"
#include "support/small_disk.h"
#include "support/temp_folder.h"
#include "support/tool_run.h"

namespace sondera {
namespace {

const std::string kExample =
    std::filesystem::absolute(SONDERA_SOURCE_DIR "/examples/one_pair/job.txt").string();

struct Outcome {
  int status = -1;
  std::string out, err;
};

class Program : public ::testing::Test {
 protected:
  Program() { test::TakeDisplayAway(); }
  Outcome Run(const std::string& arguments) {
    const std::string command =
        "cd '" + folder.Path() + "' && '" SONDERA_PROGRAM "' " + arguments + " >out.log 2>err.log </dev/null";
    const int raw = std::system(command.c_str());
    return {WIFEXITED(raw) ? WEXITSTATUS(raw) : -1, Read("out.log"), Read("err.log")};
  }
  std::string Read(const std::string& name) {
    std::ifstream in(folder.File(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  void FetchExample() {
    std::filesystem::copy_file(kExample, folder.File("job.txt"));
    test::WriteSitePair(folder.File("pair.hyx"), 14.0, 30.0, 129);
  }
  void Write(const std::string& name, const std::string& text) { std::ofstream(folder.File(name)) << text; }

  test::TempFolder folder;
};

TEST_F(Program, HelpAndVersionGoToStandardOutput) {
  Outcome o = Run("--help");
  EXPECT_EQ(o.status, 0);
  EXPECT_NE(o.out.find("sondera auto new"), std::string::npos);
  o = Run("--version");
  EXPECT_EQ(o.status, 0);
  EXPECT_EQ(o.out, "Sondera 4.1\n");
}

TEST_F(Program, AnUnknownOptionIsRefusedWithOneLine) {
  const Outcome o = Run("--yse auto new x job.txt");
  EXPECT_EQ(o.status, 1);
  EXPECT_EQ(o.err, "sondera: unknown option --yse; sondera --help lists the options.\n");
}

/// Of both builds, with windows and without them.
bool SaysWhyThereAreNoWindows(const std::string& err) {
  return err.find("sondera: there is no display to show windows on; give a command script") !=
             std::string::npos ||
         err.find("sondera: this build has no windows; give a command script") != std::string::npos;
}

TEST_F(Program, WithoutADisplayAnInteractiveSessionEndsAndSaysWhy) {
  const Outcome o = Run("");
  EXPECT_EQ(o.status, 1);
  EXPECT_TRUE(SaysWhyThereAreNoWindows(o.err)) << o.err;
  EXPECT_EQ(o.err.find("qt."), std::string::npos) << "no message of the toolkit: " << o.err;
  EXPECT_NE(o.err.find("sondera auto new <name> <script>"), std::string::npos) << o.err;
}

/// Qt lists its plug-ins on request: a script that ends creates no application, on any display.
TEST_F(Program, AScriptMakesNoApplicationOfTheToolkit) {
  Write("job.txt", "*sondera 2\n");
  setenv("QT_DEBUG_PLUGINS", "1", 1);
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  const Outcome o = Run("run job.txt");
  unsetenv("QT_DEBUG_PLUGINS");
  EXPECT_EQ(o.status, 0);
  EXPECT_EQ(o.err.find("qt."), std::string::npos) << o.err;
}

/// Loading the libraries of the windows takes longer than all the rest of a start.
TEST_F(Program, LoadsTheWindowsOnlyWhereTheyAreShown) {
  Write("ask.sh", "ldd '" SONDERA_PROGRAM "'\n");
  const std::string loaded = test::RunTool("sh '" + folder.File("ask.sh") + "'").output;
  EXPECT_NE(loaded.find("libc.so"), std::string::npos) << loaded;
  EXPECT_EQ(loaded.find("Qt6"), std::string::npos) << loaded;
}

TEST_F(Program, WithoutTheFileOfTheWindowsItSaysSoAndRunsScripts) {
  if (!std::filesystem::exists(std::filesystem::path(SONDERA_PROGRAM).replace_filename("sondera-windows.so")))
    GTEST_SKIP() << "this build has no windows";
  std::filesystem::copy_file(SONDERA_PROGRAM, folder.File("alone"));
  Write("job.txt", "*sondera 2\n");
  const auto alone = [&](const std::string& words) {
    return test::RunTool("cd '" + folder.Path() + "' && QT_QPA_PLATFORM=offscreen ./alone " + words +
                         " 2>&1 </dev/null");
  };
  const auto session = alone("");
  EXPECT_NE(session.status, 0);
  EXPECT_TRUE(
      session.output.starts_with("sondera: the file of the windows, sondera-windows.so, is not there; give a "
                                 "command script"))
      << session.output;
  EXPECT_EQ(alone("run job.txt").status, 0);
  Write("sondera-windows.so", "no library");
  EXPECT_TRUE(alone("").output.starts_with("sondera: the windows cannot be loaded: ")) << alone("").output;
}

TEST_F(Program, BatchOpensNoWindow) {
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  const Outcome o = Run("--batch");
  EXPECT_EQ(o.status, 1);
  EXPECT_NE(o.err.find("windows; give a command script"), std::string::npos) << o.err;
}

TEST_F(Program, WordsThatAreNoCommandAreToldWithTheUsage) {
  Write("job.txt", "export out measID 1 2 3\n");
  for (const auto& [words, complaint] : std::initializer_list<std::pair<const char*, const char*>>{
           {"auto new x", "sondera: auto takes three words"},
           {"one two three", "sondera: \"one\" with 2 words after it is not a command."},
           {"-h", "sondera: \"-h\" alone is taken for the name of a project file."},
           {"export", "sondera: \"export\" alone is taken"},
           {"auto new '' job.txt", "sondera: the name of the new project is empty."}}) {
    const Outcome o = Run(words);
    EXPECT_EQ(o.status, 1) << words;
    EXPECT_NE(o.err.find(complaint), std::string::npos) << words << ": " << o.err;
    EXPECT_TRUE(SaysWhyThereAreNoWindows(o.err)) << words << ": " << o.err;
    EXPECT_NE(o.err.find("sondera auto new <name> <script>"), std::string::npos) << words << ": " << o.err;
  }
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"err.log", "job.txt", "out.log"}));
}

/// The example without its last steps: from the import to the curve.
constexpr const char* kToTheCurve = "import pair pair 14 30\nmasking pair 0 600 450 110 80\ncalcVel\n";

TEST_F(Program, TheExampleRunsFromImportToProfile) {
  FetchExample();
  const Outcome o = Run("--batch auto new site job.txt");
  EXPECT_EQ(o.status, 0) << o.err;
  EXPECT_EQ(o.out, "");
  for (const char* name : {"site.da", "site.da.bkup", "site_f.results", "ProjID.fdp", "ProjID.fmp",
                           "ProjID.pfl", "ProjID.fsp", "ProjID.pcm", "ProjID.n", "ProjID.r", "site_pair.hyx"})
    EXPECT_GT(std::filesystem::file_size(folder.File(name)), 100u) << name;
  const std::string models = Read("ProjID.fmp");
  for (const char* head : {"Iteration no. :  0 (3-D Inversion)", "Iteration no. :  5 (3-D Inversion)"})
    EXPECT_NE(models.find(head), std::string::npos) << head;
  EXPECT_EQ(models.find("nan"), std::string::npos);
  EXPECT_EQ(models.find("inf"), std::string::npos);
}

/// Each kill comes when the run has made a certain file, so that it always happens during the run, however
/// fast the machine is.
TEST_F(Program, AKilledRunLeavesAReadableProject) {
  FetchExample();
  Write("look.txt", "export out pair 1 2 3\n");
  struct Moment {
    const char* file;  // pattern of the shell
    bool imported;     // the project contains the measurement by then; otherwise it may
  };
  for (const Moment& moment :
       {Moment{"site.da", false}, Moment{"site.da.bkup", false}, Moment{"ProjID.pcm.saving-*-0", true}}) {
    for (const auto& name : folder.Names())
      if (name.starts_with("site.da") || name.starts_with("ProjID.") || name == "out.hyx")
        std::filesystem::remove(folder.File(name));
    const std::string killed =
        "cd '" + folder.Path() +
        "' && { '" SONDERA_PROGRAM
        "' --batch auto new site job.txt >/dev/null 2>&1 </dev/null & p=$!; while [ ! -s " +
        moment.file + " ] && kill -0 $p; do sleep 0.005; done; kill -KILL $p; wait $p; }";
    const int raw = std::system((killed + " 2>/dev/null").c_str());
    ASSERT_EQ(WEXITSTATUS(raw), 128 + 9) << moment.file << ": the run was not killed";
    ASSERT_TRUE(std::filesystem::exists(folder.File("site.da"))) << moment.file;
    const Outcome o = Run("--batch auto old site.da look.txt");
    // Killed before the import was saved, the project contains the empty measurement from its beginning.
    const bool early = o.err.starts_with("Sondera 4.1: There is no measurement \"pair\" in the project.\n");
    EXPECT_FALSE(early && moment.imported) << moment.file;
    EXPECT_EQ(o.status, early ? 1 : 0) << "killed at " << moment.file << ": " << o.err;
    EXPECT_EQ(std::filesystem::exists(folder.File("out.hyx")), !early) << moment.file;
  }
}

TEST_F(Program, ExportsThePairOfTheExample) {
  FetchExample();
  Write("curve.txt", kToTheCurve);
  ASSERT_EQ(Run("auto new site curve.txt").status, 0);
  const Outcome o = Run("export site.da out pair 1 2 3");
  EXPECT_EQ(o.status, 0) << o.err;
  EXPECT_EQ(o.err, "");
  for (const char* name : {"out.TFp", "out.TFa", "out.hyxSM", "out.hyx"})
    EXPECT_GE(std::filesystem::file_size(folder.File(name)), 128u * 3 * 13) << name;
}

TEST_F(Program, WritesTheReportOfAProject) {
  FetchExample();
  Write("curve.txt", kToTheCurve);
  ASSERT_EQ(Run("auto new site curve.txt").status, 0);
  const std::string project = Read("site.da");
  Outcome o = Run("--batch --report=out.ps site.da");
  EXPECT_EQ(o.status, 0) << o.err;
  EXPECT_NE(o.err.find("No results of the inv. analysis are available for plotting."), std::string::npos)
      << o.err;
  const std::string report = Read("out.ps");
  EXPECT_NE(report.find("(Phase-Velocity Dispersion Curve in Wavelength Domain) S"), std::string::npos);
  EXPECT_EQ(Run("--report=out.ps site.da").status, 0);
  EXPECT_TRUE(Read("out.ps") == report);
  EXPECT_TRUE(Read("site.da") == project);
  for (const char* wrong : {"--report=nowhere/out.ps site.da", "--report=out.ps none.da", "--report=out.ps",
                            "--report= site.da", "--report=/dev/full site.da", "--report=site.da site.da"}) {
    o = Run(wrong);
    EXPECT_EQ(o.status, 1) << wrong;
    EXPECT_NE(o.err, "") << wrong;
  }
  EXPECT_TRUE(Read("out.ps") == report);
  EXPECT_TRUE(Read("site.da") == project);
}

/// Words of each line that begins with a number, from a line with that head to the next one without.
std::vector<std::vector<std::string>> RowsBelow(const std::string& text, const std::string& head) {
  std::vector<std::vector<std::string>> rows;
  std::istringstream lines(text.substr(std::min(text.rfind(head), text.size())));
  std::string line;
  std::getline(lines, line);
  while (std::getline(lines, line)) {
    std::istringstream words(line);
    std::vector<std::string> row{std::istream_iterator<std::string>(words), {}};
    if (row.empty() || !std::isdigit(static_cast<unsigned char>(row[0][0]))) {
      if (!rows.empty()) break;
      continue;
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

/// A number as it is printed is the other one, rounded; that one has three decimals and more.
void ExpectRounded(const std::string& printed, const std::string& exact, const std::string& where) {
  const std::size_t point = printed.find('.');
  const double step = point == std::string::npos ? 1.0 : std::pow(10.0, -double(printed.size() - point - 1));
  EXPECT_NEAR(std::stod(printed), std::stod(exact), 0.5 * step + 0.00051) << where;
}

TEST_F(Program, ThePdfHasTheNumbersOfTheResultBoxAndOfTheResultFiles) {
  if (!test::HaveTool("pdftotext")) GTEST_SKIP() << "no program pdftotext";
  FetchExample();
  ASSERT_EQ(Run("--batch auto new site job.txt").status, 0);
  const Outcome o = Run("--report=out.pdf site.da");
  if (o.err.find("built without PDF") != std::string::npos) GTEST_SKIP() << o.err;
  ASSERT_EQ(o.status, 0) << o.err;
  const std::string pdf = test::RunTool("pdftotext -layout " + folder.File("out.pdf") + " -").output;
  const std::string box = Read("site_f.results"), file = Read("ProjID.fmp");
  // layer, top, thickness, Vs, low "to" high, resolution, Vp, Poisson, density, held
  const auto report = RowsBelow(pdf, "Top, m");
  // layer, depth, thickness, Vp, Vs, upper, lower, density, Poisson, damping; the file has its limits the other way round
  const auto layers = RowsBelow(box, "Layer No."), stored = RowsBelow(file, "Layer No.");
  const auto resolution = RowsBelow(box, "Layer   Resolution");
  ASSERT_EQ(report.size(), 6u) << pdf;
  ASSERT_EQ(layers.size(), 6u);
  ASSERT_EQ(stored.size(), 6u);
  ASSERT_EQ(resolution.size(), 6u);
  for (std::size_t i = 0; i < 6; ++i) {
    const auto &r = report[i], &b = layers[i], &f = stored[i];
    const std::string where = "layer " + std::to_string(i + 1);
    ASSERT_EQ(r.size(), 12u) << where << pdf;
    ASSERT_EQ(b.size(), 10u) << where;
    for (const auto& [column, number] : {std::pair(1, 1), {3, 4}, {4, 6}, {6, 5}, {8, 3}, {9, 8}, {10, 7}})
      ExpectRounded(r[std::size_t(column)], b[std::size_t(number)], where);
    for (const auto& [column, number] : {std::pair(1, 1), {3, 4}, {4, 5}, {6, 6}, {8, 3}, {9, 8}, {10, 7}})
      ExpectRounded(r[std::size_t(column)], f[std::size_t(number)], where + " of the file");
    if (i < 5) ExpectRounded(r[2], b[2], where);
    ExpectRounded(r[7], resolution[i][1], where);
  }
  const std::size_t misfit = pdf.find("RMS "), last = file.rfind("(Vel=");
  ASSERT_NE(misfit, std::string::npos);
  ASSERT_NE(last, std::string::npos);
  const double rms = std::stod(file.substr(last + 5));
  EXPECT_NEAR(std::stod(pdf.substr(misfit + 4)), rms, 5e-4 * rms);
}

TEST_F(Program, AReportOnADiskThatFillsUpIsOneLineAndTheFormerOneStays) {
  FetchExample();
  Write("curve.txt", kToTheCurve);
  ASSERT_EQ(Run("auto new site curve.txt").status, 0);
  const test::SmallDisk disk(16384);
  for (const std::string name : {"out.ps", "out.pdf", "out.svg"}) {
    const std::string path = disk.File(name);
    test::WriteWhole(path, "former");
    Outcome o;
    if (name == "out.svg") {
      Write("draw.txt",
            "*sondera 2\nopen site.da\nplot DISPCURV.DISPGRAPH\nfigure DISPCURV.DISPGRAPH " + path + "\n");
      o = Run("--batch run draw.txt");
    } else {
      o = Run("--batch --report=" + path + " site.da");
    }
    if (o.err.find("built without PDF") != std::string::npos) continue;
    EXPECT_EQ(o.status, 1) << name << o.err;
    const std::size_t at = o.err.find(disk.Reason());
    EXPECT_NE(at, std::string::npos) << o.err;
    EXPECT_EQ(o.err.find(disk.Reason(), at + 1), std::string::npos) << "told once: " << o.err;
    EXPECT_EQ(test::ReadWhole(path), "former");
    EXPECT_EQ(disk.Names(), std::vector<std::string>{name});
    std::filesystem::remove(path);
  }
}

TEST_F(Program, AFailedCommandGivesStatusOneAndAClosingLineWithItsName) {
  Write("job.txt", "import none none 20 50\n");
  const Outcome o = Run("auto new site job.txt");
  EXPECT_EQ(o.status, 1);
  EXPECT_EQ(o.err, "Sondera 4.1: Error in reading the file.\nCannot read " + folder.File("none.hyx") +
                       ": No such file or directory\nfile: site.da\n"
                       "sondera: not everything was done: line 1 import.\n");
}

TEST_F(Program, StrictGivesDoubtsAStatusAndQuietLeavesThemAlone) {
  std::string lines;
  unsigned state = 1;  // random numbers for a transfer function
  for (int i = 0; i <= 128; ++i) {
    lines += std::to_string(0.5 * i);
    for (int k = 0; k < 2; ++k) {
      state = state * 1664525u + 1013904223u;
      lines += " " + std::to_string((state >> 8) / 8388608.0 - 1.0);
    }
    lines += "\n";
  }
  Write("noise.hyx", lines);
  Write("job.txt", "import noise noise 20 40\nmasking noise 0 400 180 90 40\n");
  EXPECT_EQ(Run("auto new noise job.txt").status, 0);
  EXPECT_EQ(Run("--strict auto new noise job.txt").status, 3);
  const Outcome o = Run("--quiet --strict auto old noise.da job.txt --yes");
  EXPECT_EQ(o.status, 3) << o.err;
  EXPECT_NE(o.err.find("\ndoubt: noise[1:2]: the filter window keeps "), std::string::npos) << o.err;
  for (const char* dropped : {"pair ", "file: ", "note: "})
    EXPECT_EQ(o.err.find(dropped), std::string::npos) << o.err;
  Write("bad.txt", "import none none 1 2\n");
  EXPECT_EQ(Run("--strict auto old noise.da bad.txt").status, 1) << "not done comes before doubtful";
}

TEST_F(Program, AMissingProjectGivesStatusOne) {
  Write("job.txt", "* nothing\n");
  const Outcome o = Run("--batch auto old none.da job.txt");
  EXPECT_EQ(o.status, 1);
  EXPECT_EQ(o.err,
            "Sondera 4.1: File does not exist.\n"
            "sondera: none.da was not opened; the script works on an empty project.\n");
}

TEST_F(Program, NewProjectOfAnOldNameKeepsTheOldOne) {
  FetchExample();
  Write("curve.txt", kToTheCurve);
  ASSERT_EQ(Run("auto new site curve.txt").status, 0);
  const std::string first = Read("site.da");
  Write("nothing.txt", "import pair other 14 30\nmasking other 0 600 450 110 80\n");
  const Outcome o = Run("--quiet auto new site nothing.txt");
  EXPECT_EQ(o.status, 0) << o.err;
  EXPECT_EQ(o.err, "sondera: the former project is kept as site.da.former.\n");
  EXPECT_NE(Read("site.da"), first);
  EXPECT_TRUE(Read("site.da.former") == first);
  const std::string second = Read("site.da");
  ASSERT_EQ(Run("auto new site nothing.txt").status, 0);
  EXPECT_TRUE(Read("site.da.former") == second) << "the latest that held something";
  EXPECT_FALSE(std::filesystem::exists(folder.File("site.da.former2")));
}

TEST_F(Program, RetriesOfAnEmptyProjectMakeNoMoreCopiesOfIt) {
  FetchExample();
  Write("curve.txt", kToTheCurve);
  ASSERT_EQ(Run("auto new site curve.txt").status, 0);
  const std::string first = Read("site.da");
  Write("wrong.txt", "import none none 20 40\n");
  for (int retry = 0; retry < 3; ++retry) {
    const Outcome o = Run("auto new site wrong.txt");
    EXPECT_EQ(o.status, 1);
    EXPECT_EQ(o.err.find("is kept as") != std::string::npos, retry == 0) << o.err;
    EXPECT_TRUE(Read("site.da.former") == first) << retry;
  }
  for (const char* name : {"site.da.former2", "site.da.lock"})
    EXPECT_FALSE(std::filesystem::exists(folder.File(name))) << name;
}

TEST_F(Program, TheSecondRunOnAProjectStopsWithOneSentenceOrWaits) {
  FetchExample();
  Write("curve.txt", kToTheCurve);
  const std::string first = "cd '" + folder.Path() +
                            "' && { '" SONDERA_PROGRAM
                            "' --batch auto new site job.txt >/dev/null 2>&1 </dev/null & p=$!; "
                            "while [ ! -s site.da.lock ] && kill -0 $p; do sleep 0.02; done; ";
  const std::string second =
      "'" SONDERA_PROGRAM "' --batch auto new site curve.txt 2>err.log; s=$?; wait $p; exit $s; }";
  int raw = std::system((first + second).c_str());
  EXPECT_EQ(WEXITSTATUS(raw), 1);
  std::string err = Read("err.log");
  EXPECT_NE(err.find("site.da is in use by process "), std::string::npos) << err;
  EXPECT_EQ(std::count(err.begin(), err.end(), '\n'), 1) << err;
  std::string waiting = second;
  waiting.replace(waiting.find("--batch"), 7, "--batch --wait");
  raw = std::system((first + waiting).c_str());
  err = Read("err.log");
  EXPECT_EQ(WEXITSTATUS(raw), 0) << err;
  EXPECT_NE(err.find("sondera: waiting, since "), std::string::npos) << err;
}

/// A name from outside must not control the terminal.
TEST_F(Program, ControlBytesOfANameAreShownAsNumbers) {
  Write("job.txt", "* nothing\n");
  const Outcome o = Run("--batch auto old \"$(printf '\\033[31mred.da')\" job.txt");
  EXPECT_EQ(o.status, 1);
  EXPECT_NE(o.err.find("\\x1B[31mred.da"), std::string::npos) << o.err;
  EXPECT_EQ(o.err.find('\033'), std::string::npos);
}

TEST_F(Program, AnotherWordBehindAutoIsTold) {
  Write("job.txt", "* nothing\n");
  const Outcome o = Run("--batch auto neu site job.txt");
  EXPECT_NE(o.err.find("auto takes \"old\" or \"new\""), std::string::npos) << o.err;
}

TEST_F(Program, ASecondInterruptAtOnceLosesNothing) {
  FetchExample();
  // The second signal comes while the run halts and saves. Interrupt.ASecondOneAtOnceMeansTheFirst tests that
  // it means the same as the first; this test checks that the program as a whole keeps its data.
  const std::string command = "cd '" + folder.Path() +
                              "' && { '" SONDERA_PROGRAM
                              "' --batch auto new site job.txt >out.log 2>err.log </dev/null & p=$!; "
                              "while [ ! -s ProjID.pcm.saving-*-0 ] && kill -0 $p; do sleep 0.02; done; kill "
                              "-INT $p; sleep 0.01; kill -INT $p; wait $p; }";
  const int raw = std::system(command.c_str());
  EXPECT_EQ(WEXITSTATUS(raw), 1);
  const std::string err = Read("err.log");
  EXPECT_NE(err.find("is kept"), std::string::npos) << err;
  EXPECT_NE(err.find("not everything was done"), std::string::npos) << err;
  EXPECT_TRUE(std::filesystem::exists(folder.File("site_f.results")));
}

TEST_F(Program, AQuestionIsPrintedWithTheAnswerThatItGot) {
  FetchExample();
  Write("twice.txt", "import pair a 14 30\nimport pair a 14 30\n");
  Outcome o = Run("auto new site twice.txt");
  EXPECT_EQ(o.status, 1);
  EXPECT_NE(o.err.find("The same measurement ID is in the list. Overwrite it ? No\n"), std::string::npos)
      << o.err;
  o = Run("--yes auto new site twice.txt");
  EXPECT_EQ(o.status, 0) << o.err;
  EXPECT_NE(o.err.find("Overwrite it ? Yes\n"), std::string::npos) << o.err;
}

TEST_F(Program, AScriptThatStopsEarlyWithoutADisplayEndsWithStatusOne) {
  Write("job.txt", "export out measID 1 2\n");
  const Outcome o = Run("auto new site job.txt");
  EXPECT_EQ(o.status, 1);
  EXPECT_NE(o.err.find("the run stopped at line 1 export"), std::string::npos) << o.err;
  EXPECT_EQ(o.err.find("sondera auto new <name>"), std::string::npos) << "no usage where no word was wrong";
}

TEST_F(Program, RunsAndChecksScriptsOfTheSecondDialect) {
  Write("good.txt", "*sondera 2\nprint \"a\"\nsave site.da\n");
  Outcome o = Run("check good.txt");
  EXPECT_EQ(o.status, 0) << o.err;
  EXPECT_FALSE(std::filesystem::exists(folder.File("site.da")));
  o = Run("run good.txt");
  EXPECT_EQ(o.status, 0) << o.err;
  EXPECT_EQ(o.out, "a\n");
  EXPECT_TRUE(std::filesystem::exists(folder.File("site.da")));
  Write("bad.txt", "*sondera 2\nprnt\n");
  for (const char* how : {"check bad.txt", "run bad.txt"}) {
    o = Run(how);
    EXPECT_EQ(o.status, 1) << how;
    EXPECT_EQ(o.err, "bad.txt:2: prnt: unknown word \"prnt\"; did you mean \"print\"?\n");
  }
  o = Run("run none.txt");
  EXPECT_EQ(o.status, 1);
  EXPECT_NE(o.err.find("none.txt"), std::string::npos);
}

TEST_F(Program, StandardInputIsAScript) {
  Write("good.txt", "*sondera 2\nprint \"a\"\n");
  const std::string command = "cd '" + folder.Path() + "' && '" SONDERA_PROGRAM "' run - <good.txt >out.log";
  EXPECT_EQ(std::system(command.c_str()), 0);
  EXPECT_EQ(Read("out.log"), "a\n");
}

TEST_F(Program, TheHeaderDecidesTheDialect) {
  FetchExample();
  Write("first.txt", "* a comment\n*sondera 2\nnosuchword\n");
  EXPECT_EQ(Run("run first.txt").status, 0);  // there unknown words are skipped
  EXPECT_EQ(Run("auto new site first.txt").status, 0);
  Write("second.txt", "*sondera 2\nread hyx id=pair files=pair.hyx source=0 at=14,30\nsave\n");
  Outcome o = Run("auto new site second.txt");
  EXPECT_EQ(o.status, 0) << o.err;
  Write("look.txt", "*sondera 2\npair pair 1 2\n");
  o = Run("auto old site.da look.txt");
  EXPECT_EQ(o.status, 0) << o.err;
  o = Run("auto old none.da look.txt");
  EXPECT_EQ(o.status, 1);
  EXPECT_NE(o.err.find("the script is not run"), std::string::npos) << o.err;
}

TEST_F(Program, WordsOfTheCommandLineAreKnownAtEveryCount) {
  for (const char* line :
       {"run", "run a b", "run a b c", "check", "check a b", "show", "plot", "batch a b c"}) {
    const Outcome o = Run(line);
    EXPECT_EQ(o.status, 1) << line;
    EXPECT_EQ(o.err.substr(0, 9), "sondera: ") << line;
    EXPECT_EQ(o.err.find("no display"), std::string::npos) << line;
  }
}

TEST_F(Program, HelpOnScriptsComesFromTheTableOfWords) {
  Outcome o = Run("--help script");
  EXPECT_EQ(o.status, 0);
  EXPECT_NE(o.out.find("mask FROM TO [jumps=N]"), std::string::npos);
  o = Run("--help mask");
  EXPECT_EQ(o.status, 0);
  EXPECT_EQ(o.out.find("invert"), std::string::npos);
  EXPECT_EQ(Run("--help nosuchword").status, 1);
  o = Run("--help completion");
  EXPECT_NE(o.out.find("complete -o filenames -F _sondera sondera"), std::string::npos);
}

}  // namespace
}  // namespace sondera
