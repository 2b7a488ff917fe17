#include "app/values_command.h"

#include <charconv>
#include <cmath>
#include <fstream>
#include <limits>
#include <sstream>

#include <gtest/gtest.h>

#include "support/standard_builder.h"

namespace trendaro {
namespace {

class ValuesCommandTest : public testing::Test {
 protected:
  int run(const std::string& path, i16 channel, bool raw = false) {
    std::ostringstream out;
    std::ostringstream err;
    const int status = run_values({.path = path, .channel = channel, .raw = raw}, out, err);
    output = out.str();
    errors = err.str();
    return status;
  }
  static FileBuilder file_of(const std::vector<f64>& values, std::optional<i32> points = {}) {
    StandardFileLayout standard{.id = 5012};
    standard.channels = {{.values = values, .points = points}};
    return standard.build();
  }

  std::string output, errors;
};

TEST_F(ValuesCommandTest, OneShortestNumberALine) {
  const f64 infinite = std::numeric_limits<f64>::infinity();
  const TemporaryFile file(
      file_of({1, 0.1, -0.0, 1e300, 1.0 / 3, infinite, -infinite, std::nan(""), -std::nan("")}));
  EXPECT_EQ(run(file.path(), 1), 0);
  EXPECT_EQ(output, "1\n0.1\n-0\n1e+300\n0.3333333333333333\ninf\n-inf\nnan\nnan\n");
  EXPECT_EQ(errors, "");
}

TEST_F(ValuesCommandTest, ManyLinesReadBackToTheSameValues) {
  std::vector<f64> samples(100000);
  for (std::size_t i = 0; i < samples.size(); ++i) samples[i] = std::sin(static_cast<f64>(i)) * 1e-3;
  const TemporaryFile file(file_of(samples));
  EXPECT_EQ(run(file.path(), 1), 0);
  const char* next = output.data();
  const char* const end = next + output.size();
  for (const f64 sample : samples) {
    f64 value = 0;
    next = std::from_chars(next, end, value).ptr;
    ASSERT_EQ(value, sample);
    ASSERT_EQ(*next++, '\n');
  }
  EXPECT_EQ(next, end);
}

TEST_F(ValuesCommandTest, RawValuesAreTheBytesOfTheNumbers) {
  const std::vector<f64> samples = {1, -2.5};
  const TemporaryFile file(file_of(samples));
  EXPECT_EQ(run(file.path(), 1, true), 0);
  EXPECT_EQ(output, FileBuilder().values(samples).bytes());
}

TEST_F(ValuesCommandTest, ChannelsWithoutValuesPrintNothing) {
  const TemporaryFile file(file_of({}));
  for (const i16 channel : std::initializer_list<i16>{-1, 0, 1, 2, 32767}) {
    EXPECT_EQ(run(file.path(), channel), 0);
    EXPECT_EQ(output, "");
    EXPECT_EQ(errors, "");
  }
}

TEST_F(ValuesCommandTest, AShortFilePrintsWhatWasReadAndFails) {
  const TemporaryFile file(file_of({1, 2}, 5));
  EXPECT_EQ(run(file.path(), 1), 1);
  EXPECT_EQ(output, "1\n2\n");
  EXPECT_EQ(errors, "Fehler beim Lesen der Daten aufgetreten!\n");
  EXPECT_EQ(run(file.path(), 1, true), 1);
  EXPECT_EQ(output, FileBuilder().values({1, 2}).bytes());
  EXPECT_EQ(errors, "Fehler beim Lesen der Daten aufgetreten!\n");
}

TEST_F(ValuesCommandTest, FilesThatDoNotLoadPrintNothing) {
  const TemporaryFile file("xx");
  EXPECT_EQ(run(file.path(), 1), 1);
  EXPECT_EQ(output, "");
  EXPECT_EQ(errors, "Diese Datei enthält kein gültiges Format\n");
}

TEST_F(ValuesCommandTest, AFullDiskIsAFailure) {
  const TemporaryFile file(file_of({1, 2}));
  std::ofstream full("/dev/full");
  std::ostringstream err;
  EXPECT_EQ(run_values({.path = file.path(), .channel = 1, .raw = false}, full, err), 1);
  EXPECT_EQ(err.str(), "Fehler beim Schreiben der Ausgabe.\n");
}

}  // namespace
}  // namespace trendaro
