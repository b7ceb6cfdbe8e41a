// window_session.h - the real windows in a test: a session, the main window, boxes answered by a list.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTest>
#include <QTimer>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "app/startup.h"
#include "gui/binder.h"
#include "gui/boxes.h"
#include "gui/loop.h"
#include "gui/main_window.h"
#include "gui/panel_window.h"
#include "gui/windows.h"
#include "key_hand.h"
#include "runtime/controls.h"
#include "runtime/dialogs.h"
#include "runtime/events.h"
#include "support/temp_folder.h"

namespace sondera::test {

/// Tests of windows: Run() opens them, does the steps from within the event loop, and ends.
class WindowSession : public ::testing::Test {
 protected:
  WindowSession() {
    qputenv("XDG_STATE_HOME", QByteArray::fromStdString(folder.Path()));
    StartSession();
    EXPECT_TRUE(InstallWindows());
    boxes_.setInterval(5);
    QObject::connect(&boxes_, &QTimer::timeout, [this] { AnswerBox(); });
    boxes_.start();
  }
  ~WindowSession() override {
    boxes_.stop();
    CloseMainWindow();
    InstallFrontEnd({});
    ResetProgramState();
  }

  /// Opens the windows and runs the steps; then ends the program, unless a step has done so.
  int Run(const std::function<void()>& steps) {
    QTimer::singleShot(0, qApp, [&] {
      EXPECT_TRUE(QTest::qWaitForWindowActive(MainWindowWidget()));
      steps();
      if (!QuitRequested()) QuitUserInterface(0);
    });
    return RunUserInterface();
  }

  static QWidget* WidgetOf(const Control& c) {
    Binder* binder = BinderOf(c.panel);
    QWidget* widget = binder ? binder->WidgetOf(c) : nullptr;
    EXPECT_TRUE(widget) << c.name;
    return widget;
  }
  template <class Widget>
  static Widget* The(const Control& c) {
    auto* widget = qobject_cast<Widget*>(WidgetOf(c));
    EXPECT_TRUE(widget) << c.name;
    return widget;
  }
  /// Panels with a window of their own.
  static std::vector<Panel> WindowPanels() {
    std::vector<Panel> panels;
    for (int p = 0; p < kPanelCount; ++p)
      if (IsWindowPanel(static_cast<Panel>(p))) panels.push_back(static_cast<Panel>(p));
    return panels;
  }
  /// The window of such a panel; the set-up's controls stand on the panels of its tabs.
  static QWidget* WindowOf(Panel panel) {
    return WidgetOf(*ControlsOf(panel == Panel::HMSETUP ? Panel::HWSETUP : panel)[0])->window();
  }
  static void Click(const Control& c) { QTest::mouseClick(WidgetOf(c), Qt::LeftButton); }

  /// Answer of the next box: the caption of its button, "text:TEXT", or "file:PATH", before which "kind:TEXT"
  /// chooses a kind of files; or by keys alone: "keys:TEXT" and Enter. Without one the box is cancelled.
  void Answer(const std::string& answer) { answers.push_back(answer); }

  TempFolder folder;
  std::deque<std::string> answers;
  std::vector<std::string> asked;         // texts of the boxes that came up, titles of file dialogs
  std::vector<std::string> startFolders;  // of the file dialogs that came up

 private:
  void AnswerBox() {
    QWidget* modal = QApplication::activeModalWidget();
    if (!modal || !modal->isVisible()) return;
    if (AnswerByKeys(*modal)) return;
    if (auto* box = qobject_cast<QMessageBox*>(modal)) {
      asked.push_back(box->text().toStdString());
      const std::string wanted = Next(box->escapeButton() ? "" : "OK");
      for (QAbstractButton* button : box->buttons()) {
        const std::string caption = button->text().remove(QLatin1Char('&')).toStdString();
        if (caption != wanted && !(wanted.empty() && button == box->escapeButton())) continue;
        button->click();
        return;
      }
      ADD_FAILURE() << "no button " << wanted << " in: " << box->text().toStdString();
      box->reject();
    } else if (auto* dialog = qobject_cast<QFileDialog*>(modal)) {
      asked.push_back(dialog->windowTitle().toStdString());
      startFolders.push_back(dialog->directory().absolutePath().toStdString());
      std::string wanted = Next("");
      if (wanted.starts_with("kind:")) {
        const QStringList kinds = dialog->nameFilters().filter(QString::fromStdString(wanted.substr(5)));
        EXPECT_EQ(kinds.size(), 1) << wanted;
        if (!kinds.isEmpty()) dialog->selectNameFilter(kinds.front());
        wanted = Next("");
      }
      if (!wanted.starts_with("file:")) {
        dialog->reject();
        return;
      }
      auto* field = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
      {
        // Without the focus its completion would replace the text.
        const QSignalBlocker quiet(field);
        field->setText(QString::fromStdString(wanted.substr(5)));
      }
      QMetaObject::invokeMethod(dialog, "accept", Qt::DirectConnection);
    } else if (auto* prompt = qobject_cast<QInputDialog*>(modal)) {
      asked.push_back(prompt->labelText().toStdString());
      const std::string wanted = Next("");
      if (!wanted.starts_with("text:")) {
        prompt->reject();
        return;
      }
      prompt->setTextValue(QString::fromStdString(wanted.substr(5)));
      prompt->accept();
    } else if (auto* other = qobject_cast<QDialog*>(modal)) {
      asked.push_back(other->windowTitle().toStdString());
      other->reject();
    }
  }
  bool AnswerByKeys(const QWidget& modal) {
    if (answers.empty() || !answers.front().starts_with("keys:")) return false;
    if (!modal.isAncestorOf(QApplication::focusWidget())) return true;  // not yet
    const auto* box = qobject_cast<const QMessageBox*>(&modal);
    asked.push_back((box ? box->text() : modal.windowTitle()).toStdString());
    TypeKeys(Next("").substr(5));
    PressKey(Qt::Key_Return);
    return true;
  }
  std::string Next(const std::string& otherwise) {
    if (answers.empty()) return otherwise;
    std::string next = answers.front();
    answers.pop_front();
    return next;
  }

  QTimer boxes_;
};

}  // namespace sondera::test
