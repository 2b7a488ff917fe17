#include "app/render_picture.h"

#include <QImage>
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include <gtest/gtest.h>

#include "app/file_arguments.h"
#include "app/memory_host.h"
#include "app/model.h"
#include "app/startup.h"
#include "output/picture_file.h"
#include "support/file_builder.h"
#include "support/silent_shell.h"
#include "support/standard_builder.h"

namespace trendaro {
namespace {

// A recording of two channels of 1000 samples at 1 ms: the first rises, the second has one sample that sticks
// out.
std::string recording() {
  StandardFileLayout layout;
  StandardChannel ramp;
  ramp.name = "Drehzahl";
  StandardChannel spike;
  spike.name = "Kraft";
  for (int i = 0; i < 1000; ++i) {
    ramp.values.push_back(i);
    spike.values.push_back(i == 700 ? 50 : 1);
  }
  layout.channels = {ramp, spike};
  return layout.build().bytes();
}

class RenderCommandTest : public testing::Test {
 protected:
  ~RenderCommandTest() override {
    std::error_code ignored;
    std::filesystem::remove(command.output, ignored);
  }

  RenderCommandTest() {
    command.output = std::filesystem::path(file.path()).replace_extension("picture.png").string();
    command.width = 400;
    command.height = 300;
    command.files = {{file.path(), {}}};
  }

  int render() { return run_render(command, errors); }
  [[nodiscard]] QImage picture() const { return QImage(QString::fromStdString(command.output)); }
  // Colours that stand out from grey: those of curves.
  [[nodiscard]] int coloured_pixels() const {
    const QImage image = picture().convertToFormat(QImage::Format_RGB32);
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x)
        if (image.pixelColor(x, y).saturation() > 120) ++count;
    return count;
  }

  TemporaryFile file{std::string_view(recording())};
  RenderCommand command;
  std::ostringstream errors;
};

TEST_F(RenderCommandTest, DrawsAllChannelsWhereNoneIsNamed) {
  ASSERT_EQ(render(), 0) << errors.str();
  EXPECT_EQ(picture().size(), QSize(400, 300));
  const int both = coloured_pixels();
  command.files[0].channels = {1};
  ASSERT_EQ(render(), 0) << errors.str();
  EXPECT_GT(both, coloured_pixels());
  EXPECT_GT(coloured_pixels(), 100);
  EXPECT_EQ(errors.str(), "");
}

// Bytes that this process has read by system calls so far.
i64 bytes_read() {
  std::ifstream counts("/proc/self/io");
  std::string name;
  i64 bytes = 0;
  counts >> name >> bytes;
  EXPECT_EQ(name, "rchar:");
  return bytes;
}

TEST_F(RenderCommandTest, EachCurveIsReadOnceHoweverManyThereAre) {
  StandardFileLayout layout;
  for (int i = 0; i < 12; ++i) {
    StandardChannel channel;
    channel.values.assign(100000, i);
    layout.channels.push_back(channel);
  }
  file.rewrite(layout.build().bytes());
  const TemporaryFile other{std::string_view(recording())};
  command.files = {{file.path(), {}}, {other.path(), {2, 1}}};
  ASSERT_EQ(render(), 0) << errors.str();
  const int both = coloured_pixels();
  const i64 before = bytes_read();
  ASSERT_EQ(render(), 0) << errors.str();
  const i64 read = bytes_read() - before;
  const auto size = static_cast<i64>(std::filesystem::file_size(file.path()));
  EXPECT_GE(read, size);
  EXPECT_LT(read, size * 3 / 2);
  command.files = {{other.path(), {2, 1}}};
  ASSERT_EQ(render(), 0) << errors.str();
  EXPECT_NE(coloured_pixels(), both);
}

// Days since 1900 are told apart in steps of 0.6 microseconds, and an axis has a few dozen of them.
TEST_F(RenderCommandTest, AnAxisThatIsWiderThanAskedIsTold) {
  constexpr f64 kMicrosecond = 1e-6 / 86400;
  command.time_unit = 4;
  command.from = 44260.85;
  command.to = 44260.85 + 200 * kMicrosecond;
  ASSERT_EQ(render(), 0);
  EXPECT_EQ(errors.str(), "");
  command.to = 44260.85 + 20 * kMicrosecond;
  ASSERT_EQ(render(), 0);
  const std::string told = errors.str();
  EXPECT_NE(told.find("x-Achse ist breiter als verlangt"), std::string::npos) << told;
  EXPECT_EQ(std::ranges::count(told, '\n'), 1);
}

TEST_F(RenderCommandTest, AFewNanosecondsAreNotTooNarrowInSeconds) {
  command.from = 0.1;
  command.to = 0.1 + 2e-9;
  ASSERT_EQ(render(), 0);
  EXPECT_EQ(errors.str(), "");
}

TEST_F(RenderCommandTest, TheRangeOfXCutsTheCurve) {
  command.files[0].channels = {2};
  ASSERT_EQ(render(), 0);
  const QImage whole = picture();
  command.from = 0.1;
  command.to = 0.2;
  ASSERT_EQ(render(), 0);
  EXPECT_NE(picture(), whole);
}

TEST_F(RenderCommandTest, ASectionOfALongRecordingShowsEachSample) {
  StandardFileLayout layout;
  StandardChannel toggling;
  for (int i = 0; i < 200000; ++i) toggling.values.push_back(i % 2);
  layout.channels = {toggling};
  file.rewrite(layout.build().bytes());
  // Point numbers times the unit factor: 20 samples of 10 ups and downs.
  command.from = 100;
  command.to = 100.02;
  ASSERT_EQ(render(), 0) << errors.str();
  const QImage image = picture().convertToFormat(QImage::Format_RGB32);
  int crossings = 0;
  bool inside = false;
  for (int x = 0; x < image.width(); ++x) {
    const bool coloured = image.pixelColor(x, image.height() / 2).saturation() > 60;
    if (coloured && !inside) ++crossings;
    inside = coloured;
  }
  EXPECT_NEAR(crossings, 20, 1);
}

// The picture of a window whose graph holds every sample of the curves.
QImage picture_of_all_samples(const RenderCommand& command) {
  SilentShell shell;
  Model model(shell);
  MemoryHost host(shell);
  model.Host = &host;
  model.Kernel = &host;
  model.TemplateFolder = "/dev/null";
  load_main_window(model);
  model.TimeUnit = command.time_unit;
  model.DateAxis = command.time_unit == 4;
  model.controls["mnuUseCompression"].ticked = false;
  for (const FileArgument& file : command.files) open_file_argument(model, file);
  GraphProperties& graph = model.PESG.pending;
  graph.ManualScaleControlX = 3;
  if (command.from) graph.ManualMinX = *command.from;
  if (command.to) graph.ManualMaxX = *command.to;
  PEactions(model.PESG, kRedrawFromSettings);
  return graph_image(model.PESG.shown(), QSize(command.width, command.height));
}

// Two channels of 300000 samples: a walk with gaps, and noise with a spike outside of most windows.
std::string long_recording() {
  constexpr int kSamples = 300000;
  std::mt19937 random(3);
  StandardChannel walk, noise;
  f64 place = 0;
  for (int i = 0; i < kSamples; ++i) {
    place += static_cast<f64>(random() % 2001) / 1000 - 1;
    walk.values.push_back(i % 7000 < 300 ? std::nan("") : place);
    noise.values.push_back(i == kSamples - 1000 ? 900 : static_cast<f64>(random() % 9));
  }
  StandardFileLayout layout;
  for (StandardChannel* channel : {&walk, &noise}) {
    channel->record.SampleInterval = 2;
    layout.channels.push_back(*channel);
  }
  return layout.build().bytes();
}

TEST_F(RenderCommandTest, AWindowShowsThePixelsOfAllSamples) {
  file.rewrite(long_recording());
  command.files = {{file.path(), {1, 2}}};
  command.width = 500;
  struct Window {
    std::optional<f64> from, to;
    i16 time_unit;
  };
  for (const Window& window :
       {Window{100.001, 100.2, 1}, Window{10, 590.7, 1}, Window{-50, 900, 1}, Window{{}, 33.3, 1},
        Window{500, {}, 1}, Window{123, 456789, 0}, Window{900, 1000, 1}, Window{44260.5, 44260.505, 4}}) {
    command.from = window.from;
    command.to = window.to;
    command.time_unit = window.time_unit;
    ASSERT_EQ(render(), 0) << errors.str();
    EXPECT_EQ(picture().convertToFormat(QImage::Format_RGB32), picture_of_all_samples(command))
        << window.from.value_or(-1) << " to " << window.to.value_or(-1);
  }
}

TEST_F(RenderCommandTest, AChannelThatTheFileLacksMarksNothing) {
  command.files[0].channels = {9};
  EXPECT_EQ(render(), 0);
  EXPECT_EQ(coloured_pixels(), 0);
}

TEST_F(RenderCommandTest, AWrongCallIsTold) {
  command.from = 2;
  command.to = 1;
  EXPECT_EQ(render(), 2);
  EXPECT_EQ(errors.str(), "--from muss kleiner sein als --to\n");
  command.output += ".gif";
  EXPECT_EQ(render(), 2);
}

TEST_F(RenderCommandTest, AFileThatIsNoRecordingFails) {
  file.rewrite("kein Messfile");
  EXPECT_EQ(render(), 1);
  EXPECT_FALSE(errors.str().empty());
  EXPECT_FALSE(std::filesystem::exists(command.output));
}

TEST_F(RenderCommandTest, ATargetThatCannotBeWrittenFails) {
  const std::string kept = command.output;
  command.output = "/nowhere/at/all.png";
  EXPECT_EQ(render(), 1);
  EXPECT_NE(errors.str().find("/nowhere/at/all.png"), std::string::npos);
  command.output = kept;
}

}  // namespace
}  // namespace trendaro
