// Cells of a table: short when displayed, with all digits in the editor and in a copy.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QTableView>
#include <QTest>

#include "gui/table_model.h"
#include "runtime/catalogue/fmodeling.h"

namespace sondera {
namespace {

TEST(TableCells, AreShortToLookAtAndKeepAllDigits) {
  ResetControls();
  SetTableCellVal(fmodeling::SOILPROFILE, 1, 3, 156.41878123456789);
  SetTableCellVal(fmodeling::SOILPROFILE, 1, 4, 1800);
  SetTableCellVal(fmodeling::SOILPROFILE, 2, 3, 1.5e-7 / 3);
  QTableView view;
  SetUpTableView(view, fmodeling::SOILPROFILE);
  const QAbstractItemModel* model = view.model();
  EXPECT_EQ(model->index(0, 2).data().toString(), "156.419");
  EXPECT_EQ(model->index(0, 2).data(Qt::EditRole).toString().toDouble(), 156.41878123456789);
  EXPECT_TRUE(model->index(0, 2).data(Qt::AccessibleTextRole).toString().contains("156.4187812345"));
  EXPECT_EQ(model->index(0, 3).data().toString(), "1800");
  EXPECT_EQ(model->index(1, 2).data().toString(), "5e-08");

  view.show();
  view.setFocus();
  view.setCurrentIndex(model->index(0, 2));
  for (QAction* action : view.actions())
    if (action->shortcut() == QKeySequence(QKeySequence::Copy)) action->trigger();
  EXPECT_EQ(QApplication::clipboard()->text().trimmed().toDouble(), 156.41878123456789);
}

/// An editor that is opened and left without a change writes nothing.
TEST(TableCells, LookingIntoACellKeepsItsValue) {
  ResetControls();
  SetTableCellVal(fmodeling::SOILPROFILE, 1, 3, 156.41878123456789);
  QTableView view;
  SetUpTableView(view, fmodeling::SOILPROFILE);
  view.show();
  view.setCurrentIndex(view.model()->index(0, 2));
  view.edit(view.currentIndex());
  auto* editor = view.findChild<QLineEdit*>();
  ASSERT_TRUE(editor);
  EXPECT_EQ(editor->text().toDouble(), 156.41878123456789);
  QTest::keyClick(editor, Qt::Key_Return);
  EXPECT_EQ(GetTableCellVal(fmodeling::SOILPROFILE, 1, 3), 156.41878123456789);
}

}  // namespace
}  // namespace sondera
