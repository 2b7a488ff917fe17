#include "app/host_dialogs.h"

#include <algorithm>
#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/model.h"
#include "files/loader.h"
#include "support/file_builder.h"
#include "support/recording_shell.h"

namespace trendaro {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ExportTest : public testing::Test {
 protected:
  TemporaryFolder folder;
  RecordingShell shell;
  OneBased<MemoryChannel> channels{3};

  void fill(i16 number, const std::string& name, const std::string& unit, const std::vector<f64>& values) {
    channels[number].name = name;
    channels[number].unit = unit;
    channels[number].export_selected = 1;
    append_samples(channels[number], values, 1000000);
  }
};

TEST_F(ExportTest, SelectedChannelsBecomeColumns) {
  fill(1, "Drehzahl", "1/min", {0.5, -1e300});
  fill(2, "weg", "", {1});
  fill(3, "Öl\tdruck", "bar", {1, 2, 3});
  channels[2].export_selected = 0;
  shell.files = {folder.file("werte.txt")};
  export_channels(shell, channels);
  EXPECT_EQ(read_file(folder.file("werte.txt")), "Drehzahl\tÖl druck\n1/min\tbar\n0.5\t1\n-1e+300\t2\n\t3\n");
  EXPECT_THAT(shell.messages(), IsEmpty());
}

TEST_F(ExportTest, TableOfACsvFileHasSemicolons) {
  fill(1, "a;b", "m", {1.5});
  fill(2, "c", "", {2, 3});
  shell.files = {folder.file("werte.Csv")};
  export_channels(shell, channels);
  EXPECT_EQ(read_file(folder.file("werte.Csv")), "a b;c\nm;\n1.5;2\n;3\n");
}

TEST_F(ExportTest, AnyOtherNameGetsAStandardFile) {
  fill(2, "Öldruck", "bar", {5, 6, 7});
  fill(3, "Weg", "µm", {1});
  channels[2].comment = "Motor";
  channels[2].date = 44260.5;
  channels[2].sample_interval = 0.25;
  shell.files = {folder.file("lauf.1/werte")};
  std::filesystem::create_directory(folder.file("lauf.1"));
  export_channels(shell, channels);
  EXPECT_THAT(shell.messages(), IsEmpty());
  Model model{shell};
  ASSERT_EQ(LoadMeasurementFile(model, 1, folder.file("lauf.1/werte.BIN"), 1, 0), LoadStatus::Done);
  EXPECT_EQ(model.FileChannelNames, (OneBased<std::string>{"Öldruck", "Weg"}));
  EXPECT_EQ(model.FileChannelUnits, (OneBased<std::string>{"bar", "µm"}));
  EXPECT_EQ(model.FileChannelRates[1], 0.25F);
  EXPECT_EQ(model.FileChannelComment, "Motor");
  EXPECT_EQ(model.FileDateText, "44260.5");
  EXPECT_THAT(std::vector<f64>(model.FileChannelValues.begin(), model.FileChannelValues.end()),
              ElementsAre(5, 6, 7));
}

TEST_F(ExportTest, DialogOffersBinaryFilesFirst) {
  export_channels(shell, channels);
  ASSERT_EQ(shell.dialogs.size(), 1U);
  EXPECT_EQ(shell.dialogs[0].default_name, "Ausschnitt.BIN");
  EXPECT_EQ(shell.dialogs[0].filters.front().caption, "Standard-Binärdateien");
  EXPECT_EQ(shell.dialogs[0].filters.front().pattern, "*.BIN");
}

TEST_F(ExportTest, LongChannelsComeWhole) {
  std::vector<f64> values(10000);
  for (std::size_t i = 0; i < values.size(); ++i) values[i] = static_cast<f64>(i);
  fill(2, "n", "u", values);
  shell.files = {folder.file("w.txt")};
  export_channels(shell, channels);
  std::string expected = "n\nu\n";
  for (int i = 0; i < 10000; ++i) expected += std::to_string(i) + "\n";
  EXPECT_EQ(read_file(folder.file("w.txt")), expected);
}

TEST_F(ExportTest, CancelledDialogWritesNothing) {
  fill(1, "a", "b", {1});
  export_channels(shell, channels);
  EXPECT_THAT(shell.calls, ElementsAre("save: Daten exportieren"));
}

TEST_F(ExportTest, NothingSelectedIsSaid) {
  shell.files = {folder.file("w.txt")};
  export_channels(shell, channels);
  EXPECT_THAT(shell.messages(), ElementsAre("Trendaro: Es ist kein Datenbasiskanal mit Werten ausgewählt."));
  EXPECT_FALSE(std::filesystem::exists(folder.file("w.txt")));
}

TEST_F(ExportTest, FileThatCannotBeWrittenIsSaid) {
  fill(1, "a", "b", {1});
  for (const char* name : {"none/w.txt", "none/w.BIN"}) {
    shell.calls.clear();
    shell.files = {folder.file(name)};
    export_channels(shell, channels);
    EXPECT_THAT(shell.messages(),
                ElementsAre("Trendaro: Fehler beim Schreiben der Datei " + folder.file(name)));
  }
}

class SizeTest : public testing::Test {
 protected:
  RecordingShell shell;
  OneBased<MemoryChannel> channels{3};
};

TEST_F(SizeTest, ChosenSizeIsTaken) {
  shell.sizes = {DatabaseSize{12, 250000}};
  EXPECT_EQ(ask_size(shell, channels, {3, 1000}), (DatabaseSize{12, 250000}));
  EXPECT_THAT(shell.calls, ElementsAre("database: 3 x 1000"));
}

TEST_F(SizeTest, CancelledDialogKeepsTheSize) {
  EXPECT_EQ(ask_size(shell, channels, {3, 1000}), (DatabaseSize{3, 1000}));
}

TEST_F(SizeTest, SizeThatNoDatabaseHasIsCut) {
  shell.sizes = {DatabaseSize{0, -5}, DatabaseSize{10000, 100000001}};
  EXPECT_EQ(ask_size(shell, channels, {3, 1000}), (DatabaseSize{1, 1}));
  EXPECT_EQ(ask_size(shell, channels, {3, 1000}), (DatabaseSize{9999, 100000000}));
}

TEST_F(SizeTest, LossOfSamplesIsAskedFor) {
  append_samples(channels[2], std::vector<f64>(5), 1000);
  shell.sizes = {DatabaseSize{2, 5}, DatabaseSize{2, 4}, DatabaseSize{1, 5}, DatabaseSize{1, 1}};
  shell.yes_no = {false, true, true};
  EXPECT_EQ(ask_size(shell, channels, {3, 1000}), (DatabaseSize{2, 5}));
  EXPECT_THAT(shell.calls, ElementsAre("database: 3 x 1000"));
  EXPECT_EQ(ask_size(shell, channels, {3, 1000}), (DatabaseSize{3, 1000}));
  EXPECT_EQ(ask_size(shell, channels, {3, 1000}), (DatabaseSize{1, 5}));
  EXPECT_EQ(ask_size(shell, channels, {3, 1000}), (DatabaseSize{1, 1}));
  EXPECT_EQ(std::ranges::count(shell.calls,
                               "question: Datenbasis einrichten: In der kleineren Datenbasis ist für einen "
                               "Teil der Werte kein Platz; sie gehen verloren. Fortsetzen?"),
            3);
}

}  // namespace
}  // namespace trendaro
