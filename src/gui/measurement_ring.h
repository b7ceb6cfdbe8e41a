// measurement_ring.h - the choice of the measurement in the tool bar: that of trace A of the page in front.
#pragma once

#include <QWidget>

class QComboBox;

namespace sondera {

class MeasurementRing final : public QWidget {
 public:
  explicit MeasurementRing(QWidget* parent);
  /// Items, choice and state of the page's own ring.
  void Follow();

 private:
  QComboBox* ring_;
};

}  // namespace sondera
