// table_model.cpp - see table_model.h.
#include "gui/table_model.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <algorithm>
#include <cmath>

#include "gui/boxes.h"
#include "gui/fields.h"
#include "gui/qt_text.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr int kLeastColumn = 60, kHeadingMargin = 5;  // pixels

/// Pairs contain numbers of receivers: integers.
bool IsWholeColumn(const TableControl& table, int column) {
  return table.name == "DISPCURVINFO" && column <= 2;
}

std::vector<std::string_view> Split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  while (true) {
    const std::size_t at = text.find(separator);
    parts.push_back(text.substr(0, at));
    if (at == std::string_view::npos) return parts;
    text.remove_prefix(at + 1);
  }
}

std::vector<std::string_view> Words(std::string_view line) {
  std::vector<std::string_view> words;
  for (const std::string_view word : Split(line, ' '))
    if (!word.empty()) words.push_back(word);
  return words;
}

/// "1,5" from a spreadsheet with decimal commas; "1,500" could also mean 1500 and is refused.
std::optional<double> CellNumber(std::string_view text) {
  if (const auto number = NumberFromText(text)) return number;
  std::string pointed(text);
  const std::size_t comma = pointed.find(',');
  if (comma == std::string::npos || pointed.find(',', comma + 1) != std::string::npos ||
      pointed.find('.') != std::string::npos)
    return {};
  const std::size_t digits =
      std::min(pointed.find_first_not_of("0123456789", comma + 1), pointed.size()) - comma - 1;
  const bool zeroBefore = comma > 0 && pointed[comma - 1] == '0' && (comma == 1 || pointed[comma - 2] == '-');
  if (digits == 3 && !zeroBefore) return {};
  pointed[comma] = '.';
  return NumberFromText(pointed);
}

/// A displayed cell: six figures if not all digits fit. Its editor and a copy have all.
std::string CellText(double value) {
  const std::string whole = NumberText(value);
  return whole.size() <= 8 ? whole : FormatText("%.6g", value);
}

void Copy(const QTableView& view) {
  const QModelIndexList chosen = view.selectionModel()->selectedIndexes();
  if (chosen.isEmpty()) return;
  int top = chosen.front().row(), bottom = top, left = chosen.front().column(), right = left;
  for (const QModelIndex& index : chosen) {
    top = std::min(top, index.row());
    bottom = std::max(bottom, index.row());
    left = std::min(left, index.column());
    right = std::max(right, index.column());
  }
  QString text;
  for (int row = top; row <= bottom; ++row)
    for (int column = left; column <= right; ++column)
      text += view.model()->index(row, column).data(Qt::EditRole).toString() +
              QLatin1Char(column == right ? '\n' : '\t');
  QApplication::clipboard()->setText(text);
}

void Paste(const QTableView& view, const TableControl& table) {
  const QModelIndex at = view.currentIndex();
  const std::string text = FromQt(QApplication::clipboard()->text());
  if (!at.isValid() || text.empty()) return;
  auto cells = CellsFromText(text, at.row() + 1, at.column() + 1);
  if (!cells) {
    ShowNotice("The clipboard has no block of numbers. Nothing was pasted.");
    return;
  }
  std::erase_if(*cells, [&](const CellEntry& cell) {
    return cell.row > GetNumTableRows(table) || cell.column > GetNumTableColumns(table);
  });
  const auto broken = std::find_if(cells->begin(), cells->end(), [&](const CellEntry& cell) {
    return IsWholeColumn(table, cell.column) && cell.value != std::trunc(cell.value);
  });
  if (broken != cells->end()) {
    ShowNotice("Numbers of receivers are whole numbers. Nothing was pasted.");
    return;
  }
  DispatchCells(table, *cells);
}

}  // namespace

std::optional<std::vector<CellEntry>> CellsFromText(std::string_view text, int row, int column) {
  std::vector<CellEntry> cells;
  while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.remove_suffix(1);
  for (std::string_view line : Split(text, '\n')) {
    while (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    const auto words = line.find('\t') != std::string_view::npos ? Split(line, '\t') : Words(line);
    int at = column;
    for (const std::string_view word : words) {
      const bool blank = word.find_first_not_of(' ') == std::string_view::npos;
      if (!blank) {
        const auto number = CellNumber(word);
        if (!number) return {};
        cells.push_back({row, at, *number});
      }
      ++at;
    }
    ++row;
  }
  return cells;
}

TableModel::TableModel(const TableControl& table, QObject* parent)
    : QAbstractTableModel(parent), table_(table), rows_(GetNumTableRows(table)) {}

int TableModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rows_;
}
int TableModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : GetNumTableColumns(table_);
}

QVariant TableModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  switch (role) {
    case Qt::DisplayRole:
      return ToQt(CellText(GetTableCellVal(table_, index.row() + 1, index.column() + 1)));
    case Qt::EditRole:
    case Qt::ToolTipRole:
      return ToQt(NumberText(GetTableCellVal(table_, index.row() + 1, index.column() + 1)));
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter));
    case Qt::AccessibleTextRole:
      return QStringLiteral("%1, row %2: %3")
          .arg(headerData(index.column(), Qt::Horizontal, Qt::DisplayRole).toString(),
               headerData(index.row(), Qt::Vertical, Qt::DisplayRole).toString(),
               data(index, Qt::EditRole).toString());
    default:
      return {};
  }
}

QVariant TableModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole || section < 0) return {};
  if (orientation == Qt::Horizontal)
    return section < columnCount() ? ToQt(table_.columns[static_cast<std::size_t>(section)]) : QVariant();
  const std::string label = GetTableRowLabel(table_, section + 1);
  return label.empty() ? QString::number(section + 1) : ToQt(label);
}

Qt::ItemFlags TableModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags own = QAbstractTableModel::flags(index);
  return Takes(table_) && !IsDimmed(table_) && table_.facts.role != Role::ReadOut ? own | Qt::ItemIsEditable
                                                                                  : own;
}

bool TableModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::EditRole || !index.isValid()) return false;
  const QString text = value.toString();
  if (text == data(index, Qt::EditRole).toString()) return true;
  const auto number = NumberFromText(FromQt(text));
  const bool whole = IsWholeColumn(table_, index.column() + 1);
  if (!number || (whole && *number != std::trunc(*number))) {
    ShowNotice(whole ? "Numbers of receivers are whole numbers. The former number is kept."
                     : "This is not a number; numbers have a decimal point. The former number is kept.");
    return false;
  }
  return DispatchCells(table_, {{index.row() + 1, index.column() + 1, *number}});
}

void TableModel::RowsChanged() {
  const int rows = GetNumTableRows(table_);
  if (rows > rows_) {
    beginInsertRows({}, rows_, rows - 1);
    rows_ = rows;
    endInsertRows();
  } else if (rows < rows_) {
    beginRemoveRows({}, rows, rows_ - 1);
    rows_ = rows;
    endRemoveRows();
  }
  CellsChanged();
}

void TableModel::CellsChanged() {
  if (rows_ == 0 || columnCount() == 0) return;
  Q_EMIT dataChanged(index(0, 0), index(rows_ - 1, columnCount() - 1));
  Q_EMIT headerDataChanged(Qt::Vertical, 0, rows_ - 1);
}

void SetUpTableView(QTableView& view, const TableControl& table) {
  view.setModel(new TableModel(table, &view));
  view.setTabKeyNavigation(false);
  view.setAcceptDrops(false);
  view.viewport()->setAcceptDrops(false);
  view.setAlternatingRowColors(true);
  view.horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  int widest = kLeastColumn;
  for (const auto& heading : table.columns)
    widest = std::max(widest, view.fontMetrics().horizontalAdvance(ToQt(heading)) + kHeadingMargin);
  view.horizontalHeader()->setMinimumSectionSize(widest);
  view.verticalHeader()->setDefaultSectionSize(view.fontMetrics().height() + 8);
  for (const auto& [keys, work] :
       {std::pair<QKeySequence, std::function<void()>>{QKeySequence::Copy, [&view] { Copy(view); }},
        {QKeySequence::Paste, [&view, &table] { Paste(view, table); }}}) {
    auto* action = new QAction(&view);
    action->setShortcut(keys);
    action->setShortcutContext(Qt::WidgetShortcut);
    QObject::connect(action, &QAction::triggered, &view, work);
    view.addAction(action);
  }
}

}  // namespace sondera
