#include "app/paths.h"

#include <gtest/gtest.h>

namespace trendaro {
namespace {

struct Split {
  std::string folder, name;
};

Split split(std::string_view path) {
  Split result{"before", "before"};
  SplitFileName(path, result.folder, result.name);
  return result;
}

TEST(SplitFileNameTest, DividesAtTheLastSeparator) {
  EXPECT_EQ(split("C:\\messung\\lauf.bin").folder, "C:\\messung");
  EXPECT_EQ(split("C:\\messung\\lauf.bin").name, "lauf.bin");
  EXPECT_EQ(split("/data/messung/lauf.bin").folder, "/data/messung");
  EXPECT_EQ(split("/data/messung/lauf.bin").name, "lauf.bin");
  EXPECT_EQ(split("/data\\lauf.bin").name, "lauf.bin");
}

TEST(SplitFileNameTest, PathWithoutASeparatorIsAllName) {
  EXPECT_EQ(split("lauf.bin").folder, "");
  EXPECT_EQ(split("lauf.bin").name, "lauf.bin");
  EXPECT_EQ(split("").name, "");
}

TEST(SplitFileNameTest, SeparatorAtTheEndLeavesAnEmptyName) {
  EXPECT_EQ(split("/data/").folder, "/data");
  EXPECT_EQ(split("/data/").name, "");
}

TEST(SplitFileNameTest, ResultMayOverwriteThePath) {
  std::string path = "/data/lauf.bin";
  std::string name;
  SplitFileName(path, path, name);
  EXPECT_EQ(path, "/data");
  EXPECT_EQ(name, "lauf.bin");
}

TEST(JoinPathTest, TakesTheSeparatorOfTheFolder) {
  EXPECT_EQ(join_path("/data", "lauf.bin"), "/data/lauf.bin");
  EXPECT_EQ(join_path("C:\\data", "lauf.bin"), "C:\\data\\lauf.bin");
  EXPECT_EQ(join_path("data", "lauf.bin"), "data/lauf.bin");
  EXPECT_EQ(join_path("", "lauf.bin"), "lauf.bin");
}

TEST(SplitAtDotsTest, CountsDotsInFolders) {
  EXPECT_EQ(split_at_dots("/a.b/lauf.sto"), (std::vector<std::string>{"/a", "b/lauf", "sto"}));
  EXPECT_EQ(split_at_dots("lauf"), std::vector<std::string>{"lauf"});
  EXPECT_EQ(upper_piece("/data/lauf.sto", 1), "STO");
  EXPECT_EQ(upper_piece("/data/lauf", 1), "");
}

TEST(TrimTest, TakesBlanksOnly) {
  EXPECT_EQ(trimmed("  a b  "), "a b");
  EXPECT_EQ(right_trimmed("  a\t "), "  a\t");
  EXPECT_EQ(trimmed("   "), "");
  EXPECT_TRUE(equal_ignoring_case("Sto", "sTO"));
  EXPECT_FALSE(equal_ignoring_case("STO", "ST1"));
  EXPECT_FALSE(equal_ignoring_case("STO", "STOP"));
}

}  // namespace
}  // namespace trendaro
