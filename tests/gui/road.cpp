// road.cpp - see road.h.
#include "road.h"

#include <QAction>
#include <QComboBox>
#include <QListWidget>
#include <QMenu>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>

#include "graph_hand.h"
#include "gui/dispatch.h"
#include "gui/fields.h"
#include "gui/graph_view.h"
#include "runtime/catalogue/cdisppnl.h"
#include "runtime/catalogue/dispcurv.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/fmodeling.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/catalogue/irfsetpnl.h"
#include "runtime/catalogue/loadtxdata.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/graphs.h"
#include "runtime/text_format.h"
#include "support/site_records.h"

namespace sondera::test {
namespace {

namespace fs = std::filesystem;

constexpr double kPlaces[] = {10, 14, 18, 22, 30};

}  // namespace

Road::Road() : former_(fs::current_path()) {
  fs::current_path(folder.Path());
}

Road::~Road() {
  fs::current_path(former_);
}

void Road::WriteRecords(const std::string& folder) {
  for (int k = 1; k < 5; ++k) WriteSitePair(folder + FormatText("/h%d1.hyx", k + 1), kPlaces[0], kPlaces[k]);
}

QAction* Road::LiveItem(const Control& item) {
  const QString hint = QString::fromUtf8(item.facts.hint.data(), static_cast<int>(item.facts.hint.size()));
  for (QAction* action : MainWindowWidget()->findChildren<QAction*>()) {
    bool inMenu = false;  // the tool bar has some too
    for (QObject* place : action->associatedObjects()) inMenu = inMenu || qobject_cast<QMenu*>(place);
    if (inMenu && action->toolTip() == hint && action->isEnabled()) return action;
  }
  ADD_FAILURE() << "no live menu item " << item.name;
  return nullptr;
}

void Road::Menu(const Control& item) {
  QAction* action = LiveItem(item);
  if (!action) return;
  if (other) other->Menu(*action);
  action->trigger();
  QTest::qWait(30);
}

void Road::ClickAt(QWidget* widget, QPoint at) {
  if (other) other->Click(*widget, at);
  QTest::mouseClick(widget, Qt::LeftButton, {}, at);
}

void Road::Click(const Control& button) {
  QWidget* widget = WidgetOf(button);
  EXPECT_TRUE(widget->isEnabled()) << button.name;
  ClickAt(widget, widget->rect().center());
}

void Road::ClickForFile(const Control& button, const std::string& title, const std::string& name) {
  if (other) {
    other->Click(*WidgetOf(button), WidgetOf(button)->rect().center());
    other->File(title, name);
  }
  Answer("file:" + folder.File(name));
  QTest::mouseClick(WidgetOf(button), Qt::LeftButton);
}

void Road::ClickToRun(const Control& button) {
  Click(button);
  if (other) other->AwaitRun();
}

void Road::Close(Panel panel) {
  if (other) other->Keys("Escape");
  DispatchClose(panel);
}

void Road::Type(const Control& field, const std::string& text) {
  auto* line = The<QLineEdit>(field);
  ASSERT_TRUE(line && line->isEnabled()) << field.name;
  if (other) {
    other->Click(*line, line->rect().center());
    other->Type(text);
  }
  line->setFocus();
  line->selectAll();
  QTest::keyClicks(line, QString::fromStdString(text));
  QTest::keyClick(line, Qt::Key_Return);
}

int Road::PlaceInRing(const Control& ring, const std::string& item) {
  const auto* box = The<QComboBox>(ring);
  for (int i = 0; i < box->count(); ++i)  // numbers of channels are aligned with blanks
    if (box->itemText(i).trimmed().toStdString() == item) return i;
  return -1;
}

void Road::Choose(const Control& ring, const std::string& item) {
  auto* box = The<QComboBox>(ring);
  ASSERT_TRUE(box && box->isEnabled()) << ring.name;
  const int wanted = PlaceInRing(ring, item);
  ASSERT_GE(wanted, 0) << ring.name << ": " << item;
  const int steps = wanted - box->currentIndex();
  if (steps == 0) return;
  if (other) {
    other->Click(*box, box->rect().center());
    other->Keys(steps > 0 ? "Down" : "Up", std::abs(steps));
    other->Keys("Return");
  }
  box->setFocus();
  while (box->currentIndex() != wanted) QTest::keyClick(box, steps > 0 ? Qt::Key_Down : Qt::Key_Up);
}

void Road::Pick(const Control& list, int row) {
  const auto* box = The<QListWidget>(list);
  ClickAt(box->viewport(), box->visualItemRect(box->item(row)).center());
}

void Road::Tab(int page) {
  auto* tabs = MainWindowWidget()->findChild<QTabWidget*>("TABS");
  if (other) other->Click(*tabs->tabBar(), tabs->tabBar()->tabRect(page).center());
  tabs->setCurrentIndex(page);
  QTest::qWait(30);
}

void Road::Cell(const TableControl& table, int row, int column, const std::string& text) {
  auto* view = The<QTableView>(table);
  const QModelIndex cell = view->model()->index(row - 1, column - 1);
  if (other) {
    other->Click(*view->viewport(), view->visualRect(cell).center());
    other->Type(text);
  }
  EXPECT_TRUE(view->model()->setData(cell, QString::fromStdString(text), Qt::EditRole)) << text;
}

void Road::Span(double from, double to) {
  auto* view = The<GraphView>(sasw::DISPLAY_A);
  const QPoint begin = PixelAt(*view, from, 40), end = PixelAt(*view, to, -40);
  if (other) other->Drag(*view, begin, end);
  DragOver(*view, begin, end);
}

void Road::Mask(double from, double to) {
  const auto* view = The<GraphView>(sasw::DISPLAY_A);
  Span(from, to);
  const double f1 = GetCtrlVal(sasw::MASKING_FREQINIT), f2 = GetCtrlVal(sasw::MASKING_FREQFINAL);
  EXPECT_NEAR(f1, from, 2.0);
  EXPECT_NEAR(f2, to, 2.0);
  const std::size_t before = GraphOf(sasw::DISPLAY_A).rectangles.size();
  Click(sasw::MASKINGNEW);
  EXPECT_EQ(GraphOf(sasw::DISPLAY_A).rectangles.size(), before + 1) << from;
  EXPECT_NE(view->accessibleDescription().indexOf("mask"), -1);
  script += FormatText("mask %.17g %.17g\n", f1, f2);
  QTest::qWait(20);
}

void Road::Pair(int channel) {
  Choose(sasw::DISPACHNL, std::to_string(channel));
  QTest::qWait(20);
  script += FormatText("pair site 1 %d\n", channel);
}

void Road::Walk() {
  // ---- import
  Menu(mainmenu::LOAD_TWO_CHNL_DATA);
  Type(loadtxdata::MEASID, "site");
  Type(loadtxdata::NCHANS, "5");
  Choose(loadtxdata::DATATYPE, "Transfer Functions");
  const ButtonControl* const browse[] = {&loadtxdata::FILEOPEN_SRC, &loadtxdata::FILEOPEN_CH1,
                                         &loadtxdata::FILEOPEN_CH2, &loadtxdata::FILEOPEN_CH3};
  for (int k = 0; k < 4; ++k) {
    ClickForFile(*browse[k], "File Open", FormatText("h%d1.hyx", k + 2));
  }
  EXPECT_NE(GetCtrlVal(loadtxdata::PREVIEW).find("Understood: 1025 lines"), std::string::npos);
  const NumericControl* const places[] = {&loadtxdata::LOC_REC1, &loadtxdata::LOC_REC2, &loadtxdata::LOC_REC3,
                                          &loadtxdata::LOC_REC4, &loadtxdata::LOC_REC5};
  for (int k = 0; k < 5; ++k) Type(*places[k], FormatText("%g", kPlaces[k]));
  Click(loadtxdata::LOAD);
  Click(loadtxdata::CANCEL);
  script += "read hyx id=site files=h21.hyx,h31.hyx,h41.hyx,h51.hyx source=0 at=10,14,18,22,30\n";
  EXPECT_EQ(asked.size(), 4u) << asked.back();

  // ---- pairs, filter, masks, curves
  Tab(1);
  Choose(sasw::DISPAID, "site");
  for (int channel = 2; channel <= 5; ++channel) {
    Pair(channel);
    if (channel == 2) {
      Click(sasw::MASKINGLIST);
      QTest::qWait(30);
      EXPECT_TRUE(IsPanelShown(Panel::IRFSETPNL));
      Close(Panel::IRFSETPNL);
      Mask(1.5, 13.0);
      Mask(60.0, 120.0);
    }
    Click(sasw::MASKINGCALCDISP);
    script += "disperse\n";
    EXPECT_TRUE(WidgetOf(sasw::PAIRCURVE)->isVisible());
  }

  // ---- one curve is left out
  Tab(2);
  Click(dispcurv::REDRAW);
  auto* included = The<QListWidget>(dispcurv::LIST_INCLUDED);
  EXPECT_EQ(included->count(), 4);
  if (included->count() < 4) return;
  Pick(dispcurv::LIST_INCLUDED, 3);
  Click(dispcurv::EXCLUDE);
  EXPECT_EQ(included->count(), 3);
  script += "exclude site 1 5\n";

  // ---- representative curves, layers
  Menu(mainmenu::CALC_REP_DISP_MENU);
  Click(cdisppnl::UPDATE);
  Click(cdisppnl::CANCEL);
  script += "press MAINMENU.CALC_REP_DISP_MENU\npress CDISPPNL.UPDATE\n";
  Tab(3);
  Menu(mainmenu::FMODEL_PARAM);
  Choose(fmodeling::ANALYSISTYPE, "3-D");
  Type(fmodeling::NLAYERS, "4");
  const double layers[4][2] = {{2, 140}, {2, 180}, {4, 260}, {60, 380}};
  script += "set FMODELING.ANALYSISTYPE 3-D\nset FMODELING.NLAYERS 4\n";
  for (int row = 1; row <= 4; ++row) {
    const std::string cells[] = {FormatText("%g", layers[row - 1][0]),
                                 "0",
                                 FormatText("%g", layers[row - 1][1]),
                                 "1.8",
                                 "0.3333",
                                 "0.02"};
    for (int column = 1; column <= 6; ++column) {
      Cell(fmodeling::SOILPROFILE, row, column, cells[column - 1]);
      script += FormatText("cell FMODELING.SOILPROFILE %d %d %s\n", row, column, cells[column - 1].c_str());
    }
  }
  EXPECT_EQ(GraphOf(fmodeling::PROFILE).plots.size(), 1u) << "the picture follows the table";
  Click(fmodeling::LOADDISPCURV);
  Click(fmodeling::UPDATE);
  Click(fmodeling::CLOSE);
  script += "press FMODELING.LOADDISPCURV\npress FMODELING.UPDATE\n";

  // ---- theory, then the inversion
  Choose(exdthd::FMDORINV, "F. Modeling");
  ClickToRun(exdthd::RUN_FMODEL);
  Choose(exdthd::FMDORINV, "Inversion");
  Click(exdthd::RUN_INVERSION);
  QTest::qWait(30);
  Type(inversion::NITER, std::to_string(iterations));
  ClickToRun(inversion::PERFORMINV);
  Click(inversion::CLOSE);
  script += FormatText(
      "press EXDTHD.RUN_FMODEL\npress EXDTHD.RUN_INVERSION\nset INVERSION.NITER %d\n"
      "press INVERSION.PERFORMINV\n",
      iterations);
  EXPECT_EQ(The<QComboBox>(exdthd::ITERNO)->count(), 1 + iterations);
  EXPECT_FALSE(GraphOf(exdthd::RESIDUALS).plots.empty());
}

}  // namespace sondera::test
