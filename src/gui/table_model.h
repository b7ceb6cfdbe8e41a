// table_model.h - a table control of the store as a Qt model, and pasting of a block from a spreadsheet.
#pragma once

#include <QAbstractTableModel>
#include <QTableView>
#include <optional>
#include <vector>

#include "gui/dispatch.h"
#include "runtime/controls.h"

namespace sondera {

/// A block of numbers from a spreadsheet, row by row: columns separated by tabs or else by blanks, numbers
/// with a decimal point or with a comma, where that is unambiguous. Empty for a text with anything else in
/// it. Cells count from (row, column).
std::optional<std::vector<CellEntry>> CellsFromText(std::string_view text, int row, int column);

class TableModel final : public QAbstractTableModel {
  Q_OBJECT

 public:
  TableModel(const TableControl& table, QObject* parent);
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

  const TableControl& table() const { return table_; }
  /// Rows or cells of the store have changed.
  void RowsChanged();
  void CellsChanged();

 private:
  const TableControl& table_;
  int rows_ = 0;
};

/// Prepares a view: Tab leaves it, Ctrl+C and Ctrl+V copy and paste blocks.
void SetUpTableView(QTableView& view, const TableControl& table);

}  // namespace sondera
