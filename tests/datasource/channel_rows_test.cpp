#include "datasource/channel_rows.h"

#include <random>

#include <gtest/gtest.h>

namespace trendaro {
namespace {

ChannelRow row_of(RowKind kind, const std::string& mark = "") {
  ChannelRow row;
  row.kind = kind;
  row.mark = mark;
  return row;
}

// Two files with two signals each: rows 1 to 3 and 4 to 6.
ChannelRows two_files() {
  ChannelRows list;
  for (int file = 0; file < 2; ++file) {
    append_row(list, row_of(RowKind::File));
    append_row(list, row_of(RowKind::Signal, "1"));
    append_row(list, row_of(RowKind::Signal, "2"));
  }
  return list;
}

std::set<i32> marks_by_walking(const ChannelRows& list) {
  std::set<i32> found;
  for (i32 row = 1; row <= list.MaxRows(); ++row)
    if (list.rows[row].mark.find('_') != std::string::npos) found.insert(row);
  return found;
}

TEST(ChannelRowsTest, FirstRowBecomesTheActiveOne) {
  ChannelRows list;
  EXPECT_EQ(list.active_row, 0);
  append_row(list, row_of(RowKind::File));
  append_row(list, row_of(RowKind::Signal, "1"));
  EXPECT_EQ(list.active_row, 1);
}

TEST(ChannelRowsTest, MarkWritesBothCellsAndBack) {
  ChannelRows list = two_files();
  set_mark(list, 3, {2, 3, 2});
  EXPECT_EQ(list.rows[3].mark, "2_3_2");
  EXPECT_EQ(list.rows[3].check, 1);
  clear_mark(list, 3);
  EXPECT_EQ(list.rows[3].mark, "2");
  EXPECT_EQ(list.rows[3].check, 0);
  EXPECT_TRUE(list.marked.empty());
}

TEST(ChannelRowsTest, RemovalMovesTheMarksBelow) {
  ChannelRows list = two_files();
  set_mark(list, 2, {1, 1, 1});
  set_mark(list, 6, {2, 1, 1});
  erase_rows(list, 1, 3);
  EXPECT_EQ(list.marked, (std::set<i32>{3}));
  EXPECT_EQ(list.rows[3].mark, "2_1_1");
}

TEST(ChannelRowsTest, RemovalOfTheLastRowsLeavesNoActiveRow) {
  ChannelRows list = two_files();
  list.active_row = 4;
  list.top_row = 4;
  erase_rows(list, 1, 6);
  EXPECT_EQ(list.active_row, 0);
  EXPECT_EQ(list.top_row, 1);
}

TEST(ChannelRowsTest, ChildrenEndAtTheNextFile) {
  ChannelRows list = two_files();
  EXPECT_EQ(end_of_children(list, 1), 4);
  EXPECT_EQ(end_of_children(list, 4), 7);
  show_children(list, 4, false);
  EXPECT_FALSE(list.rows[3].hidden);
  EXPECT_FALSE(list.rows[4].hidden);
  EXPECT_TRUE(list.rows[5].hidden);
  EXPECT_TRUE(list.rows[6].hidden);
}

TEST(ChannelRowsTest, MarksAgreeWithAWalkOverAllRows) {
  std::mt19937 random(7);
  const auto pick = [&](i32 low, i32 high) { return std::uniform_int_distribution<i32>(low, high)(random); };
  ChannelRows list;
  for (int step = 0; step < 2000; ++step) {
    const i32 rows = list.MaxRows();
    const i32 action = pick(0, 9);
    if (rows == 0 || action < 3) {
      append_row(list, row_of(RowKind::Signal, std::to_string(step + 1)));
    } else if (action < 6) {
      set_mark(list, pick(1, rows), {static_cast<i16>(pick(1, 99)), 1, 2});
    } else if (action < 8) {
      clear_mark(list, pick(1, rows));
    } else {
      const i32 first = pick(1, rows);
      erase_rows(list, first, pick(1, std::min(4, rows - first + 1)));
    }
    ASSERT_EQ(list.marked, marks_by_walking(list)) << "step " << step;
    ASSERT_LE(list.active_row, list.MaxRows());
  }
}

}  // namespace
}  // namespace trendaro
