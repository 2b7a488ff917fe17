#include "datasource/channel_table.h"

#include <algorithm>

#include "app/icons.h"
#include "app/window_text.h"

namespace trendaro {
namespace {

constexpr int kCheckColumn = 0;
constexpr int kPictureColumn = 1;
constexpr int kNameColumn = 2;
constexpr int kColumns = 3;

bool is_heading(const ChannelRow& row) {
  return row.kind == RowKind::IoHeading || row.kind == RowKind::Group || row.kind == RowKind::File;
}

std::string check_picture(const ChannelRow& row) {
  if (is_heading(row)) return row.check == 1 ? "IMG_MINUS" : "IMG_PLUS";
  return row.check == 1 ? "IMG_CHECKED" : "IMG_UNCHECKED";
}

QString check_words(const ChannelRow& row) {
  if (is_heading(row)) return row.check == 1 ? QStringLiteral("aufgeklappt") : QStringLiteral("zugeklappt");
  return row.check == 1 ? QStringLiteral("dargestellt") : QStringLiteral("nicht dargestellt");
}

}  // namespace

ChannelTable::ChannelTable(const ChannelRows& rows, const GridState& state, QObject* parent)
    : QAbstractTableModel(parent), rows_(rows), state_(state) {}

void ChannelTable::mirror() {
  if (mirrored_ == rows_.revision) return;
  mirrored_ = rows_.revision;
  if (shape_ != rows_.shape || rows_seen_ > rows_.MaxRows())
    show_all_anew();
  else
    show_added();
  if (!shown_.empty()) Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, kColumns - 1));
}

void ChannelTable::show_all_anew() {
  std::vector<i32> shown;
  shown.reserve(rows_.rows.size());
  for (i32 row = 1; row <= rows_.MaxRows(); ++row)
    if (!rows_.rows[row].hidden) shown.push_back(row);
  shape_ = rows_.shape;
  rows_seen_ = rows_.MaxRows();
  if (shown == shown_) return;
  beginResetModel();
  shown_ = std::move(shown);
  endResetModel();
}

void ChannelTable::show_added() {
  std::vector<i32> added;
  for (i32 row = rows_seen_ + 1; row <= rows_.MaxRows(); ++row)
    if (!rows_.rows[row].hidden) added.push_back(row);
  rows_seen_ = rows_.MaxRows();
  if (added.empty()) return;
  beginInsertRows({}, rowCount(), rowCount() + static_cast<int>(added.size()) - 1);
  shown_.insert(shown_.end(), added.begin(), added.end());
  endInsertRows();
}

i32 ChannelTable::row_at(int position) const {
  return position >= 0 && position < rowCount() ? shown_[static_cast<std::size_t>(position)] : 0;
}

int ChannelTable::position_of(i32 row) const {
  const auto found = std::ranges::lower_bound(shown_, row);
  return found != shown_.end() && *found == row ? static_cast<int>(found - shown_.begin()) : -1;
}

int ChannelTable::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

int ChannelTable::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

QVariant ChannelTable::data(const QModelIndex& index, int role) const {
  const i32 number = row_at(index.row());
  // A dialog inside a handler may let the view paint rows that the handler has just taken away.
  if (!rows_.rows.has(number)) return {};
  const ChannelRow& row = rows_.rows[number];
  if (role == kHeadingRole) return is_heading(row);
  if (role == kHighlightRole) return number == state_.SelectedRow && index.column() == kNameColumn;
  if (role == Qt::DecorationRole && index.column() == kCheckColumn) return icon(check_picture(row));
  if (role == Qt::DecorationRole && index.column() == kPictureColumn) return icon(row.picture);
  if (role == Qt::AccessibleTextRole && index.column() == kCheckColumn) return check_words(row);
  if ((role == Qt::DisplayRole || role == Qt::AccessibleTextRole) && index.column() == kNameColumn)
    return qt_text(row.name);
  return {};
}

QIcon ChannelTable::icon(const std::string& key) const {
  const QByteArray name = QByteArray::fromStdString(key);
  const auto found = icons_.constFind(name);
  return found != icons_.constEnd() ? *found : *icons_.insert(name, load_icon(key));
}

}  // namespace trendaro
