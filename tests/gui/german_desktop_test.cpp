// A desktop whose numbers have a comma: all numbers of the program have a point. The test program runs once more with
// LC_ALL=de_DE.UTF-8 (tests/CMakeLists.txt).
#include <QFile>
#include <QLocale>
#include <clocale>
#include <regex>

#include "gui/fields.h"
#include "gui/figures.h"
#include "gui/graph_view.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/graphs.h"
#include "window_session.h"

namespace sondera {
namespace {

using GermanDesktop = test::WindowSession;

TEST_F(GermanDesktop, FieldsAndAxesKeepThePoint) {
  if (QLocale::system().decimalPoint() != QString(",")) GTEST_SKIP() << "this desktop writes points";
  EXPECT_EQ(QLocale().decimalPoint(), QString("."));
  EXPECT_STREQ(std::localeconv()->decimal_point, ".");
  Run([&] {
    SetActiveTabPage(Panel::PANEL, 1);
    QTest::qWait(20);
    auto* field = The<NumberField>(sasw::MASKING_FREQINIT);
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, "0.25");
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(GetCtrlVal(sasw::MASKING_FREQINIT), 0.25);
    EXPECT_EQ(field->text(), QString("0.25"));
    field->selectAll();
    QTest::keyClicks(field, "0,5");
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(GetCtrlVal(sasw::MASKING_FREQINIT), 0.25) << "refused, and not read as 0";
    EXPECT_FALSE(field->property("fault").toString().isEmpty());

    DeleteGraphPlot(sasw::DISPLAY_B);
    PlotXY(sasw::DISPLAY_B, {0, 0.5, 1}, {0.2, 0.7, 0.4}, PlotStyle::Line, kNoMarker, 0x000000);
    QTest::qWait(20);
    auto* graph = The<GraphView>(sasw::DISPLAY_B);
    const QString file = QString::fromStdString(folder.File("axes.svg"));
    ASSERT_EQ(SaveFigure(*graph, file), QString());
    const std::string svg = test::ReadWhole(file.toStdString());
    EXPECT_TRUE(std::regex_search(svg, std::regex(">\\s*0\\.[0-9]+\\s*<"))) << "a number of an axis";
    EXPECT_FALSE(std::regex_search(svg, std::regex(">\\s*[0-9]+,[0-9]+\\s*<")));
    EXPECT_EQ(graph->accessibleDescription().indexOf("0,"), -1)
        << graph->accessibleDescription().toStdString();
  });
}

}  // namespace
}  // namespace sondera
