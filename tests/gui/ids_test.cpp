// Ids with blanks, markup, umlauts and 255 bytes, and those of old files that are no UTF-8: shown as they are, kept byte
// for byte, never taken for markup.
#include <QComboBox>
#include <QLineEdit>

#include "gui/dispatch.h"
#include "records/measdb.h"
#include "records/session.h"
#include "runtime/catalogue/hmsetup.h"
#include "runtime/catalogue/mainmenu.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/project_hooks.h"
#include "window_session.h"

namespace sondera {
namespace {

class Ids : public test::WindowSession {
 protected:
  static QLineEdit* Field() {
    DisplayPanel(Panel::HMSETUP);
    QTest::qWait(40);
    return The<QLineEdit>(hmsetup::MEASID);
  }
  static void Type(const QString& text) {
    QLineEdit* field = Field();
    field->setFocus();
    field->selectAll();
    for (const QChar letter : text)  // keyClicks has keys of ASCII alone
      QTest::sendKeyEvent(QTest::Click, field, Qt::Key_unknown, QString(letter), Qt::NoModifier);
    QTest::keyClick(field, Qt::Key_Return);
  }
};

TEST_F(Ids, AnyTextIsAnId) {
  Run([&] {
    const QString id = QString::fromUtf8("<b>Stra\u00DFe & 3</b> \u20AC");
    Type(id);
    EXPECT_EQ(MeasDB.idList.at(1)->MeasID, id.toStdString());
    EXPECT_EQ(The<QComboBox>(sasw::DISPAID)->itemText(0), id);
    EXPECT_NE(MainWindowWidget()->windowTitle().indexOf(id), -1)
        << MainWindowWidget()->windowTitle().toStdString();
    const std::string path = folder.File("O'Neill \u00E4 b.da");
    Answer("file:" + path);
    DispatchPress(mainmenu::SAVE_RAW_DATA);
    EXPECT_EQ(session.projectFileName, path);
    ASSERT_EQ(OpenProject(path), 0);
    EXPECT_EQ(MeasDB.idList.at(1)->MeasID, id.toStdString());
  });
}

TEST_F(Ids, AFieldTakesNoMoreBytesThanTheFile) {
  Run([&] {
    Type(QString(200, QChar(0x00E4)));
    EXPECT_EQ(MeasDB.idList.at(1)->MeasID.size(), 254u) << "127 letters of two bytes";
    Type(QString(300, QLatin1Char('x')));
    EXPECT_EQ(MeasDB.idList.at(1)->MeasID, std::string(255, 'x'));
  });
}

TEST_F(Ids, BytesOfAnOldFileStayUntilTheyAreEdited) {
  const std::string latin = "M\xFCnchen";
  Run([&] {
    Type("Munich");
    const std::string path = folder.File("old.da");
    MeasDB.idList.at(1)->MeasID = latin;
    Answer("file:" + path);
    DispatchPress(mainmenu::SAVE_RAW_DATA);
    ASSERT_EQ(OpenProject(path), 0);
    QLineEdit* field = Field();
    EXPECT_EQ(field->text(), QString::fromUtf8("M\u00FCnchen"));
    field->setFocus();
    QTest::qWait(5);
    The<QComboBox>(sasw::DISPAID)->setFocus();
    field->clearFocus();
    EXPECT_EQ(MeasDB.idList.at(1)->MeasID, latin) << "looking is no edit";
    EXPECT_FALSE(HasUnsavedChanges());
    DispatchPress(mainmenu::SAVE_RAW_DATA);
    EXPECT_NE(test::ReadWhole(path).find(latin), std::string::npos);
    Type(QString::fromUtf8("M\u00FCnchen 2"));
    EXPECT_EQ(MeasDB.idList.at(1)->MeasID, "M\u00FCnchen 2") << "what is typed is UTF-8";
  });
}

}  // namespace
}  // namespace sondera
