// empty_hint.h - what an empty graph says: what to do next.
#pragma once

#include <QLabel>

#include "runtime/graphs.h"

namespace sondera {

/// A text in the middle of a graph's view, there as long as the graph has nothing to show.
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
