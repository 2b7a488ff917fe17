#include "datasource/plot_record.h"

#include <gtest/gtest.h>

namespace trendaro {
namespace {

using Parts = std::pair<std::string, std::string>;

// Signal and path of a title.
Parts parts_of(const std::string& title) {
  PlotRecord plot;
  plot.Title = title;
  return {plot_signal(plot), plot_path(plot)};
}

TEST(PlotRecordTest, SignOfThePathDividesTheTitle) {
  EXPECT_EQ(parts_of("speed@/data/run.BIN"), Parts("speed", "/data/run.BIN"));
  EXPECT_EQ(parts_of("@/run.BIN"), Parts("", "/run.BIN"));
}

TEST(PlotRecordTest, SignInTheNameOfASignalIsPartOfIt) {
  EXPECT_EQ(parts_of("n@50Hz@/data/run.BIN"), Parts("n@50Hz", "/data/run.BIN"));
  EXPECT_EQ(parts_of("n@@/run.BIN"), Parts("n@", "/run.BIN"));
}

TEST(PlotRecordTest, SignInAFolderIsPartOfThePath) {
  EXPECT_EQ(parts_of("speed@/rig@home/run@2.BIN"), Parts("speed", "/rig@home/run@2.BIN"));
  EXPECT_EQ(parts_of("speed@/rig@/run.BIN"), Parts("speed", "/rig@/run.BIN"));
}

TEST(PlotRecordTest, DrivesAndSharesAreRoots) {
  EXPECT_EQ(parts_of("n@50Hz@C:\\data\\run.BIN"), Parts("n@50Hz", "C:\\data\\run.BIN"));
  EXPECT_EQ(parts_of("n@50Hz@d:/run.BIN"), Parts("n@50Hz", "d:/run.BIN"));
  EXPECT_EQ(parts_of("n@50Hz@\\\\host\\run.BIN"), Parts("n@50Hz", "\\\\host\\run.BIN"));
  EXPECT_EQ(parts_of("n@5:/x@/run.BIN"), Parts("n@5:/x", "/run.BIN"));
}

TEST(PlotRecordTest, RelativePathStandsBehindTheFirstSign) {
  EXPECT_EQ(parts_of("speed@run@2.BIN"), Parts("speed", "run@2.BIN"));
}

TEST(PlotRecordTest, TitleWithoutASignIsTheSignal) {
  EXPECT_EQ(parts_of("speed"), Parts("speed", ""));
  EXPECT_EQ(parts_of(""), Parts("", ""));
  EXPECT_EQ(parts_of("speed@"), Parts("speed", ""));
}

}  // namespace
}  // namespace trendaro
