#include "datasource/channel_table.h"

#include <QSignalSpy>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace trendaro {
namespace {

class ChannelTableTest : public testing::Test {
 protected:
  void add(RowKind kind) {
    ChannelRow row;
    row.kind = kind;
    row.name = "Zeile " + std::to_string(list.MaxRows() + 1);
    row.mark = "1";
    append_row(list, row);
  }
  void add_file(int signals) {
    add(RowKind::File);
    for (int i = 0; i < signals; ++i) add(RowKind::Signal);
  }
  void expect_shown_rows() {
    int position = 0;
    for (i32 row = 1; row <= list.MaxRows(); ++row) {
      if (list.rows[row].hidden) {
        EXPECT_EQ(table.position_of(row), -1);
        continue;
      }
      ASSERT_EQ(table.row_at(position), row);
      EXPECT_EQ(table.position_of(row), position);
      ++position;
    }
    EXPECT_EQ(table.rowCount(), position);
  }

  ChannelRows list;
  GridState state;
  ChannelTable table{list, state};
};

TEST_F(ChannelTableTest, RowsAddedAtTheBottomAreInserted) {
  add_file(2);
  table.mirror();
  const QSignalSpy resets(&table, &QAbstractItemModel::modelReset);
  const QSignalSpy inserts(&table, &QAbstractItemModel::rowsInserted);
  add_file(3);
  table.mirror();
  EXPECT_EQ(resets.count(), 0);
  ASSERT_EQ(inserts.count(), 1);
  EXPECT_EQ(inserts[0][1].toInt(), 3);
  EXPECT_EQ(inserts[0][2].toInt(), 6);
  expect_shown_rows();
}

TEST_F(ChannelTableTest, MarkChangesNoRow) {
  add_file(2);
  table.mirror();
  const QSignalSpy resets(&table, &QAbstractItemModel::modelReset);
  const QSignalSpy inserts(&table, &QAbstractItemModel::rowsInserted);
  const QSignalSpy changes(&table, &QAbstractItemModel::dataChanged);
  set_mark(list, 2, {1, 1, 1});
  table.mirror();
  EXPECT_EQ(resets.count() + inserts.count(), 0);
  EXPECT_EQ(changes.count(), 1);
  table.mirror();
  EXPECT_EQ(changes.count(), 1);
}

TEST_F(ChannelTableTest, RowsRemovedAndAddedBetweenTwoLooksAreSeen) {
  add_file(3);
  table.mirror();
  erase_rows(list, 2, 3);
  add_file(2);
  table.mirror();
  expect_shown_rows();
}

TEST_F(ChannelTableTest, FollowsRandomChanges) {
  std::mt19937 random(7);
  const auto below = [&](i32 limit) { return static_cast<i32>(random() % static_cast<unsigned>(limit)); };
  for (int step = 0; step < 3000; ++step) {
    const i32 choice = below(10);
    if (list.MaxRows() == 0 || (choice < 3 && list.MaxRows() < 200)) {
      add_file(below(5));
    } else if (const i32 row = below(list.MaxRows()) + 1; choice < 5) {
      const i32 count = std::min(below(8) + 1, list.MaxRows() - row + 1);
      erase_rows(list, row, count);
    } else if (list.rows[row].kind == RowKind::File) {
      show_children(list, row, below(2) == 0);
    } else {
      set_mark(list, row, {1, 1, 1});
    }
    if (below(3) == 0) {
      table.mirror();
      expect_shown_rows();
      if (HasFatalFailure()) return;
    }
  }
}

}  // namespace
}  // namespace trendaro
