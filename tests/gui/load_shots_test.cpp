// The panel of shots as a person uses it: menu item, names typed into fields, a pair ticked off, Import.
#include <QPlainTextEdit>
#include <QTableView>

#include "gui/refresh.h"
#include "records/measdb.h"
#include "runtime/catalogue/loadshots.h"
#include "runtime/catalogue/mainmenu.h"
#include "support/seg2_writer.h"
#include "window_session.h"

namespace sondera {
namespace {

class LoadShotsWindow : public test::WindowSession {
 protected:
  std::string WriteShot(bool withPlaces = true) {
    test::Seg2Line line;
    line.receivers = {10, 14, 20, 28, 40, 56};
    line.samples = 1024;  // the wave reaches the last receiver
    if (!withPlaces)
      line.number = [](double) { return "0"; };  // as recorders write it where nobody typed them
    const std::string path = folder.File("shot.dat");
    test::WriteWhole(path, test::Seg2Bytes(test::Seg2OfLine(test::WithWave(line, 200.0))));
    return path;
  }
  /// Those that were imported, without the empty one of a new session.
  static std::vector<std::string> Measurements() {
    std::vector<std::string> ids;
    for (const IDInfo& id : MeasDB.idList)
      if (id.MeasID != "measID") ids.push_back(id.MeasID);
    return ids;
  }
  static void Settle() {
    FlushViews();
    QApplication::processEvents();
  }
  static void Type(const Control& c, const std::string& text) {
    auto* field = The<QLineEdit>(c);
    QApplication::setActiveWindow(field->window());
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, QString::fromStdString(text));
    QTest::keyClick(field, Qt::Key_Return);
    Settle();
  }
};

TEST_F(LoadShotsWindow, ShowsThePlanWhileItIsFilledInAndImportsWhatIsTicked) {
  const std::string path = WriteShot();
  Run([&] {
    ASSERT_EQ(Commit(mainmenu::LOAD_SHOTS), 0);
    Settle();
    ASSERT_TRUE(IsPanelShown(Panel::LOADSHOTS));
    Type(loadshots::FILES, path);
    auto* preview = The<QPlainTextEdit>(loadshots::PREVIEW);
    EXPECT_TRUE(preview->toPlainText().contains("to be answered: Empty ID String !"))
        << preview->toPlainText().toStdString();
    Type(loadshots::MEASID, "A");
    EXPECT_TRUE(preview->toPlainText().contains("near to far")) << preview->toPlainText().toStdString();
    QAbstractItemModel* table = The<QTableView>(loadshots::PAIRTABLE)->model();
    ASSERT_EQ(table->rowCount(), 4);
    EXPECT_TRUE(table->setData(table->index(0, 0), "0"));
    Settle();
    QTest::mouseClick(The<QPushButton>(loadshots::LOAD), Qt::LeftButton);
    Settle();
  });
  EXPECT_EQ(Measurements(), (std::vector<std::string>{"A_14_28", "A_20_40", "A_28_56"}));
}

TEST_F(LoadShotsWindow, AsksForPlacesThatTheFileDoesNotGive) {
  const std::string path = WriteShot(false);
  Run([&] {
    ASSERT_EQ(Commit(mainmenu::LOAD_SHOTS), 0);
    Settle();
    Type(loadshots::FILES, path);
    Type(loadshots::MEASID, "A");
    auto* preview = The<QPlainTextEdit>(loadshots::PREVIEW);
    EXPECT_TRUE(preview->toPlainText().contains("to be answered: ")) << preview->toPlainText().toStdString();
    EXPECT_TRUE(preview->toPlainText().contains("RECEIVER_LOCATION")) << preview->toPlainText().toStdString();
    Click(loadshots::LOAD);
    ASSERT_EQ(asked.size(), 1u);
    EXPECT_NE(asked.back().find("RECEIVER_LOCATION"), std::string::npos) << asked.back();
    EXPECT_TRUE(IsPanelShown(Panel::LOADSHOTS));
    EXPECT_TRUE(Measurements().empty());
    Type(loadshots::SOURCE, "0");
    Type(loadshots::RECEIVERS, "10,14,20,28,40,56");
    EXPECT_FALSE(preview->toPlainText().contains("to be answered: ")) << preview->toPlainText().toStdString();
    Click(loadshots::LOAD);
    Settle();
    EXPECT_FALSE(IsPanelShown(Panel::LOADSHOTS));
  });
  EXPECT_EQ(Measurements(), (std::vector<std::string>{"A_10_20", "A_14_28", "A_20_40", "A_28_56"}));
}

}  // namespace
}  // namespace sondera
