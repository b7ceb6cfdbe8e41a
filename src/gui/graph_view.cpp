// graph_view.cpp - see graph_view.h.
#include "gui/graph_view.h"

namespace sondera {

GraphView::GraphView(QWidget* parent) : QWidget(parent) {
  setMinimumSize(160, 100);
}

void GraphView::Bind(const GraphControl& control) {
  control_ = &control;
  Refresh();
}

void GraphView::Refresh() {
  update();
}

}  // namespace sondera
