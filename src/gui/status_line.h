// status_line.h - the one place for progress, time left and Halt: the status bar of the main window.
#pragma once

#include <QStatusBar>
#include <string>
#include <string_view>

class QLabel;
class QProgressBar;
class QPushButton;

namespace sondera {

/// The parts of "Iteration 2     37 % done, 2 min 05 s left".
struct StatusParts {
  std::string text;      ///< present step
  int percent = -1;      ///< share done; -1 when the text has none
  std::string timeLeft;  ///< "2 min 05 s left"; empty when it is not known
};
StatusParts PartsOfStatus(std::string_view status);

class StatusLine final : public QStatusBar {
  Q_OBJECT

 public:
  explicit StatusLine(QWidget* parent);
  /// Moves the button of the results page here; it is the only Halt.
  void TakeHalt(QWidget* button);
  /// Reads the store again: text of the run, progress, and the state of the project.
  void Follow();

 private:
  QLabel* saved_;
  QLabel* content_;
  QLabel* work_;
  QLabel* left_;
  QProgressBar* progress_;
};

}  // namespace sondera
