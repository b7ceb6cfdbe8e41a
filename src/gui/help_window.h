// help_window.h - the user manual in a separate window: chapters on the left, text on the right, a field for
// searching.
//
// The texts of docs/ and their pictures are built into the program, so the manual is always available.
#pragma once

#include <QDialog>
#include <QTextBrowser>

class QLabel;
class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace sondera {

/// The anchor of a heading for links: lower case letters and digits, dashes for blanks ("What you need" is
/// "what-you-need").
QString HeadingAnchor(const QString& heading);

/// A text of docs/ with anchors at its headings and lines around its tables.
class ManualText final : public QTextBrowser {
  Q_OBJECT

 public:
  explicit ManualText(QWidget* parent);
  /// Marks the next match in a text after the cursor, from the top again at the end. False: not found.
  bool FindNext(const QString& text);

 protected:
  void doSetSource(const QUrl& url, QTextDocument::ResourceType type) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Dress();
};

class HelpWindow final : public QDialog {
  Q_OBJECT

 public:
  /// A separate window, above its owner.
  explicit HelpWindow(QWidget* owner);
  /// Shows a page, such as "manual.md" or "script.md#words".
  void ShowPage(const QString& page);
  ManualText& text() const { return *text_; }

 private:
  void FillChapters();
  void Follow(const QUrl& link);
  void Find();

  QTreeWidget* chapters_ = nullptr;
  ManualText* text_ = nullptr;
  QLineEdit* search_ = nullptr;
  QLabel* note_ = nullptr;
};

/// Shows the manual: one window, created at its first use, deleted with its owner. Returns 0.
int ShowHelpWindow(QWidget* owner);

}  // namespace sondera
