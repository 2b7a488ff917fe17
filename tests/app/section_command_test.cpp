#include "app/section_command.h"

#include <filesystem>
#include <sstream>

#include <gtest/gtest.h>

#include "support/recorder_builder.h"

namespace trendaro {
namespace {

class SectionCommandTest : public ::testing::Test {
 protected:
  SectionCommandTest() {
    RecorderBuilder recording{.row_count = 3};
    recording.entries = {{}};
    recording.data.i16_field(1).i16_field(2).i16_field(3);
    write_file(source, recording.build().bytes());
  }

  int run(bool force = false, bool on_a_terminal = false) {
    errors.str("");
    return run_section({.source = source, .target = target, .first = 1, .count = 2, .force = force}, errors,
                       on_a_terminal);
  }

  TemporaryFolder folder;
  std::string source = folder.file("Quelle.MEA");
  std::string target = folder.file("Ziel.MEA");
  std::ostringstream errors;
};

TEST_F(SectionCommandTest, WritesTheSectionInSilence) {
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(errors.str(), "");
  EXPECT_TRUE(read_file(target).ends_with(std::string("\2\0\3\0", 4)));
}

TEST_F(SectionCommandTest, ExistingTargetNeedsForce) {
  write_file(target, "alt");
  EXPECT_EQ(run(), 1);
  EXPECT_EQ(errors.str(), "Zieldatei existiert bereits: " + target + "\n");
  EXPECT_EQ(read_file(target), "alt");
  EXPECT_EQ(run(true), 0);
  EXPECT_NE(read_file(target), "alt");
}

TEST_F(SectionCommandTest, SourceIsNoTarget) {
  const std::string before = read_file(source);
  std::filesystem::create_symlink(source, target);
  EXPECT_EQ(run(true), 1);
  EXPECT_EQ(errors.str(), "Quelldatei und Zieldatei sind dieselbe Datei: " + target + "\n");
  EXPECT_EQ(read_file(source), before);
}

TEST_F(SectionCommandTest, TerminalSeesTheProgress) {
  EXPECT_EQ(run(false, true), 0);
  EXPECT_EQ(errors.str(), "\rMeßwertausschnittsdatei wird erzeugt! 100 %\n");
}

TEST_F(SectionCommandTest, FailuresAreTold) {
  std::filesystem::remove(source);
  EXPECT_EQ(run(), 1);
  EXPECT_EQ(errors.str(), "Fehler bei Öffnen der Datei!\n");
  write_file(source, "keine Aufzeichnung");
  EXPECT_EQ(run(), 1);
  EXPECT_EQ(errors.str(), "Es wird keine komprimierte Meßwertdatei angezeigt.\n");
}

}  // namespace
}  // namespace trendaro
