// Some 3000 damaged projects, each processed completely: opened, filtered and dispersed, condensed, a forward
// run, an inversion of one iteration, exports, reports, a save. Nothing may crash, hang, or exhaust the machine's
// memory, and no file that was written without a message may contain NaN or infinities. Instrumented: every fourth
// of them.
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cmath>
#include <complex>
#include <cstdio>

#include "figure/canvas.h"
#include "panels/fmodeling_files.h"
#include "panels/mainmenu_export.h"
#include "panels/mainmenu_plot.h"
#include "panels/mainmenu_project.h"
#include "panels/one_click.h"
#include "project/project_file.h"
#include "project/trace_export.h"
#include "records/inv_records.h"
#include "records/measdb.h"
#include "records/model_records.h"
#include "records/session.h"
#include "runtime/catalogue/analresult.h"
#include "runtime/catalogue/cdisppnl.h"
#include "runtime/catalogue/dispcurv.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/catalogue/loadtxdata.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/file_driver.h"
#include "runtime/text_format.h"
#include "support/app_fixture.h"
#include "support/damaged_projects.h"
#include "support/ghostscript.h"
#include "support/ps_grammar.h"
#include "support/sanitized.h"
#include "support/tool_run.h"

namespace sondera {
namespace {

using testing::Damage;

constexpr int kShards = 8;
constexpr std::size_t kStep = kShards * (kSanitized ? 8 : 1);  // instrumented, each takes ten times as long
constexpr int kLines = 32, kReceivers = 3, kPoints = 5;
constexpr unsigned kLongestSeconds = 10;

// ---- the valid project ------------------------------------------------------------------------------

/// Phase velocity of the ground at a frequency, m/s.
double TrueVelocity(double f) {
  return 150.0 + 150.0 / (1.0 + f / 20.0);
}

/// Transfer function between two receivers 4 m apart, 2 Hz to 64 Hz.
std::string TransferFunction(double spacing) {
  std::string text;
  for (int i = 0; i < kLines; ++i) {
    const double f = 2.0 * i;
    const std::complex<double> h =
        std::polar(0.9, f > 0.0 ? -2.0 * M_PI * f * spacing / TrueVelocity(f) : 0.0);
    text += FormatText("%.6f %.9f %.9f\n", f, h.real(), h.imag());
  }
  return text;
}

/// The pair of neighbours that begins with receiver `first` (from 0) on trace A.
void SelectPair(int first) {
  SetCtrlVal(sasw::TRACE_ONOFF, 0);
  SetCtrlIndex(sasw::DISPAID, GetNumListItems(sasw::DISPAID) - 1);
  Commit(sasw::DISPAID);
  SetCtrlIndex(sasw::DISPA_REFCHNL, first);
  SetCtrlIndex(sasw::DISPACHNL, first + 1);
  Commit(sasw::DISPACHNL);
}

void Press(const Control& control, long data) {
  Commit(control, data);
}

class WholeProject : public testing::AppTest {
 protected:
  /// Measurement, masks, curves of two pairs, representative curves, a model and an inversion, saved.
  std::string SoundProject() {
    session.projectFileName = folder.File("site.da");
    for (int c = 2; c <= kReceivers; ++c) Write(FormatText("h%d1.hyx", c), TransferFunction(4.0 * (c - 1)));
    Commit(mainmenu::LOAD_TWO_CHNL_DATA);
    SetCtrlVal(loadtxdata::NCHANS, kReceivers);
    Commit(loadtxdata::NCHANS);
    SetCtrlVal(loadtxdata::MEASID, "measID");
    SetCtrlVal(loadtxdata::FNAMESRC, folder.File("h21.hyx"));
    SetCtrlVal(loadtxdata::FNAMECH1, folder.File("h31.hyx"));
    SetCtrlVal(loadtxdata::LOC_REC1, 4.0);
    SetCtrlVal(loadtxdata::LOC_REC2, 8.0);
    SetCtrlVal(loadtxdata::LOC_REC3, 12.0);
    Commit(loadtxdata::LOAD);
    Commit(loadtxdata::CANCEL);
    for (int first = 0; first + 1 < kReceivers; ++first) {
      SelectPair(first);
      Commit(sasw::MASKINGCALCDISP);
    }
    SetCtrlVal(cdisppnl::GLOBAL_NPOINTS, kPoints);
    SetCtrlVal(cdisppnl::GLOBAL_NSPAN, 4);
    RunCalcVel(Press);
    FModelParam.analysis = 4;  // with the coarsest mesh, to be fast
    FModelParam.nSubLayers = 3;
    SetCtrlVal(inversion::ALPHA_POINT, 2);
    RunPreInversion({3.0, 100.0}, Press);
    SetCtrlVal(inversion::NITER, 1);
    Commit(inversion::PERFORMINV);
    *MeasDB.maskingList.append() = {MeasDB.idList.at(1)->key, 0, 1, 50.0, 60.0, 0, 25, 30};
    Commit(measpanel::F6);
    return test::ReadWhole(folder.File("site.da"));
  }
};

// ---- processing of one damaged project --------------------------------------------------------------

bool HoldsNoNumber(const std::string& text) {
  for (const char* word : {"nan", "inf"})
    for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) {
      const bool begins = at == 0 || !std::isalpha(static_cast<unsigned char>(text[at - 1]));
      const bool ends = at + 3 >= text.size() || !std::isalpha(static_cast<unsigned char>(text[at + 3]));
      if (begins && ends) return true;
    }
  return false;
}

/// Processes the file "m.da" of the current folder completely; returns the faults, one per line.
class WholeWay {
 public:
  /// @param number  of the damage; some steps that take long are for a few numbers only
  explicit WholeWay(testing::RecordingFrontEnd& frontEnd, std::size_t number = 0)
      : frontEnd_(frontEnd), number_(number) {}

  std::string Run() {
    Step("open", [] { OpenFileProc("m.da"); });
    PrintReports("of the file");
    for (int first = 0; first + 1 < kReceivers; ++first) {
      Step("select", [&] { SelectPair(first); });
      Step("disperse", [] { Commit(sasw::MASKINGCALCDISP); });
      for (const int type : {3, 4, 9})  // possible results of imported spectra
        Step("export", [&] { SaveTraceData(first, first + 1, type, "A", "trace"); });
    }
    Step("condense", [] {
      Commit(dispcurv::COMPDISPCURV);
      Commit(cdisppnl::CALC);  // without new layers: those of the file are wanted
    });
    Step("parameters", [] { static_cast<void>(SaveFModelParam("model.fmd")); });
    Step("forward run", [] { Commit(exdthd::RUN_FMODEL); });
    SetCtrlVal(inversion::NITER, 1);
    Step("inversion", [] { Commit(inversion::PERFORMINV); });
    PrintReports("of the run");
    Step("results", [] {
      Commit(exdthd::RESULTBOX);
      Commit(analresult::SAVE, -1);
    });
    session.projectFileName = "saved.da";
    Step("save", [] { Commit(measpanel::F6); });
    if (openedQuietly_)
      Step(
          "open again", [] { OpenFileProc("saved.da"); }, true);
    return wrong_;
  }

 private:
  void Step(const std::string& name, const std::function<void()>& action, bool mustBeQuiet = false) {
    const std::size_t before = frontEnd_.messages.size();
    action();
    const bool quiet = frontEnd_.messages.size() == before;
    if (name == "open") openedQuietly_ = quiet;
    for (std::size_t i = before; i < frontEnd_.messages.size(); ++i) {
      const std::string& message = frontEnd_.messages[i];
      if (message.find("not enough memory") != std::string::npos) Wrong(name + ": " + message);
      if (i > before && message == frontEnd_.messages[i - 1]) Wrong(name + " says twice: " + message);
      if (mustBeQuiet) Wrong(name + ": " + message);
    }
    CheckFiles(name, quiet);
  }

  void PrintReports(const std::string& which) {
    if (number_ % kReportedEvery != 0) return;
    const bool drawn = number_ % kDrawnEvery == 0;
    Step("report " + which, [&] {
      if (PrintReport(ReportKind::whole, "report.ps") != 0) return;
      const std::string fault = test::GrammarFault(test::ReadWhole("report.ps"));
      if (!fault.empty()) Wrong("report " + which + ": " + fault);
      if (!drawn || !test::HaveGhostscript()) return;
      const test::GhostscriptRun run = test::RunGhostscript("report.ps");
      if (run.status != 0 || !run.output.empty()) Wrong("report " + which + ": " + run.output);
    });
    if (!drawn || !HavePdfAndPng()) return;
    Step("PDF " + which, [&] {
      if (PrintReport(ReportKind::whole, "report.pdf") != 0 || !test::HaveTool("pdfinfo")) return;
      const test::ToolRun run = test::RunTool("pdfinfo report.pdf");
      if (run.status != 0 || run.output.find("Error") != std::string::npos)
        Wrong("PDF " + which + ": " + run.output);
    });
  }

  /// Text files of the last step, removed before the next one.
  void CheckFiles(const std::string& step, bool quiet) {
    for (const auto& entry : std::filesystem::directory_iterator(".")) {
      if (!entry.is_regular_file() || entry.path().extension() == ".da") continue;
      const std::string name = entry.path().filename().string();
      const std::string kind = entry.path().extension().string();
      const bool isReport = kind == ".ps" || kind == ".pdf";  // whose texts may say what an entry has
      if (quiet && !isReport && HoldsNoNumber(test::ReadWhole(name)))
        Wrong(step + " wrote no number into " + name);
      std::filesystem::remove(entry.path());
    }
  }

  void Wrong(const std::string& what) { wrong_ += what + "\n"; }

  static constexpr std::size_t kReportedEvery = 6, kDrawnEvery = 60;

  testing::RecordingFrontEnd& frontEnd_;
  std::size_t number_;
  std::string wrong_;
  bool openedQuietly_ = false;
};

/// A gigabyte more than the process has now.
void LimitMemory() {
  if (kSanitized) return;
  long pages = 0;
  std::FILE* statm = std::fopen("/proc/self/statm", "r");
  if (!statm || std::fscanf(statm, "%ld", &pages) != 1) _exit(3);
  std::fclose(statm);
  const rlim_t most =
      static_cast<rlim_t>(pages) * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) + (rlim_t{1} << 30);
  const struct rlimit limit { most, most };
  if (setrlimit(RLIMIT_AS, &limit) != 0) _exit(4);
}

/// Processes the damaged projects of a shard in child processes: if one dies, the next one continues after
/// that project.
class Shard {
 public:
  Shard(const std::string& project, int shard) : project_(project), damages_(testing::DamagesOf(project)) {
    next_ = static_cast<std::size_t>(shard);
    at_ = static_cast<std::size_t*>(
        mmap(nullptr, sizeof(std::size_t), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
  }
  ~Shard() { munmap(at_, sizeof(std::size_t)); }
  Shard(const Shard&) = delete;
  Shard& operator=(const Shard&) = delete;

  std::size_t Count() const { return damages_.size(); }

  void Run(const test::TempFolder& folder, testing::RecordingFrontEnd& frontEnd) {
    constexpr int kMostDeaths = 10;
    for (int deaths = 0; next_ < damages_.size() && deaths < kMostDeaths; ++deaths) {
      *at_ = next_;
      std::fflush(stdout);  // pending output must not be written again by the child
      const pid_t child = fork();
      if (child == 0) Child(folder, frontEnd);
      int status = 0;
      waitpid(child, &status, 0);
      if (WIFEXITED(status) && WEXITSTATUS(status) == 0) break;
      ADD_FAILURE() << damages_[*at_].name << ": "
                    << (WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM ? "more than 10 s"
                                                                           : FormatText("status %d", status));
      next_ = *at_ + kStep;
    }
    const std::string wrong = test::ReadWhole(folder.File("wrong.da"));
    EXPECT_TRUE(wrong.empty()) << wrong;
  }

 private:
  [[noreturn]] void Child(const test::TempFolder& folder, testing::RecordingFrontEnd& frontEnd) {
    LimitMemory();
    FileDriver quick = posixFileDriver;  // nothing here has to reach the disk
    quick.flush = [](int) { return 0; };
    InstallFileDriver(&quick);
    if (!std::freopen("/dev/null", "w", stdout)) _exit(5);  // the solvers' traces
    const std::string here = folder.File("child");
    std::filesystem::create_directory(here);
    std::filesystem::current_path(here);
    for (std::size_t i = next_; i < damages_.size(); i += kStep) {
      *at_ = i;
      alarm(kSanitized ? 10 * kLongestSeconds : kLongestSeconds);
      const std::string bytes = damages_[i].apply(project_);
      if (bytes == project_) continue;
      StartSession();
      frontEnd.messages.clear();
      test::WriteWhole("m.da", bytes);
      const std::string wrong = WholeWay(frontEnd, i / kShards).Run();
      if (!wrong.empty()) std::ofstream("../wrong.da", std::ios::app) << damages_[i].name << ": " << wrong;
    }
    _exit(0);
  }

  std::string project_;
  std::vector<Damage> damages_;
  std::size_t next_ = 0;
  std::size_t* at_ = nullptr;
};

class DamagedProjects : public WholeProject, public ::testing::WithParamInterface<int> {};

TEST_P(DamagedProjects, GoAllTheWayWithoutHarm) {
  const std::string project = SoundProject();
  ASSERT_TRUE(frontEnd.messages.empty()) << frontEnd.messages.front();
  const auto layout = testing::LayoutOf(project);
  ASSERT_EQ(layout.parts.back(), project.size()) << "the layout is not that of the project";
  ASSERT_EQ(MeasDB.pMeasList.count(), kReceivers - 1);
  ASSERT_EQ(InvParam.nEntries, 1);
  Write("wrong.da", "");
  Shard shard(project, GetParam());
  EXPECT_GE(shard.Count(), 3000u);
  shard.Run(folder, frontEnd);
}

INSTANTIATE_TEST_SUITE_P(Shard, DamagedProjects, ::testing::Range(0, kShards));

TEST_F(WholeProject, GoesAllTheWayWithoutAMessage) {
  const std::string project = SoundProject();
  StartSession();
  test::WriteWhole(folder.File("m.da"), project);
  EXPECT_EQ(WholeWay(frontEnd).Run(), "");
  EXPECT_TRUE(frontEnd.messages.empty()) << frontEnd.messages.front();
}

}  // namespace
}  // namespace sondera
