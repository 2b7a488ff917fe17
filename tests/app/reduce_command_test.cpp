#include "app/reduce_command.h"

#include <filesystem>
#include <sstream>

#include <gtest/gtest.h>

#include "support/file_builder.h"
#include "support/reducible_files.h"

namespace trendaro {
namespace {

class ReduceCommandTest : public testing::Test {
 protected:
  ReduceCommandTest() {
    const std::vector<f64> samples(40, 1.5);
    write_file(source_, StandardFile{.channels = {{.samples = samples}}}.build().bytes());
  }
  int run(const ReduceCommand& command, bool on_a_terminal = false) {
    errors_.str("");
    return run_reduce(command, errors_, on_a_terminal);
  }
  [[nodiscard]] std::string errors() const { return errors_.str(); }

  TemporaryFolder folder_;
  std::string source_ = folder_.file("lauf.BIN");
  std::string target_ = folder_.file("lauf.REB");
  std::ostringstream errors_;
};

TEST_F(ReduceCommandTest, TargetNameFollowsTheMenuCommand) {
  EXPECT_EQ(run({.source = source_, .target = {}}), 0);
  EXPECT_EQ(errors(), "");
  EXPECT_TRUE(std::filesystem::exists(target_));
}

TEST_F(ReduceCommandTest, FactorIsWrittenToTheTarget) {
  EXPECT_EQ(run({.source = source_, .target = target_, .factor = 20}), 0);
  const std::vector<f64> two_pairs(4, 1.5);
  StandardFile expected{.reduce_block = 20, .channels = {{.samples = two_pairs}}};
  EXPECT_EQ(read_file(target_), expected.build().bytes());
}

TEST_F(ReduceCommandTest, ExistingTargetNeedsForce) {
  write_file(target_, "alt");
  EXPECT_EQ(run({.source = source_, .target = {}}), 1);
  EXPECT_EQ(errors(), "Zieldatei existiert bereits: " + target_ + "\n");
  EXPECT_EQ(read_file(target_), "alt");
  EXPECT_EQ(run({.source = source_, .target = {}, .force = true}), 0);
  EXPECT_GT(read_file(target_).size(), 100U);
}

TEST_F(ReduceCommandTest, SourceAsTargetIsRefusedEvenByForce) {
  const std::string before = read_file(source_);
  EXPECT_EQ(run({.source = source_, .target = source_, .force = true}), 1);
  EXPECT_EQ(errors(), "Quelldatei und Zieldatei sind dieselbe Datei: " + source_ + "\n");
  EXPECT_EQ(read_file(source_), before);
}

TEST_F(ReduceCommandTest, FailureSaysWhy) {
  EXPECT_EQ(run({.source = folder_.file("fehlt.BIN"), .target = {}}), 1);
  EXPECT_EQ(errors(), "Fehler bei Öffnen der Datei aufgetreten.\n");
}

TEST_F(ReduceCommandTest, TerminalSeesTheProgressOnOneLine) {
  EXPECT_EQ(run({.source = source_, .target = {}}, true), 0);
  const std::string line = errors();
  EXPECT_TRUE(line.starts_with("\rBinäre Mervan-Datei wird reduziert! ")) << line;
  EXPECT_TRUE(line.ends_with("\rBinäre Mervan-Datei wird reduziert! 100 %\n")) << line;
  EXPECT_EQ(line.find('\n'), line.size() - 1);
}

TEST_F(ReduceCommandTest, FailureStandsBehindTheProgress) {
  std::filesystem::resize_file(source_, std::filesystem::file_size(source_) - 1);
  EXPECT_EQ(run({.source = source_, .target = {}, .factor = 10}, true), 1);
  EXPECT_TRUE(errors().starts_with("\rBinäre Mervan-Datei wird reduziert! ")) << errors();
  EXPECT_TRUE(errors().ends_with(" %\nFehler bei Öffnen der Datei aufgetreten.\n")) << errors();
}

}  // namespace
}  // namespace trendaro
