// key_hand.h - a person's keys, without a mouse: each goes where the window system would bring it.
#pragma once

#include <QApplication>
#include <QTest>
#include <algorithm>
#include <string>
#include <vector>

namespace sondera::test {

/// Presses a key in the popup that is open, else in the widget with the focus, else in the active window.
inline void PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
  QWidget* at = QApplication::activePopupWidget();
  if (!at) at = QApplication::focusWidget();
  if (!at) at = QApplication::activeWindow();
  if (at) QTest::keyClick(at, key, modifiers);
}

/// The letter of the keyboard that a caption underlines; 0: none.
inline char LetterOf(const QString& caption) {
  for (qsizetype i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != QLatin1Char('&')) continue;
    if (caption[i + 1] != QLatin1Char('&')) return caption[i + 1].toUpper().toLatin1();
    ++i;
  }
  return 0;
}

inline void PressLetter(char letter, Qt::KeyboardModifiers modifiers = {}) {
  PressKey(static_cast<Qt::Key>(Qt::Key_A + (letter - 'A')), modifiers);
}

inline void TypeKeys(const std::string& text) {
  for (const char c : text) {
    QWidget* at = QApplication::activePopupWidget();
    if (!at) at = QApplication::focusWidget();
    if (at) QTest::keyClick(at, c);
  }
}

/// What the Tab key reaches in the active window, in its order, up to the first widget that comes again.
inline std::vector<QWidget*> TabRound() {
  std::vector<QWidget*> reached;
  for (int i = 0; i < 400; ++i) {
    PressKey(Qt::Key_Tab);
    QWidget* at = QApplication::focusWidget();
    if (!at || (!reached.empty() && at == reached.front())) break;
    if (std::find(reached.begin(), reached.end(), at) != reached.end()) break;
    reached.push_back(at);
  }
  return reached;
}

/// Brings a window to the front, as the desktop does: the screen in memory leaves this out when a window goes.
inline bool BringToFront(QWidget& window) {
  if (QApplication::activeWindow() != &window) {
    window.activateWindow();
    QApplication::setActiveWindow(&window);
  }
  return QApplication::activeWindow() == &window;
}

/// Tab until the widget has the focus.
inline bool TabTo(const QWidget* wanted) {
  for (int i = 0; i < 400 && QApplication::focusWidget() != wanted; ++i) PressKey(Qt::Key_Tab);
  return QApplication::focusWidget() == wanted;
}

}  // namespace sondera::test
