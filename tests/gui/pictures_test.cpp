// Pictures of all windows with the example in them: nothing is empty, and the manual's pictures are made here, by
//   SONDERA_PICTURES=docs/pictures QT_QPA_PLATFORM=offscreen gui_test --gtest_filter='Pictures.*'
#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QScrollArea>
#include <QWidget>
#include <filesystem>
#include <functional>
#include <set>

#include "acquisition/acquisition_state.h"
#include "app/script/run.h"
#include "gui/binder.h"
#include "gui/main_window.h"
#include "gui/panel_window.h"
#include "gui/refresh.h"
#include "records/session.h"
#include "runtime/catalogue/asavedlg.h"
#include "runtime/catalogue/devpanel.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/loadtxdata.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/catalogue/tmgrafpnl.h"
#include "runtime/events.h"
#include "runtime/graphs.h"
#include "support/app_fixture.h"
#include "support/section_lines.h"
#include "support/section_records.h"
#include "support/seg2_writer.h"
#include "support/site_records.h"

namespace sondera {
namespace {

/// Three pairs of the example with their masks, representative curves, and two iterations on plane waves.
constexpr const char* kRoad = R"(*sondera 2
read tim id=site files=rec1.tim,rec2.tim,rec3.tim,rec4.tim,rec5.tim,rec6.tim source=0 at=10,14,22,30,42,54
pair site 1 3
mask 0 7
mask 48 500
disperse
pair site 2 4
mask 0 7
mask 40 500
disperse
pair site 1 2
phase enhanced
mask 0 14
mask 48 500
disperse
save Site.da overwrite=yes
calcVel
preInversion 0 0 2 0.5 6 2 2 3 2 2 100
inversion
)";

class Pictures : public testing::AppTest {
 protected:
  void SetUp() override {
    const char* wanted = std::getenv("SONDERA_PICTURES");
    if (wanted) target_ = QDir::current().absoluteFilePath(QString::fromLocal8Bit(wanted));
    AppTest::SetUp();
    if (!wanted) target_ = QString::fromStdString(folder.File("pictures"));
    ASSERT_TRUE(QDir().mkpath(target_));
    qputenv("XDG_STATE_HOME", QByteArray::fromStdString(folder.File("state")));
  }
  void TearDown() override {
    StopRefresh();
    CloseMainWindow();
    AppTest::TearDown();
  }

  /// Runs the script and opens the main window.
  static void Open(const char* lines) {
    ASSERT_NO_FATAL_FAILURE(RunScript(lines));
    StartRefresh();
    OpenMainWindow();
    MainWindowWidget()->setWindowState(Qt::WindowNoState);  // small screens have it maximised
    MainWindowWidget()->resize(1100, 700);
    Settle();
  }

  static void RunScript(const std::string& text) {
    script::Source source = script::Source::OfText(text);
    ResetEvents();
    ::testing::internal::CaptureStdout();
    ::testing::internal::CaptureStderr();
    const int status = script::Run("road", {}).run(source);
    ::testing::internal::GetCapturedStdout();
    const std::string said = ::testing::internal::GetCapturedStderr();
    ASSERT_NE(status, 1) << said;
    ResetEvents();
  }

  /// A shot over 24 receivers, on ground where the wave takes 200 m/s.
  void WriteShot(const std::string& name) {
    test::Seg2Line line;
    line.samples = 1024;
    for (int r = 0; r < 24; ++r) line.receivers.push_back(10.0 + 2.0 * r);
    test::WriteWhole(folder.File(name), test::Seg2Bytes(test::Seg2OfLine(test::WithWave(line, 200.0))));
  }

  static void Settle() {
    for (int i = 0; i < 5; ++i) {
      FlushViews();
      QApplication::processEvents();
    }
  }

  /// Takes the picture and checks that it is not empty.
  void Take(QWidget* window, const QString& name) {
    ASSERT_TRUE(window) << name.toStdString();
    Settle();
    QImage image = window->grab().toImage();
    std::set<QRgb> colours;
    for (int y = 0; y < image.height(); y += 2)
      for (int x = 0; x < image.width(); ++x) colours.insert(image.pixel(x, y));
    EXPECT_GT(colours.size(), 20u) << name.toStdString();
    image = image.convertToFormat(QImage::Format_RGB32);
    EXPECT_TRUE(image.save(target_ + "/" + name + ".png", nullptr, 0)) << name.toStdString();
  }
  void TakePage(Panel page, int tab, const QString& name) {
    SetActiveTabPage(Panel::PANEL, tab);
    Take(MainWindowWidget(), name);
    EXPECT_TRUE(BinderOf(page)) << name.toStdString();
  }
  /// Opens a panel by its button or menu item, as a person does, and hides it afterwards.
  /// @param fill  of fields that would show the folder of the test
  void TakePanel(
      Panel panel, const Control& opener, const QString& name, const std::function<void()>& fill = [] {}) {
    Commit(opener);
    fill();
    EXPECT_TRUE(IsPanelShown(panel)) << name.toStdString() << ": " << LastMessage();
    DisplayPanel(panel);
    FollowPanel(panel, MainWindowWidget());
    const Binder* binder = BinderOf(panel);
    ASSERT_TRUE(binder) << name.toStdString();
    QWidget* window = binder->WidgetOf(*ControlsOf(panel)[0])->window();
    // As large as the form wants to be: the screen in memory is smaller than a desktop.
    if (const auto* area = window->findChild<QScrollArea*>())
      window->resize(area->widget()->minimumSizeHint());
    Take(window, name);
    HidePanel(panel);
    Settle();
  }

 private:
  QString target_;
};

/// Four receivers on the simulated site, ready to be measured.
constexpr const char* kSite = R"(*sondera 2
board sim:seed=3,pace=0
project unit=m id=class
setup freqspan=256 freqlines=512 nchannels5=0 triggerlevel=200 naverage=5 source=0 at=10,15,25,45
configure
)";

TEST_F(Pictures, OfAMeasuringRun) {
  ASSERT_NO_FATAL_FAILURE(Open(kSite));
  SetCtrlVal(devpanel::DRIVER, "sim:seed=3");
  TakePanel(Panel::DEVPANEL, mainmenu::SETUP_BOARDS, "boards");
  bool taken = false;
  SetActiveTabPage(Panel::PANEL, 0);
  frontEnd.onProcessEvents = [&] {
    if (taken || !measRun.measRunning || session.avgCount != 3) return;
    taken = true;
    TakePage(Panel::MEASPANEL, 0, "measuring_run");
    EXPECT_EQ(GetCtrlVal(measpanel::MEAS_ARM_LED), 1);
    EXPECT_FALSE(GraphOf(measpanel::DISPLAY_A).plots.empty());
    EXPECT_TRUE(BinderOf(Panel::MEASPANEL)->WidgetOf(measpanel::STOPMEAS)->isEnabled());
    EXPECT_FALSE(BinderOf(Panel::MEASPANEL)->WidgetOf(measpanel::SASWSTART)->isEnabled());
  };
  EXPECT_EQ(Commit(measpanel::SASWSTART), 0);
  EXPECT_TRUE(taken);
}

TEST_F(Pictures, OfPagesAndPanels) {
  test::WriteSiteRecords(".");
  ASSERT_NO_FATAL_FAILURE(Open(kRoad));
  TakePage(Panel::MEASPANEL, 0, "page_measurements");
  TakePage(Panel::SASW, 1, "page_masking");
  TakePage(Panel::DISPCURV, 2, "page_dispersion");
  TakePage(Panel::EXDTHD, 3, "page_results");

  TakePanel(Panel::HMSETUP, mainmenu::SETUP_HDWARE, "hardware_setup");
  TakePanel(Panel::HMSETUP, mainmenu::SETUP_MEAS_SETUP, "measurement_setup");
  TakePanel(Panel::LOADTXDATA, mainmenu::LOAD_TWO_CHNL_DATA, "import", [] {
    for (const TextControl* file :
         {&loadtxdata::FNAMESRC, &loadtxdata::FNAMECH1, &loadtxdata::FNAMECH2, &loadtxdata::FNAMECH3,
          &loadtxdata::FNAMECH4, &loadtxdata::FNAMECH5, &loadtxdata::FNAMECH6})
      SetCtrlVal(*file, std::filesystem::path(GetCtrlVal(*file)).filename().string());
  });
  WriteShot("shot.dat");
  RunScript("*sondera 2\nset LOADSHOTS.FILES shot.dat\nset LOADSHOTS.MEASID line\n");
  TakePanel(Panel::LOADSHOTS, mainmenu::LOAD_SHOTS, "shots");
  TakePanel(Panel::IRFSETPNL, mainmenu::IRF_SETUP, "filter");
  TakePanel(Panel::GABORPNL, mainmenu::GABOR_SETUP, "gabor");
  TakePanel(Panel::CDISPPNL, mainmenu::CALC_REP_DISP_MENU, "representative_curves");
  TakePanel(Panel::FMODELING, mainmenu::FMODEL_PARAM, "layers");
  TakePanel(Panel::INVERSION, mainmenu::INV_ANALYSIS_PARAM, "inversion");
  TakePanel(Panel::ANALRESULT, exdthd::RESULTBOX, "results");
  TakePanel(Panel::ASAVEDLG, measpanel::F10, "autosave",
            [] { SetCtrlVal(asavedlg::PATHNAME, "/data/site/"); });
  TakePanel(Panel::MSCALEPNL, mainmenu::ADJUST_SCALE, "axes_traces");
  TakePanel(Panel::DSP_MSCALE, mainmenu::DISP_CV_AXIS_ATTR_MENU, "axes_curves");
  RunScript(
      "*sondera 2\nlayers 2,4,10\nlayer 1 Vs=150\nlayer 2 Vs=220\nlayer 3 Vs=330\nreceivers 2,4,8,16,32\n"
      "waveform fit=yes\nset PULSE.DISPATYPE 2\nset PULSE.DISPBCHNL 3\n");
  TakePanel(Panel::PULSE, mainmenu::PULSE_WAVEFORM_MENU, "waveform");
  TakePanel(Panel::ABOUTPNL, mainmenu::ABOUT_BOX, "about");

  FreeDispList(MeasDB.gDispList);
  test::PutStations(test::MakeLine(9, 25, true, test::SmoothVelocity));
  Commit(mainmenu::DRAW_TOMO_GRAF);
  SetCtrlVal(tmgrafpnl::FILL, 1);
  Commit(tmgrafpnl::DRAWTOMOGRAF);
  TakePanel(Panel::TMGRAFPNL, mainmenu::DRAW_TOMO_GRAF, "section");
}

}  // namespace
}  // namespace sondera
