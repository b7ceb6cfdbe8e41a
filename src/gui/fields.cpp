// fields.cpp - see fields.h.
#include "gui/fields.h"

#include <QAction>
#include <QColorDialog>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "gui/qt_text.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr int kMostDigits = 10;  // that a person types
constexpr int kDrawnDigits = 6;  // of a rounded number
constexpr int kTextMargin = 2;   // pixels that the toolkit leaves beside the text of a field

}  // namespace

std::string NumberText(double value) {
  if (value == 0.0) return "0";
  char text[64];
  const double size = std::fabs(value);
  const bool plain = size >= 1e-4 && size < 1e15;  // without a power of ten
  const auto end = plain ? std::to_chars(text, text + sizeof text, value, std::chars_format::fixed)
                         : std::to_chars(text, text + sizeof text, value);
  return {text, end.ptr};
}

std::optional<double> NumberFromText(std::string_view text, bool whole) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  text = text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
  if (text.front() == '+' && text.size() > 1 && text[1] != '-') text.remove_prefix(1);
  double value = 0.0;
  const auto end = std::from_chars(text.data(), text.data() + text.size(), value);
  if (end.ec != std::errc() || end.ptr != text.data() + text.size() || !std::isfinite(value)) return {};
  if (!whole) return value;
  if (std::fabs(value) > std::numeric_limits<int>::max()) return {};
  return std::trunc(value);
}

// ---- NumberField ------------------------------------------------------------------------------------------------

void LimitBytes(QLineEdit& field, int bytes) {
  QObject::connect(&field, &QLineEdit::textEdited, &field, [&field, bytes](const QString& typed) {
    const QString cut = CutToBytes(typed, bytes);
    if (cut == typed) return;
    const int at = field.cursorPosition();
    field.setText(cut);
    field.setCursorPosition(std::min<int>(at, static_cast<int>(cut.size())));
    field.setModified(true);
  });
}

NumberField::NumberField(QWidget* parent) : QLineEdit(parent) {
  setAcceptDrops(false);
  connect(this, &QLineEdit::returnPressed, this, &NumberField::TakeText);
  SetNumber(0.0);
}

void NumberField::SetNumber(double value) {
  number_ = value;
  shown_ = short_ ? QString::number(value, 'g', 6) : ToQt(NumberText(value));
  setText(shown_);
  setCursorPosition(0);
  ShowFault({});
}

void NumberField::ShowFault(const QString& reason) {
  if (property("fault").toString() == reason) return;
  setProperty("fault", reason);
  setStyleSheet(reason.isEmpty() ? QString()
                                 : QStringLiteral("QLineEdit { color: #ffffff; background: #a80000; }"));
  if (!reason.isEmpty()) setProperty("hint", toolTip());
  setToolTip(reason.isEmpty() ? property("hint").toString() : reason);
}

void NumberField::TakeText() {
  if (isReadOnly()) return;
  const std::optional<double> value = NumberFromText(FromQt(text()), whole_);
  if (!value) {
    ShowFault(text().contains(QLatin1Char(','))
                  ? tr("Numbers have a decimal point, not a comma. The former number is kept.")
                  : tr("This is not a number. The former number is kept."));
    return;
  }
  ShowFault({});
  // Enter commits an unchanged number too; it keeps all digits that the store has.
  const double entered = text() == shown_ ? number_ : *value;
  number_ = entered;
  shown_ = ToQt(NumberText(entered));
  setText(shown_);
  Q_EMIT Entered(entered);
}

void NumberField::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && text() != shown_) {
    SetNumber(number_);
    selectAll();
    return;
  }
  const bool up = event->key() == Qt::Key_Up, down = event->key() == Qt::Key_Down;
  if ((up || down) && step_ > 0.0 && !isReadOnly()) {
    const std::optional<double> value = NumberFromText(FromQt(text()), whole_);
    if (value) {
      setText(ToQt(NumberText(*value + (up ? step_ : -step_))));
      TakeText();
    }
    return;
  }
  QLineEdit::keyPressEvent(event);
}

void NumberField::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  if (text() != shown_ && event->reason() != Qt::PopupFocusReason) TakeText();
}

QRect NumberField::TextPlace() const {
  QStyleOptionFrame option;
  initStyleOption(&option);
  return style()
      ->subElementRect(QStyle::SE_LineEditContents, &option, this)
      .adjusted(kTextMargin, 0, -kTextMargin, 0);
}

QString NumberField::Drawn() const {
  if (hasFocus() || text() != shown_) return text();
  const int room = TextPlace().width();
  const auto fits = [&](const QString& shown) { return fontMetrics().horizontalAdvance(shown) <= room; };
  const auto isDigit = [](QChar c) { return c.isDigit(); };
  const auto digits = std::count_if(shown_.begin(), shown_.end(), isDigit);
  if (digits <= kMostDigits && fits(shown_)) return shown_;
  QString rounded;
  for (int figures = kDrawnDigits; figures > 0; --figures) {
    rounded = ToQt(FormatText("%.*g", figures, number_));
    if (fits(rounded)) break;
  }
  return rounded;
}

void NumberField::paintEvent(QPaintEvent* event) {
  const QString drawn = Drawn();
  if (drawn == text()) {
    QLineEdit::paintEvent(event);
    return;
  }
  QStyleOptionFrame option;
  initStyleOption(&option);
  QPainter painter(this);
  style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, this);
  style()->drawItemText(&painter, TextPlace(), Qt::AlignLeft | Qt::AlignVCenter, option.palette, isEnabled(),
                        drawn, QPalette::Text);
}

// ---- ColourButton -----------------------------------------------------------------------------------------------

ColourButton::ColourButton(QWidget* parent) : QPushButton(parent) {
  connect(this, &QPushButton::clicked, this, &ColourButton::Choose);
}

void ColourButton::SetColour(int rgb) {
  rgb_ = rgb;
  update();
}

void ColourButton::Choose() {
  const QColor now = QColor::fromRgb(static_cast<QRgb>(rgb_));
  const QColor chosen =
      QColorDialog::getColor(now, window(), accessibleName(), QColorDialog::DontUseNativeDialog);
  if (chosen.isValid()) Q_EMIT Chosen(static_cast<int>(chosen.rgb() & 0xFFFFFFU));
}

void ColourButton::paintEvent(QPaintEvent* event) {
  QPushButton::paintEvent(event);
  QPainter painter(this);
  QColor fill = QColor::fromRgb(static_cast<QRgb>(rgb_));
  if (!isEnabled()) fill.setAlphaF(0.4F);
  painter.setPen(palette().color(QPalette::Mid));
  painter.setBrush(fill);
  painter.drawRect(rect().adjusted(6, 5, -7, -6));
}

// ---- Lamp -------------------------------------------------------------------------------------------------------

Lamp::Lamp(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void Lamp::SetLit(bool lit) {
  lit_ = lit;
  update();
}

QSize Lamp::sizeHint() const {
  const int side = fontMetrics().height();
  return {side, side};
}

void Lamp::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(palette().color(QPalette::Dark), 1.0));
  painter.setBrush(lit_ ? QColor(0x00, 0x9E, 0x73) : palette().color(QPalette::Mid));
  const int side = std::min(width(), height()) - 3;
  painter.drawEllipse((width() - side) / 2, (height() - side) / 2, side, side);
}

}  // namespace sondera
