#include "files/section_handlers.h"

#include <string>
#include <tuple>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/commands.h"
#include "app/run_time_error.h"
#include "files/loader.h"
#include "graph/data_zoom.h"
#include "graph/scrolling.h"
#include "support/zoom_fixture.h"

namespace trendaro {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

// 100 samples a second; the recording behind every envelope is looked for with the extension MEA.
class SectionHandlersTest : public ZoomFixture {
 protected:
  void write_recording(const std::string& name) {
    write_file(folder.file(name), ZoomRecording{}.original().bytes());
  }
  // The values of one channel of the section that was written.
  SampleArray section_values(i16 channel) {
    EXPECT_EQ(LoadMeasurementFile(model, 1, target(), channel, 0), LoadStatus::Done);
    return model.FileChannelValues;
  }
  // The command makes a section of the samples `first` to `first + count - 1`.
  void expect_section(i64 first, std::size_t count) {
    shell.files = {target()};
    run_command(model, "mnuCreateMEASection");
    const SampleArray values = section_values(2);
    ASSERT_EQ(values.size(), count);
    for (std::size_t i = 0; i < count; ++i)
      ASSERT_NEAR(values[i], ZoomRecording::known_sample(2, first + static_cast<i64>(i)), 0.01) << i;
  }
  [[nodiscard]] std::string target() const { return folder.file("Ausschnitt.MEA"); }
};

TEST_F(SectionHandlersTest, SectionOnShowBecomesARecording) {
  open({});
  write_recording("lauf.MEA");
  mark(2);
  zoom(50, 60);
  shell.files = {target()};
  shell.calls.clear();
  run_command(model, "mnuCreateMEASection");
  ASSERT_EQ(shell.dialogs.size(), 1u);
  EXPECT_EQ(shell.dialogs[0].title, "Ausschnittsdatei aus der ersten Meßwertdatei erzeugen");
  EXPECT_EQ(shell.filters_of(0), "Messwertdatei(*.MEA)|*.MEA");
  EXPECT_EQ(shell.dialogs[0].default_name, "");
  EXPECT_EQ(shell.dialogs[0].default_ending, "MEA");
  EXPECT_THAT(shell.calls, ElementsAre("save: Ausschnittsdatei aus der ersten Meßwertdatei erzeugen",
                                       "status 1: Meßwertausschnittsdatei wird erzeugt!",
                                       "status 1: Meßwertausschnittsdatei erzeugt."));
  EXPECT_EQ(model.LastDatabaseStatus, 1);
  const SampleArray values = section_values(2);
  ASSERT_EQ(values.size(), 1000u);
  for (std::size_t i = 0; i < values.size(); ++i)
    ASSERT_NEAR(values[i], ZoomRecording::known_sample(2, static_cast<i64>(5000 + i)), 0.01) << i;
}

TEST_F(SectionHandlersTest, WaitPointerAndProgressStandWhileTheSectionIsWritten) {
  open({});
  write_recording("lauf.MEA");
  mark(2);
  zoom(50, 60);
  shell.files = {target()};
  shell.progress.clear();
  std::vector<int> pointers;
  shell.during_status = [&](const std::string&) { pointers.push_back(shell.wait_pointers); };
  run_command(model, "mnuCreateMEASection");
  EXPECT_THAT(pointers, ElementsAre(1, 1));
  EXPECT_EQ(shell.wait_pointers, 0);
  EXPECT_THAT(shell.progress, ElementsAre(1, -1));  // one piece, and the display is taken away
}

TEST_F(SectionHandlersTest, WholeRecordingIsTheSectionBehindAReset) {
  open({});
  open({.rows = 12000, .factor = 2}, "kurz");  // has more display points, of fewer samples
  write_recording("lauf.MEA");
  mark(2);
  mark(5);
  zoom(50, 60);
  ASSERT_TRUE(model.OriginalDataMode);
  for (const char* bound : {"1000", "100"}) {  // from original samples, and from the reduced display
    reset_zoom(model);
    expect_section(0, 20000);
    box("PointsBox") = bound;
    zoom(50, 60);
  }
}

TEST_F(SectionHandlersTest, ReducedSectionBeginsWhereItIsOnShow) {
  open({});
  write_recording("lauf.MEA");
  mark(2);
  zoom(10, 20);  // original samples are left behind
  box("PointsBox") = "100";
  model.OriginalDataMode = false;
  zoom(50, 60);
  ASSERT_FALSE(model.OriginalDataMode);
  expect_section(5000, 1000);
  box("StepBox") = "500";
  scroll_section(model, true);
  expect_section(5500, 1000);
  zoom(-2, 8);
  expect_section(0, 1000);
}

TEST_F(SectionHandlersTest, RecordingOfAnotherExtensionIsNotTaken) {
  open({});  // lauf.ME1 is there, lauf.MEA is not
  mark(2);
  zoom(50, 60);
  shell.files = {target()};
  run_command(model, "mnuCreateMEASection");
  EXPECT_THAT(shell.messages(), ElementsAre("Trendaro: Fehler bei Öffnen der Datei!"));
  EXPECT_EQ(model.LastDatabaseStatus, -1);
}

TEST_F(SectionHandlersTest, EndsAtOnceWithoutASectionAndForFullData) {
  write_recording("lauf.ME1");
  AddFileToGrid(model, folder.file("lauf.ME1"), false);
  run_command(model, "mnuCreateMEASection");
  mark(2);
  model.ZoomPoints = 100;
  run_command(model, "mnuCreateMEASection");
  EXPECT_THAT(shell.dialogs, IsEmpty());
  EXPECT_THAT(shell.messages(), IsEmpty());
}

TEST_F(SectionHandlersTest, PlotsWithoutEnvelopeAreToldOf) {
  open({});
  mark(2);
  zoom(50, 60);
  for (const char* title :
       {"Kanal 1@/ordner/lauf.REB", "Kanal 1@/ordner/lauf.st1", "Kanal 1@/ordner/lauf.st2",
        "Kanal 1@/ordner/lauf.v2.ST1", "Kanal 1@/ordner/lauf"}) {
    SCOPED_TRACE(title);
    shell.calls.clear();
    model.Plots[1].Title = title;
    model.LastDatabaseStatus = 77;
    run_command(model, "mnuCreateMEASection");
    EXPECT_THAT(shell.messages(),
                ElementsAre("Trendaro: Es wird keine komprimierte Meßwertdatei angezeigt."));
    EXPECT_THAT(shell.dialogs, IsEmpty());
    EXPECT_EQ(model.LastDatabaseStatus, 77);  // nothing was written
  }
}

// Two plots of which the second is an envelope, with numbers of its own.
TEST_F(SectionHandlersTest, TheEnvelopeFoundGivesTheLengthAndTheFirstPlotTheBegin) {
  open({});
  write_recording("lauf.MEA");
  mark(2);
  model.NofPlots = 2;
  model.Plots.resize(2);
  model.Plots[1].Title = "Weg@/ordner/lauf.REB";
  model.PlotStep = {4, 2};
  model.PlotReduceFactor = {1000, 10};
  model.PlotOffsetPoints = {7000, 1};
  model.CompressedDXMax = 8;
  model.ZoomPoints = 20;
  for (const char* envelope : {"lauf.sto", "lauf.STO", "lauf.ST2"}) {
    SCOPED_TRACE(envelope);
    model.Plots[2].Title = "Weg@" + folder.file(envelope);
    shell.files = {target()};
    run_command(model, "mnuCreateMEASection");
    EXPECT_THAT(shell.messages(), IsEmpty());
    const SampleArray values = section_values(2);
    ASSERT_EQ(values.size(), 400u);  // 8 / 2 x 20 x 10 / 2
    for (std::size_t i = 0; i < values.size(); ++i)
      ASSERT_NEAR(values[i], ZoomRecording::known_sample(2, static_cast<i64>(7000 + i)), 0.01) << i;
    write_file(target(), "");
  }
}

TEST_F(SectionHandlersTest, FailureOfTheWriterIsToldAndKept) {
  open({});
  mark(2);
  zoom(50, 60);
  // A file of another id; and a recording that ends behind its id, so that it has no header.
  const std::string other_id("\x94\x13 tail", 7);
  const std::string cut = ZoomRecording{}.original().bytes().substr(0, 6);
  const std::tuple<std::string, i32, std::string> rows[] = {
      {other_id, -1000, "Trendaro: Es wird keine komprimierte Meßwertdatei angezeigt."},
      {cut, -10, "Trendaro: Fehler bei Schreiben der Ausschnittsdatei!"}};
  for (const auto& [bytes, status, words] : rows) {
    SCOPED_TRACE(words);
    write_file(folder.file("lauf.MEA"), bytes);
    shell.files = {target()};
    shell.calls.clear();
    shell.during_message = [&] { EXPECT_EQ(shell.wait_pointers, 0); };
    run_command(model, "mnuCreateMEASection");
    EXPECT_THAT(shell.messages(), ElementsAre(words));
    EXPECT_THAT(shell.calls, Contains("status 1: "));  // the words of the work do not stay
    EXPECT_EQ(shell.progress.back(), -1);
    EXPECT_EQ(model.LastDatabaseStatus, status);
  }
}

TEST_F(SectionHandlersTest, ALengthThatCannotBeWorkedOutWritesNothing) {
  open({});
  write_recording("lauf.MEA");
  mark(2);
  zoom(50, 60);
  model.PlotStep[1] = 0;
  model.LastDatabaseStatus = 77;
  write_file(target(), "früher");
  shell.files = {target()};
  EXPECT_THROW(run_command(model, "mnuCreateMEASection"), RunTimeError);
  EXPECT_THAT(shell.messages(), IsEmpty());
  EXPECT_EQ(model.LastDatabaseStatus, 77);
  EXPECT_EQ(read_file(target()), "früher");
}

TEST_F(SectionHandlersTest, GivenUpDialogWritesNothing) {
  open({});
  write_recording("lauf.MEA");
  mark(2);
  zoom(50, 60);
  model.LastDatabaseStatus = 77;
  run_command(model, "mnuCreateMEASection");
  EXPECT_EQ(shell.dialogs.size(), 1u);
  EXPECT_THAT(shell.messages(), IsEmpty());
  EXPECT_EQ(model.LastDatabaseStatus, 77);
  EXPECT_EQ(shell.calls.back(), "save: Ausschnittsdatei aus der ersten Meßwertdatei erzeugen");
}

}  // namespace
}  // namespace trendaro
