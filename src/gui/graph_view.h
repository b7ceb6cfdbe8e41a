// graph_view.h - draws the model of a graph control.
#pragma once

#include <QWidget>

#include "runtime/graphs.h"

namespace sondera {

class GraphView final : public QWidget {
  Q_OBJECT

 public:
  /// For forms: without a control until Bind.
  explicit GraphView(QWidget* parent = nullptr);
  /// Ties it to its control and draws it. The binder calls it once.
  void Bind(const GraphControl& control);
  /// Draws the model as it is now.
  void Refresh();

 private:
  const GraphControl* control_ = nullptr;
};

}  // namespace sondera
