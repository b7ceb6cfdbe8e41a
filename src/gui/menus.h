// menus.h - menu bar, tool bar and shortcuts of the main window, made from the catalogue's paths and captions.
#pragma once

#include <QAction>
#include <QIcon>
#include <QMainWindow>
#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

#include "runtime/control.h"

namespace sondera {

class MeasurementRing;

/// A caption with an Alt letter that is not in `used` yet; the letter is added there.
QString WithMnemonic(const QString& caption, QString& used);

class Menus final : public QObject {
  Q_OBJECT

 public:
  explicit Menus(QMainWindow* window);
  /// Dims controls that do not react now; keys of the measurement page work on that page only.
  void Follow();

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void MakeBar();
  void MakeToolBar();
  void MakeKeys();
  QMenu* MenuOf(const std::string& path);
  QAction* Add(QMenu* menu, const Control& c, const QString& caption);
  QAction* AddTool(const Control& c, const QString& text, const QIcon& icon);
  void FillRecent();
  /// A key or a click has its effect at once, so that what is typed next goes into the box that it opens. A
  /// screen reader that presses an item waits for the item's return; the box opens after that.
  void Perform(const std::function<void()>& work);

  QMainWindow* window_;
  std::unordered_map<std::string, QMenu*> menus_;
  std::unordered_map<const QMenu*, QString> letters_;
  std::vector<std::pair<ControlId, QAction*>> actions_;
  std::vector<QAction*> pageKeys_;
  QMenu* recent_ = nullptr;
  MeasurementRing* measurement_ = nullptr;
  bool byHand_ = false;  // while a key or a click is at work
};

}  // namespace sondera
