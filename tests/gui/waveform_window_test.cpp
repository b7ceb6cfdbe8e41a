// The window of the waveforms: its buttons work by the mouse, the graphs fill, and closing it leads back.
#include <QFile>
#include <QPlainTextEdit>
#include <cmath>

#include "gui/dispatch.h"
#include "gui/fields.h"
#include "panels/panels_state.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/pulse.h"
#include "runtime/control_lock.h"
#include "runtime/graphs.h"
#include "window_session.h"

namespace sondera {
namespace {

class WaveformWindow : public test::WindowSession {
 protected:
  /// 2 m of 150 m/s on 300 m/s, receivers at 2, 4 and 8.
  static void Receivers() {
    const double layers[2][6] = {{2.0, 0.0, 150.0, 1.8, 0.25, 0.02}, {10.0, 0.0, 300.0, 1.8, 0.25, 0.02}};
    SetNumTableRows(fmodeling::SOILPROFILE, 2);
    for (int row = 0; row < 2; ++row)
      for (int c = 0; c < 6; ++c) SetTableCellVal(fmodeling::SOILPROFILE, row + 1, c + 1, layers[row][c]);
    SetCtrlVal(fmodeling::NRECEIVERS, 3);
    SetNumTableRows(fmodeling::RECEIVERLOC, 3);
    for (int r = 1; r <= 3; ++r) SetTableCellVal(fmodeling::RECEIVERLOC, r, 1, std::pow(2.0, r));
  }
};

TEST_F(WaveformWindow, FitRunSaveAndMeasurementByTheMouse) {
  for (int k = 0; k < 2; ++k) answers.push_back(k == 0 ? "file:" + folder.File("out.tim") : "No");
  Run([&] {
    Receivers();
    DispatchPress(mainmenu::PULSE_WAVEFORM_MENU);
    QTest::qWait(50);
    for (const ButtonControl* button : {&pulse::RUN, &pulse::SAVE, &pulse::FIT, &pulse::TOMEAS})
      EXPECT_TRUE(WidgetOf(*button)->isVisible() && WidgetOf(*button)->isEnabled()) << button->name;
    Click(pulse::FIT);
    EXPECT_GT(GetCtrlVal(pulse::NPOINTS), 6);
    EXPECT_EQ(The<NumberField>(pulse::NPOINTS)->text().toInt(), GetCtrlVal(pulse::NPOINTS));
    Click(pulse::RUN);
    ASSERT_TRUE(panelsState.waveform.made) << LastMessage();
    EXPECT_EQ(GraphOf(pulse::SECTION).plots.size(), 3u);
    QTest::qWait(50);
    EXPECT_TRUE(The<QPlainTextEdit>(pulse::STATUSMSG)->toPlainText().startsWith("3 receivers, "));
    Click(pulse::SAVE);
    EXPECT_TRUE(QFile::exists(QString::fromStdString(folder.File("out_r3.tim"))));
    Click(pulse::TOMEAS);
    EXPECT_EQ(asked.back().find("Mask the pairs of neighbours outside "), 0u) << asked.back();
  });
}

TEST_F(WaveformWindow, HaltAnswersDuringARunAndTheWindowClosesToThePageBefore) {
  answers.push_back("Yes");
  Run([&] {
    Receivers();
    DispatchPress(mainmenu::DISPERSION_MODE);
    DispatchPress(mainmenu::PULSE_WAVEFORM_MENU);
    QTest::qWait(50);
    Click(pulse::FIT);
    bool enabled = false, others = true;
    QTimer::singleShot(0, [&] {
      enabled = WidgetOf(pulse::HALT)->isEnabled();
      others = IsLocked() && Answers(pulse::RUN);
      Click(pulse::HALT);
    });
    Click(pulse::RUN);
    EXPECT_TRUE(enabled);
    EXPECT_FALSE(others);
    EXPECT_FALSE(panelsState.waveform.made);
    Click(pulse::CLOSE);
    EXPECT_TRUE(IsPanelShown(Panel::DISPCURV));
    EXPECT_EQ(GetActiveTabPage(Panel::PANEL), 2);
  });
}

}  // namespace
}  // namespace sondera
