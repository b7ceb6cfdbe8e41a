// empty_hint.h - the hint in an empty graph: what to do next.
#pragma once

#include <QLabel>

#include "runtime/graphs.h"

namespace sondera {

/// A text in the middle of a graph's view, visible as long as the graph is empty.
class EmptyHint final : public QLabel {
  Q_OBJECT

 public:
  EmptyHint(const GraphControl& graph, const QString& text, QWidget* view);
  void Follow();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Centre();
  const GraphControl& graph_;
};

}  // namespace sondera
