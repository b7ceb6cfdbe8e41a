// fields.h - the fields that forms are made of besides Qt's own: numbers, colours, lamps.
//
// None of them knows the store; the binder connects them. Each tells by a signal what a person has entered, and only
// that: what the program writes into them makes no signal.
#pragma once

#include <QLineEdit>
#include <QPushButton>
#include <QWidget>
#include <optional>
#include <string>
#include <string_view>

namespace sondera {

/// The shortest text that reads back to the same number; the decimal sign is always a point.
std::string NumberText(double value);
/// The number that a text stands for, blanks around it left out. Empty for anything else: a decimal comma, letters, a
/// number that is not finite. Whole: fractions are cut, numbers that no int holds are refused.
std::optional<double> NumberFromText(std::string_view text, bool whole = false);

/// A number with up to 17 digits. Enter, or leaving the field with a changed text, commits; a text that is no number
/// stays visible, in the colour of an error, with a tool tip that says why, and is not taken. Escape brings the former
/// number back.
class NumberField : public QLineEdit {
  Q_OBJECT

 public:
  explicit NumberField(QWidget* parent = nullptr);
  void SetWhole(bool whole) { whole_ = whole; }
  /// Step of the arrow keys; 0: they do nothing.
  void SetStep(double step) { step_ = step; }
  void SetNumber(double value);
  /// For what is only shown: six digits, which a person can take in.
  void SetShort(bool isShort) { short_ = isShort; }
  double Number() const { return number_; }

 Q_SIGNALS:
  void Entered(double value);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void TakeText();
  void ShowFault(const QString& reason);

  double number_ = 0.0;
  double step_ = 0.0;
  bool whole_ = false, short_ = false;
  QString shown_;
};

/// A field of one colour; a click chooses another.
class ColourButton : public QPushButton {
  Q_OBJECT

 public:
  explicit ColourButton(QWidget* parent = nullptr);
  void SetColour(int rgb);  ///< 0xRRGGBB
  int Colour() const { return rgb_; }

 Q_SIGNALS:
  void Chosen(int rgb);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void Choose();
  int rgb_ = 0;
};

/// Shows on or off; takes no input.
class Lamp : public QWidget {
  Q_OBJECT
  Q_PROPERTY(bool lit READ IsLit)

 public:
  explicit Lamp(QWidget* parent = nullptr);
  void SetLit(bool lit);
  bool IsLit() const { return lit_; }
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool lit_ = false;
};

}  // namespace sondera
