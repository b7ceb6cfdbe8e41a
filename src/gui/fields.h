// fields.h - fields for forms besides Qt's own: numbers, colours, lamps.
//
// None of them knows the store; the binder connects them. A signal reports input of a person only: when the
// program writes to a field there is no signal.
#pragma once

#include <QLineEdit>
#include <QPushButton>
#include <QWidget>
#include <optional>
#include <string>
#include <string_view>

namespace sondera {

/// The shortest text that gives the same number when read; the decimal sign is always a point.
std::string NumberText(double value);
/// The number in a text, without blanks around it. Empty for anything else: a decimal comma, letters, a
/// number that is not finite. Whole: fractions are truncated, numbers beyond an int are refused.
std::optional<double> NumberFromText(std::string_view text, bool whole = false);

/// Cuts what is typed into the field at so many bytes of UTF-8, between two characters.
void LimitBytes(QLineEdit& field, int bytes);

/// A number with up to 17 digits. Enter, or leaving the field with a changed text, commits; a text that is
/// not a number stays visible in the error colour, with a tool tip that says why, and is not stored. Escape
/// restores the former number. Without the focus a number of many digits, or one wider than the field, is
/// drawn rounded, as in a table; the text of the field has all digits.
class NumberField : public QLineEdit {
  Q_OBJECT

 public:
  explicit NumberField(QWidget* parent = nullptr);
  void SetWhole(bool whole) { whole_ = whole; }
  /// Step of the arrow keys; 0: they do nothing.
  void SetStep(double step) { step_ = step; }
  void SetNumber(double value);
  /// For displayed values: six digits, which are easy to read.
  void SetShort(bool isShort) { short_ = isShort; }
  double Number() const { return number_; }
  /// The text, or the rounded number that is drawn in its place.
  QString Drawn() const;

 Q_SIGNALS:
  void Entered(double value);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QRect TextPlace() const;
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
