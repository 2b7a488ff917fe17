#include <algorithm>
#include <array>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "window/zoom_window.h"

namespace trendaro {
namespace {

// Random bands, drags of limit lines, keys and buttons by mouse and keyboard. What is on screen is held
// against the recording after each of them.
class ZoomMouseWalkTest : public ZoomWindowTest {
 protected:
  static constexpr f64 kPoint = 0.05;  // seconds of a display point of 5 samples
  static constexpr f64 kEnd = 199.9;   // of the data in the survey
  static constexpr i32 kStep = 500;    // samples

  i32 draw(i32 least, i32 most) { return std::uniform_int_distribution<i32>(least, most)(random); }

  void expect_section_near(f64 new_low, f64 new_high, f64 pixel) {
    ASSERT_NEAR(model.ZoomXMin, new_low, 1.5 * pixel);
    ASSERT_NEAR(model.ZoomXMax, new_high, 1.5 * pixel);
    low = model.ZoomXMin;
    high = model.ZoomXMax;
    points = static_cast<i32>(std::nearbyint((high - low) / kPoint));
    original = points * 5 <= 10000;
    zoomed = true;
  }
  void band() {
    if (model.controls["TB_ZOOMHORZ"].tag != "1") click_button("TB_ZOOMHORZ");
    const f64 from = low + (high - low) * draw(0, 50) / 100;
    const f64 to = from + (high - low) * draw(30, 50) / 100;
    const f64 pixel = units_in_a_pixel(graph());
    drag(graph(), from, to);
    expect_section_near(from, to, pixel);
  }
  // In the reduced display one line moves, over original samples the pair.
  void pull_line() {
    const bool left = draw(0, 1) == 0;
    const f64 width = high - low;
    const f64 pixel = units_in_a_pixel(survey());
    f64 to = draw(0, 199);
    if (original) {
      drag(survey(), left ? low : high, to);
      const f64 new_low = std::clamp(left ? to : to - width, 0.0, kEnd - width);
      ASSERT_NEAR(model.ZoomXMax - model.ZoomXMin, width, 1e-3);
      return expect_section_near(new_low, new_low + width, 2 * pixel);
    }
    if (left ? to > high - 5 : to < low + 5) to = left ? high - 5 : low + 5;
    drag(survey(), left ? low : high, to);
    expect_section_near(left ? to : low, left ? high : to, 2 * pixel);
  }
  void scroll() {
    const bool right = draw(0, 1) == 0;
    const i32 where = draw(0, 2);
    if (where == 0)
      click_button(right ? "TB_SCROLLRIGHT" : "TB_SCROLLLEFT");
    else
      QTest::keyClick(where == 1 ? graph() : survey(), right ? Qt::Key_Right : Qt::Key_Left);
    if (!zoomed) return;
    const f64 width = high - low;
    low = right ? std::min(low + kStep / 100.0, kEnd - width) : std::max(low - kStep / 100.0, 0.0);
    high = low + width;
    ASSERT_NEAR(model.ZoomXMin, low, 1e-3);
    ASSERT_NEAR(model.ZoomXMax, high, 1e-3);
    low = model.ZoomXMin;
    high = model.ZoomXMax;
  }
  void reset() {
    click_button("TB_ZOOMFIX");
    low = 0;
    high = kEnd;
    points = 3998;
    zoomed = original = false;
  }
  std::string step() {
    switch (draw(0, 5)) {
      case 0:
      case 1:
        return high - low < 2 ? "" : (band(), "band");
      case 2:
        return high - low < 10 ? "" : (pull_line(), "line");
      case 3:
      case 4:
        return scroll(), "scroll";
      default:
        return reset(), "reset";
    }
  }

  void expect_screen() {
    ASSERT_EQ(model.Zoomed, zoomed);
    ASSERT_EQ(model.OriginalDataMode, original);
    ASSERT_EQ(readout().toInt(), points * 5);
    const auto& lines = model.PESGSurvey.shown().VertLineAnnotation;
    ASSERT_NEAR(lines[0], low, 1e-3);
    ASSERT_NEAR(lines[1], high, 1e-3);
    const AxisScale& axis = graph()->layout_on_show().x_axis.scale;
    const f64 padding = (high - low) * 0.05 + 0.1;
    ASSERT_NEAR(axis.minimum, low, padding);
    ASSERT_NEAR(axis.maximum, high, padding);
    ASSERT_EQ(user.wait_pointers, 0);
    ASSERT_TRUE(user.messages().empty());
    ASSERT_FALSE(model.AnnoDrag);
  }
  // Original samples stand at their times and fill the section.
  void expect_samples() {
    const GraphProperties& shown = model.PESG.shown();
    const i64 first = std::llround((*shown.XData)[0] * 100);
    ASSERT_NEAR(static_cast<f64>(first), low * 100, 1.01);
    for (i64 i = 0; i < points * 5; ++i) {
      const auto place = static_cast<std::size_t>(i);
      if (std::abs(f64{(*shown.YData)[place]} - ZoomRecording::known_sample(1, first + i)) > 0.01 ||
          std::abs(f64{(*shown.XData)[place]} * 100 - static_cast<f64>(first + i)) > 0.01)
        FAIL() << "sample " << first + i;
    }
  }

  std::mt19937 random{7};
  f64 low = 0, high = kEnd;
  i32 points = 3998;
  bool zoomed = false, original = false;
};

TEST_F(ZoomMouseWalkTest, ScreenAgreesWithTheRecordingAfterEveryStep) {
  show_envelope();
  model.controls["StepBox"].text = std::to_string(kStep);
  std::string road;
  for (int i = 0; i < 150; ++i) {
    const std::string taken = step();
    if (taken.empty()) continue;
    road += " > " + taken;
    if (!HasFatalFailure()) expect_screen();
    if (!HasFatalFailure() && original) expect_samples();
    ASSERT_FALSE(HasFatalFailure()) << "step " << i << ":" << road;
  }
}

}  // namespace
}  // namespace trendaro
