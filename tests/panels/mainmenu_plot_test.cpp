// Menu "Plot to PostScript File": questions and messages, and that nothing is lost when a file cannot be
// written.
#include "panels/mainmenu_plot.h"

#include <algorithm>
#include <filesystem>

#include "figure/canvas.h"
#include "records/inv_records.h"
#include "records/session.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/events.h"
#include "support/ghostscript.h"
#include "support/session_fixture.h"
#include "support/small_disk.h"
#include "support/temp_folder.h"

namespace sondera::testing {
namespace {

constexpr char kPhases[] = "No phase spectra are available for plotting.";
constexpr char kCurves[] = "No dispersion curves are available for plotting.";
constexpr char kEntries[] = "No results of the inv. analysis are available for plotting.";

class PlotMenu : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    InitializeInvAnal();
    file = folder.File("out.ps");
  }
  PMeasInfo& AddPair() {
    const TestMeasurement m = AddMeasurement();
    PMeasInfo& pair = *MeasDB.pMeasList.append();
    SetupPairMeasArrays(pair, m.hw->nLines);
    pair.key = m.key;
    pair.dspChan = 1;
    return pair;
  }
  const std::vector<std::string>& Texts() const { return frontEnd.messages; }
  std::vector<std::string> Names() const { return folder.Names(); }

  test::TempFolder folder;
  std::string file;
};

TEST_F(PlotMenu, NothingToShowIsSaidAndMakesNoFile) {
  EXPECT_EQ(PrintReport(ReportKind::whole, file), -1);
  EXPECT_EQ(PrintReport(ReportKind::phases, file), -1);
  EXPECT_EQ(PrintReport(ReportKind::dispersion, file), -1);
  EXPECT_EQ(PrintReport(ReportKind::results, file), -1);
  EXPECT_EQ(Texts(), (std::vector<std::string>{kPhases, kPhases, kCurves, kEntries}));
  EXPECT_TRUE(Names().empty());
}

TEST_F(PlotMenu, AWholeReportOfPhasesOnlySaysEachMissingPartOnce) {
  AddPair();
  EXPECT_EQ(PrintReport(ReportKind::whole, file), 0);
  EXPECT_EQ(Texts(), (std::vector<std::string>{kCurves, kEntries}));
  SKIP_WITHOUT_GHOSTSCRIPT();
  const test::Trace trace = test::TraceOf(file);
  EXPECT_EQ(trace.pages, 3);
  for (const int page : {2, 3})
    EXPECT_EQ(
        std::count_if(trace.marks.begin(), trace.marks.end(), [&](const auto& m) { return m.page == page; }),
        1);
}

TEST_F(PlotMenu, TheDialogsHaveTheirTitlesAndACancelEndsQuietly) {
  PMeasInfo& pair = AddPair();
  pair.included = 1;
  pair.nDispPoints = 1;
  pair.dispVel[0] = pair.dispFreq[0] = pair.dispWlen[0] = 10.0;
  InvParam.nLayers = 1;
  AllocateInvRecord(InvParam);
  InsertListItem(exdthd::ITERNO, -1, "INV 0", 0);
  for (const auto callback : {PrintReportCallback, PrintPsPhaseCallback, PlotPsPhaseCallback2,
                              PrintPsDispCurvCallback, PrintPsSwavePrfCallback})
    EXPECT_EQ(callback(Panel::MAINMENU, nullptr, Event::Commit, 0), -1);
  std::vector<std::string> titles;
  for (const FileRequest& request : frontEnd.files) {
    titles.push_back(request.title);
    EXPECT_EQ(request.filter, "*.ps");
    ASSERT_FALSE(request.kinds.empty());
    EXPECT_EQ(request.kinds.front().filter, "*.ps");
    const bool whole = request.title == "Print the report to PS file";
    EXPECT_EQ(request.kinds.size(), whole ? 2u : 1u);
    EXPECT_EQ(request.kinds.back().filter, whole ? "*.pdf" : "*.ps");
    EXPECT_TRUE(request.forSaving);
  }
  EXPECT_EQ(titles, (std::vector<std::string>{
                        "Print the report to PS file", "Print the phase spectra to PS file",
                        "Print the phase spectra to PS file", "Print the dispersion curves to PS file",
                        "Print the results of the inv. analysis to PS file"}));
  EXPECT_TRUE(Texts().empty());
  EXPECT_EQ(PrintReportCallback(Panel::MAINMENU, nullptr, Event::GotFocus, 0), 0);
  EXPECT_EQ(frontEnd.files.size(), 5u);
}

TEST_F(PlotMenu, ANameWithoutExtensionGetsOne) {
  AddPair();
  frontEnd.fileAnswers.push_back({FileAnswer::IsNew, folder.File("pages")});
  EXPECT_EQ(PrintReport(ReportKind::phases, {}), 0);
  EXPECT_EQ(Names(), std::vector<std::string>{"pages.ps"});
}

TEST_F(PlotMenu, AFileThatCannotBeWrittenIsOneMessage) {
  AddPair();
  test::WriteWhole(file, "former");
  std::filesystem::create_directory(folder.File("folder.ps"));
  const auto refuses = [&](const std::string& name) {
    frontEnd.messages.clear();
    EXPECT_EQ(PrintReport(ReportKind::phases, name), -1) << name;
    EXPECT_EQ(Texts().size(), 1u) << name;
  };
  refuses(folder.File("nowhere/out.ps"));
  refuses(folder.File("folder.ps"));
  EXPECT_EQ(test::ReadWhole(file), "former");
  EXPECT_EQ(Names(), (std::vector<std::string>{"folder.ps", "out.ps"}));
  EXPECT_EQ(PrintReport(ReportKind::phases, file), 0);  // the session goes on
}

TEST_F(PlotMenu, ADiskThatFillsUpIsOneMessage) {
  for (int i = 0; i < 40; ++i) AddPair();
  const test::SmallDisk disk(16384);
  for (const char* name : {"out.ps", "out.pdf"}) {
    if (IsPdfName(name) && !HavePdfAndPng()) continue;
    const std::string path = disk.File(name);
    test::WriteWhole(path, "former");
    frontEnd.messages.clear();
    ::testing::internal::CaptureStderr();  // the library says it in a line of its own
    EXPECT_EQ(PrintReport(ReportKind::whole, path), -1) << name;
    ::testing::internal::GetCapturedStderr();
    ASSERT_FALSE(Texts().empty());
    EXPECT_NE(Texts().back().find(disk.Reason()), std::string::npos) << Texts().back();
    EXPECT_NE(Texts().back().find(path), std::string::npos) << Texts().back();
    std::erase(frontEnd.messages, kCurves);
    std::erase(frontEnd.messages, kEntries);
    EXPECT_EQ(Texts().size(), 1u) << name;
    EXPECT_EQ(test::ReadWhole(path), "former");
    EXPECT_EQ(disk.Names(), std::vector<std::string>{name});
    std::filesystem::remove(path);
  }
  EXPECT_FALSE(WaitCursorShown());
}

TEST_F(PlotMenu, TheProjectIsNotOverwritten) {
  AddPair();
  session.projectFileName = folder.File("site.ps");
  test::WriteWhole(session.projectFileName, "project");
  EXPECT_EQ(PrintReport(ReportKind::phases, folder.File("./site.ps")), -1);
  EXPECT_EQ(Texts().size(), 1u);
  EXPECT_EQ(test::ReadWhole(session.projectFileName), "project");
}

}  // namespace
}  // namespace sondera::testing
