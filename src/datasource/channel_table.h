#pragma once

#include <QAbstractTableModel>
#include <QHash>
#include <QIcon>
#include <vector>

#include "datasource/channel_rows.h"
#include "datasource/x_source.h"

namespace trendaro {

// The shown rows of the channel list, straight from its records: three columns (check, picture, name), hidden
// rows left out. Positions count from 0, row numbers of the list from 1.
class ChannelTable : public QAbstractTableModel {
  Q_OBJECT

 public:
  // Whether the row is a heading (file, group): its name stands in bold.
  static constexpr int kHeadingRole = Qt::UserRole;
  // Whether the cell carries the highlight of the last right click.
  static constexpr int kHighlightRole = Qt::UserRole + 1;

  ChannelTable(const ChannelRows& rows, const GridState& state, QObject* parent = nullptr);

  // Brings the table in line with the records. Costs a walk over all rows only when some were removed, hidden
  // or shown; rows added at the bottom and marks cost no more in a long list.
  void mirror();

  // The row at a position; 0 for a position that shows none.
  [[nodiscard]] i32 row_at(int position) const;
  // The position of a row; -1 for a hidden row.
  [[nodiscard]] int position_of(i32 row) const;
  // The position of the row that carries the highlight; -1 for none.
  [[nodiscard]] int highlighted_position() const { return position_of(state_.SelectedRow); }

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

 private:
  void show_all_anew();
  void show_added();
  [[nodiscard]] QIcon icon(const std::string& key) const;

  const ChannelRows& rows_;
  const GridState& state_;
  u64 mirrored_ = 0;        // revision of the rows that are on show
  u64 shape_ = 0;           // and their shape
  i32 rows_seen_ = 0;       // rows of the list that the positions below cover
  std::vector<i32> shown_;  // rows by position, rising
  mutable QHash<QByteArray, QIcon> icons_;
};

}  // namespace trendaro
