// scroll_area.h - a place for a form that may be larger than the screen: scroll bars come only where it is.
#pragma once

#include <QScrollArea>

namespace sondera {

/// Without a frame, and no stop of the Tab key. The form fills it, but is never smaller than it can be.
class FormArea final : public QScrollArea {
 public:
  explicit FormArea(QWidget* parent);
  /// Takes the form, once.
  void SetForm(QWidget* form);
  /// The size that the form wants, within this room.
  QSize FirstSize(const QSize& room) const;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  int LeastHeight(int width) const;
  void Fit();
};

/// The wheel over the widget scrolls the area around it, unless the widget has the focus: nobody changes a choice
/// by scrolling past it.
void KeepFromWheel(QWidget* widget);

}  // namespace sondera
