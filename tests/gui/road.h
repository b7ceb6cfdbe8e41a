// road.h - a person's road at the windows, from files to a profile, by mouse and keys. Every act goes to the windows of the
// test; a second hand may do the same at another program.
#pragma once

#include <QPoint>
#include <filesystem>
#include <string>

#include "runtime/control.h"
#include "window_session.h"

class QAction;

namespace sondera::test {

/// What a person does, as another program sees it. Widgets and places are those of the test's own windows, before its own
/// act.
class SecondHand {
 public:
  virtual ~SecondHand() = default;
  virtual void Click(QWidget& widget, QPoint at) = 0;
  virtual void Drag(QWidget& widget, QPoint from, QPoint to) = 0;
  /// Replaces the contents of the field with the focus; Enter.
  virtual void Type(const std::string& text) = 0;
  virtual void Keys(const std::string& key, int times = 1) = 0;
  /// By the letters of the menu bar.
  virtual void Menu(const QAction& item) = 0;
  /// Answers the file dialog of this title.
  virtual void File(const std::string& title, const std::string& name) = 0;
  /// Waits for the end of the run that the last click began.
  virtual void AwaitRun() = 0;
};

class Road : public WindowSession {
 protected:
  Road();
  ~Road() override;

  /// Writes the four records of the road into a folder.
  static void WriteRecords(const std::string& folder);
  /// The road, up to the iterations; within Run().
  void Walk();
  /// The live action of a menu item in the menu bar; null, and a failure of the test: none.
  static QAction* LiveItem(const Control& item);
  static int PlaceInRing(const Control& ring, const std::string& item);

  // ---- the acts of the road, by mouse and keys
  /// A menu item as the mouse reaches it: by its action in the menu bar.
  virtual void Menu(const Control& item);
  virtual void ClickForFile(const Control& button, const std::string& title, const std::string& name);
  virtual void Click(const Control& button);
  virtual void Close(Panel panel);
  virtual void Type(const Control& field, const std::string& text);
  /// Keys up and down until the item stands there; each of them chooses one.
  virtual void Choose(const Control& ring, const std::string& item);
  /// An item of a list, by its position from 0.
  virtual void Pick(const Control& list, int row);
  virtual void Tab(int page);
  virtual void Cell(const TableControl& table, int row, int column, const std::string& text);
  /// Drags over graph A.
  virtual void Span(double from, double to);

  SecondHand* other = nullptr;
  std::string script = "*sondera 2\n";  ///< the same acts as lines
  int iterations = 3;

 private:
  void ClickAt(QWidget* widget, QPoint at);
  void ClickToRun(const Control& button);
  /// Sets the ends of a mask over graph A and makes it.
  void Mask(double from, double to);
  void Pair(int channel);

  std::filesystem::path former_;
};

}  // namespace sondera::test
