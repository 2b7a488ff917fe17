#include <algorithm>
#include <cmath>
#include <vector>

#include <gtest/gtest.h>

#include "app/bus_host.h"
#include "bus/robot_program.h"
#include "support/zoom_recording.h"

namespace trendaro {
namespace {

// A viewer that shows an envelope; original samples come through a host in another process.
class ImportTest : public testing::Test {
 protected:
  ImportTest() {
    write_file(folder.file("lauf.ME1"), recording.original().bytes());
    write_file(folder.file("lauf.ST1"), recording.envelope().bytes());
  }

  void zoom_with(Program& host) {
    host.start();
    bus.wait_for(kHostService);
    viewer.start();
    ASSERT_TRUE(viewer.shows("Kelmira"));
    EXPECT_EQ(viewer.tell("choose mnuZoomToMax"), "done");
  }
  void close_viewer() {
    viewer.tell("close");
    ASSERT_TRUE(QTest::qWaitFor([&] { return viewer.message() == "Trendaro beenden?"; }, kPatience));
    viewer.tell("press Ja");
    EXPECT_EQ(viewer.wait_for_end(), 0);
  }

  TemporaryFolder folder;
  ZoomRecording recording;
  PrivateBus bus;
  Robot viewer{&bus, {QStringLiteral("--host=bus"), QString::fromStdString(folder.file("lauf.ST1:1"))}};
};

TEST_F(ImportTest, ZoomBringsOriginalSamplesIntoTheHostsChannels) {
  Program server(&bus, SERVE_HOST, {});
  zoom_with(server);
  EXPECT_EQ(viewer.windows(), "Kelmira");
  BusHost host(bus.connection(), {QLatin1String(kHostService), QLatin1String(kHostPath)});
  std::vector<f64> samples(static_cast<std::size_t>(host.GetChannelLength(1)));
  ASSERT_GT(samples.size(), 1000U);
  host.ReadData64(1, samples);
  for (f64& sample : samples) sample = std::round(sample);  // the scale is in single precision
  std::vector<f64> whole;
  for (i64 i = 0; i < recording.rows; ++i) whole.push_back(ZoomRecording::known_sample(1, i));
  EXPECT_NE(std::ranges::search(whole, samples).begin(), whole.end());
  close_viewer();
}

TEST_F(ImportTest, HostThatDiesInTheMiddleOfAnImportLeavesAViewerThatSaysSoAndCloses) {
  Program odd(&bus, ODD_HOST, {QStringLiteral("dies"), QStringLiteral("ExecuteImport")});
  zoom_with(odd);
  ASSERT_TRUE(viewer.shows("Kelmira MsgBox"));
  EXPECT_EQ(viewer.message(), "Mervan-ActiveX-Server nicht mehr vorhanden. Trendaro muss beendet werden!");
  EXPECT_EQ(odd.wait_for_end(), -1);
  viewer.tell("press OK");
  EXPECT_TRUE(viewer.shows("Kelmira"));
  close_viewer();
}

}  // namespace
}  // namespace trendaro
