#include "datasource/channel_search.h"

#include <string>

#include <gtest/gtest.h>

#include "datasource/channel_rows.h"

namespace trendaro {
namespace {

class ChannelSearchTest : public testing::Test {
 protected:
  void add(const std::string& name, RowKind kind = RowKind::Signal) {
    ChannelRow row;
    row.name = name;
    row.kind = kind;
    append_row(list, row);
  }

  ChannelRows list;
};

TEST_F(ChannelSearchTest, FindsTheFirstNameFromTheRowOn) {
  for (const char* name : {"Kraft", "Weg", "Kraft 2", "Weg 2"}) add(name);
  EXPECT_EQ(find_channel(list, 1, "w"), 2);
  EXPECT_EQ(find_channel(list, 2, "w"), 2);
  EXPECT_EQ(find_channel(list, 3, "w"), 4);
  EXPECT_EQ(find_channel(list, 1, "kraft 2"), 3);
  EXPECT_EQ(find_channel(list, 1, "Kraft 3"), 0);
  EXPECT_EQ(find_channel(list, 1, "raft"), 0);
}

TEST_F(ChannelSearchTest, GoesOnAtTheTop) {
  for (const char* name : {"Kraft", "Weg", "Druck"}) add(name);
  EXPECT_EQ(find_channel(list, 3, "K"), 1);
  EXPECT_EQ(find_channel(list, 4, "K"), 1);
  EXPECT_EQ(find_channel(list, 99, "D"), 3);
  EXPECT_EQ(find_channel(list, -5, "W"), 2);
}

TEST_F(ChannelSearchTest, PassesOverFilesAndHiddenRows) {
  add("Kurbel.BIN", RowKind::File);
  add("Kraft");
  add("1 - 10", RowKind::Group);
  add("Kilo");
  list.rows[2].hidden = true;
  EXPECT_EQ(find_channel(list, 1, "K"), 4);
  EXPECT_EQ(find_channel(list, 1, "1"), 0);
}

TEST_F(ChannelSearchTest, CaseOfUmlautsDoesNotMatter) {
  add("Öldruck");
  add("ÜBERDRUCK");
  add("×7");
  EXPECT_EQ(find_channel(list, 1, "öl"), 1);
  EXPECT_EQ(find_channel(list, 1, "übeR"), 2);
  EXPECT_EQ(find_channel(list, 1, "÷"), 0);
  EXPECT_EQ(find_channel(list, 1, "o"), 0);
}

TEST_F(ChannelSearchTest, NothingIsFoundInAnEmptyListOrForNothing) {
  EXPECT_EQ(find_channel(list, 1, "K"), 0);
  add("Kraft");
  EXPECT_EQ(find_channel(list, 1, ""), 0);
}

}  // namespace
}  // namespace trendaro
