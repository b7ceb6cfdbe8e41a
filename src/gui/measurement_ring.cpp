// measurement_ring.cpp - see measurement_ring.h.
#include "gui/measurement_ring.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>

#include "gui/dispatch.h"
#include "gui/qt_text.h"
#include "gui/scroll_area.h"
#include "runtime/catalogue/measpanel.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/controls.h"

namespace sondera {
namespace {

const Control& RingOfThePage() {
  return GetActiveTabPage(Panel::PANEL) == 0 ? static_cast<const Control&>(measpanel::DISPAID)
                                             : sasw::DISPAID;
}

}  // namespace

MeasurementRing::MeasurementRing(QWidget* parent) : QWidget(parent), ring_(new QComboBox(this)) {
  const QString name = tr("Tool bar, measurement");
  auto* label = new QLabel(tr("Measurement"), this);
  label->setBuddy(ring_);
  label->setAccessibleName(name);  // a ring has the name of its label
  ring_->setObjectName(QStringLiteral("toolMeasurement"));
  ring_->setAccessibleName(name);
  ring_->setMinimumContentsLength(10);
  ring_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  KeepFromWheel(ring_);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(6, 0, 6, 0);
  layout->addWidget(label);
  layout->addWidget(ring_);
  connect(ring_, &QComboBox::activated, this, [this](int index) {
    DispatchIndex(RingOfThePage(), index);
    Follow();  // a choice that was refused
  });
}

void MeasurementRing::Follow() {
  const Control& c = RingOfThePage();
  const QSignalBlocker quiet(ring_);
  const int count = items::Count(c);
  bool same = ring_->count() == count;
  for (int i = 0; same && i < count; ++i) same = ring_->itemText(i) == ToQt(items::Label(c, i));
  if (!same) {
    ring_->clear();
    for (int i = 0; i < count; ++i) ring_->addItem(ToQt(items::Label(c, i)));
  }
  ring_->setCurrentIndex(items::Index(c));
  ring_->setToolTip(ToQt(c.facts.hint));
  setEnabled(Answers(c) && !IsDimmed(c) && count > 0);
}

}  // namespace sondera
