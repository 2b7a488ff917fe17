#include "files/channel_info.h"

#include <algorithm>
#include <filesystem>
#include <limits>

#include <gtest/gtest.h>

#include "app/model.h"
#include "datasource/file_list.h"
#include "datasource/grid_handlers.h"
#include "datasource/plot_list.h"
#include "files/channel_info_handlers.h"
#include "files/dataset_header_text.h"
#include "support/fake_host.h"
#include "support/recorder_builder.h"
#include "support/recording_kernel.h"
#include "support/recording_shell.h"
#include "support/standard_builder.h"

namespace trendaro {
namespace {

using Texts = std::vector<std::string>;

// Words are "W" and the number; 666 has an empty one.
class WordKernel : public RecordingKernel {
 public:
  i32 KSD_ACQTranslateParID(i16 parameter, std::string& buffer) override {
    buffer = parameter == 666 ? std::string(1, '\0') : "W" + std::to_string(parameter) + "\r\n" + '\0';
    return 1;
  }
};

class ChannelInfoTest : public testing::Test {
 protected:
  ChannelInfoTest() {
    host.set_all_capacities(1000);
    model.Host = &host;
    model.Kernel = &kernel;
    model.MaxDatabaseChannels = host.channels;
  }

  void add(const std::string& name, const FileBuilder& file) {
    write_file(folder.file(name), file.bytes());
    AddFileToGrid(model, folder.file(name), false);
  }
  // Adds a file of one channel and fills the form with it.
  void fill(const StandardChannel& channel, i16 id = 5012) {
    add("run.BIN", StandardFileLayout{.id = id, .channels = {channel}}.build());
    FillChannelInfo(model, model.Grid.MaxRows());
  }
  // The value of the first row of that name; "(none)" without one.
  std::string value(const std::string& name) const {
    for (const ChannelInfoRow& row : model.InfoGrid)
      if (row.name == name) return row.value;
    return "(none)";
  }
  Texts lines() const {
    Texts found;
    for (const ChannelInfoRow& row : model.InfoGrid) found.push_back(row.name + " = " + row.value);
    return found;
  }
  // The row of the host's scaling and the rows that it brings.
  Texts scaling(const ChannelExtraRecord& extra) {
    fill({.extra = extra, .values = {1}});
    Texts all = lines();
    const auto has_name = [](const std::string& name) {
      return [name](const std::string& line) { return line.starts_with(name + " = "); };
    };
    const auto first = std::ranges::find_if(all, has_name("Mervan Skalierung"));
    return {first, std::ranges::find_if(all, has_name("Speisespannung"))};
  }

  TemporaryFolder folder;
  RecordingShell shell;
  FakeHost host;
  WordKernel kernel;
  Model model{shell};
};

ChannelParamRecord known_record() {
  ChannelParamRecord record = distinct_param_record();
  record.MeasuringRange = 21.4F;
  record.AmplifierSerial = {'G', '\xE4', '7', '\0', 'x'};
  record.ElectricalUnit = {'m', 'V', '/', 'V', ' ', ' ', ' ', ' '};
  return record;
}

TEST_F(ChannelInfoTest, RowsStandInTheirOrder) {
  fill({.name = "Kraft  ", .comment = "am Lager  ", .record = known_record(), .values = {1, 2, 3}});
  EXPECT_EQ(lines(), (Texts{"Kraft = ",
                            "Werte = 3",
                            "Kommentar = am Lager",
                            "Start Meßwerterfassung = 05.03.21 06:00:00",
                            "dt Meßwerterfassung = 0.50 ms (2000 Hz)",
                            "Hardwarekanal = 104 - 105",
                            "Verstärker Serien Nr. = Gä7",
                            "Verstärkertyp = W106",
                            "Anschlußplatte = W107",
                            "Aufnehmertyp = W100",
                            "Meßbereich = W21",
                            "Geräteskalierung x(1);y(1) = 4.25 ; 5.25",
                            "Geräteskalierung x(2);y(2) = 6.25 ; 7.25",
                            "Elektr. Einheit = mV/V",
                            "Phys. Einheit = kN",
                            "Mervan Skalierung = Keine",
                            "Speisespannung = W101",
                            "Filtercharakteristik = W102",
                            "Filterfrequenz = W103 Hz",
                            "Nullabgleichwert = 2.25 kN",
                            "Tarawert = 1.25 kN",
                            "Software-Nullabgleichwert = 10.25 kN",
                            "Meßsignal = W108",
                            "Verstärkereingang = W109",
                            "k-Faktor = 8.25",
                            "Brückenfaktor = 9.25"}));
  EXPECT_EQ(model.NofHeaders, 1);
  EXPECT_TRUE(model.InfoGrid[0].heading);
  EXPECT_FALSE(model.InfoGrid[1].heading);
}

TEST_F(ChannelInfoTest, MissingValuesAreNotAvailable) {
  fill({.name = "", .unit = "", .comment = "", .values = {1}});
  for (const char* name :
       {"Kommentar", "Start Meßwerterfassung", "Verstärker Serien Nr.", "Verstärkertyp", "Anschlußplatte",
        "Aufnehmertyp", "Meßbereich", "Elektr. Einheit", "Phys. Einheit", "Speisespannung",
        "Filtercharakteristik", "Filterfrequenz", "Meßsignal", "Verstärkereingang"})
    EXPECT_EQ(value(name), "Nicht verfügbar") << name;
  EXPECT_EQ(model.InfoGrid[0].name, "Nicht verfügbar");
  EXPECT_EQ(value("dt Meßwerterfassung"), "0.00 ms");
  EXPECT_EQ(value("k-Faktor"), "0");
}

TEST_F(ChannelInfoTest, EmptyWordsStayEmpty) {
  ChannelParamRecord record;
  record.AmplifierType = record.FilterFrequency = 666;
  fill({.record = record, .values = {1}});
  EXPECT_EQ(value("Verstärkertyp"), "");
  EXPECT_EQ(value("Filterfrequenz"), "");
}

TEST_F(ChannelInfoTest, SubChannelOfZeroShowsOnlyTheChannel) {
  ChannelParamRecord record;
  record.HardwareChannel = 7;
  fill({.record = record, .values = {1}});
  EXPECT_EQ(value("Hardwarekanal"), "7");
}

TEST_F(ChannelInfoTest, MissingScaleIsNotAvailable) {
  ChannelParamRecord record;
  record.ScaleX1 = std::numeric_limits<f32>::quiet_NaN();
  record.ScaleY2 = std::numeric_limits<f32>::quiet_NaN();
  record.KFactor = std::numeric_limits<f32>::quiet_NaN();
  record.TareValue = std::numeric_limits<f32>::quiet_NaN();
  fill({.record = record, .values = {1}});
  EXPECT_EQ(value("Geräteskalierung x(1);y(1)"), "Nicht verfügbar");
  EXPECT_EQ(value("Geräteskalierung x(2);y(2)"), "Nicht verfügbar");
  EXPECT_EQ(value("k-Faktor"), "Nicht verfügbar");
  EXPECT_EQ(value("Tarawert"), "Nicht verfügbar");
}

TEST_F(ChannelInfoTest, CommentHasAtMost128Characters) {
  fill({.comment = std::string(127, 'a') + "\xE4" + "b", .values = {1}});
  EXPECT_EQ(value("Kommentar"), std::string(127, 'a') + "ä");
}

TEST_F(ChannelInfoTest, ScalingWithoutComputation) {
  EXPECT_EQ(scaling({}), (Texts{"Mervan Skalierung = Keine"}));
  EXPECT_EQ(scaling({.ScalingMode = 1, .ScalingKind = 1, .CoefficientCount = 1, .Coefficients = {5}}),
            (Texts{"Mervan Skalierung = Extern Hardware"}));
}

TEST_F(ChannelInfoTest, TableShowsItsPairs) {
  EXPECT_EQ(
      scaling({.ScalingMode = 2, .CoefficientCount = 5, .Coefficients = {0, 1.5, 2, -3, 9}}),
      (Texts{"Mervan Skalierung = Linearisierungstabelle", "x(1);y(1) = 0 ; 1.5", "x(2);y(2) = 2 ; -3"}));
}

TEST_F(ChannelInfoTest, PolynomialShowsItsCoefficients) {
  EXPECT_EQ(scaling({.ScalingMode = 2, .ScalingKind = 1, .CoefficientCount = 2, .Coefficients = {0.1, 2}}),
            (Texts{"Mervan Skalierung = Polynom", "a(1) = 0.1", "a(2) = 2"}));
}

TEST_F(ChannelInfoTest, FormulaStandsAsItIs) {
  EXPECT_EQ(scaling({.ScalingMode = 2, .ScalingKind = 2, .FormulaText = "2*x+1"}),
            (Texts{"Mervan Skalierung = y = f(x)", "f(x) = 2*x+1"}));
}

TEST_F(ChannelInfoTest, FormulaWithoutTextIsNotAvailable) {
  EXPECT_EQ(scaling({.ScalingMode = 2, .ScalingKind = 2}),
            (Texts{"Mervan Skalierung = y = f(x)", "f(x) = Nicht verfügbar"}));
}

TEST_F(ChannelInfoTest, StrainGaugeShowsItsFactors) {
  EXPECT_EQ(
      scaling({.ScalingMode = 2, .ScalingKind = 3, .CoefficientCount = 3, .Coefficients = {2.05, 4, 0.98}}),
      (Texts{"Mervan Skalierung = DMS Verschaltung", "k-Faktor = 2.05", "Brückenfaktor = 4",
             "Shuntkorrekturfaktor = 0.98"}));
  EXPECT_EQ(scaling({.ScalingMode = 2, .ScalingKind = 3, .CoefficientCount = 1, .Coefficients = {2}}),
            (Texts{"Mervan Skalierung = DMS Verschaltung", "k-Faktor = 2", "Brückenfaktor = Nicht verfügbar",
                   "Shuntkorrekturfaktor = Nicht verfügbar"}));
}

TEST_F(ChannelInfoTest, ThermometersHaveWords) {
  const Texts words = {"",         "Thermo J", "Thermo K", "Thermo S", "Thermo T", "Thermo B",
                       "Thermo E", "Thermo R", "Pt 100",   "Pt 500",   "Pt 1000",  ""};
  for (std::size_t i = 0; i < words.size(); ++i)
    EXPECT_EQ(scaling({.ScalingMode = 3, .ThermoType = static_cast<i16>(100 + i)}),
              (Texts{"Mervan Skalierung = " + words[i]}));
}

TEST_F(ChannelInfoTest, UnknownScalingIsEmpty) {
  EXPECT_EQ(scaling({.ScalingMode = 4, .CoefficientCount = 1, .Coefficients = {1}}),
            (Texts{"Mervan Skalierung = "}));
  EXPECT_EQ(scaling({.ScalingMode = 2, .ScalingKind = 4, .CoefficientCount = 1, .Coefficients = {1}}),
            (Texts{"Mervan Skalierung = "}));
}

TEST_F(ChannelInfoTest, OldFileHasNoScalingOfTheHost) {
  fill({.extra = {.ScalingMode = 1}, .values = {1}});
  fill({.record = known_record(), .values = {1}}, 5008);
  EXPECT_EQ(value("Mervan Skalierung"), "Nicht verfügbar");
  EXPECT_EQ(value("Verstärkertyp"), "W106");
}

TEST_F(ChannelInfoTest, OldestFileHasNoParameters) {
  fill({.record = known_record(), .values = {1}});
  fill({.name = "Weg", .values = {1, 2}}, 5004);
  EXPECT_EQ(model.InfoGrid[0].name, "Weg");
  EXPECT_EQ(value("Werte"), "2");
  EXPECT_EQ(value("Kommentar"), "Bemerkung");
  EXPECT_EQ(value("Phys. Einheit"), "kN");
  for (const char* name : {"Start Meßwerterfassung", "dt Meßwerterfassung", "Hardwarekanal", "Tarawert",
                           "k-Faktor", "Mervan Skalierung"})
    EXPECT_EQ(value(name), "Nicht verfügbar") << name;
}

TEST_F(ChannelInfoTest, ReducedBlocksCountTheSamplesBehindThem) {
  add("run.REB", StandardFileLayout{.reduce_block = 10, .channels = {{.values = {1, 2, 3, 4}}}}.build());
  FillChannelInfo(model, 2);
  EXPECT_EQ(value("Werte"), "20");
}

// A recording of two channels with names and settings of their own, and its envelope.
class RecordingInfoTest : public ChannelInfoTest {
 protected:
  static RecorderBuilder recording(i32 id) {
    RecorderBuilder built{.id = id, .row_count = id == 6002 ? 4 : 4000};
    built.reduce_factor = 1000;
    const i32 mask = id == 6002 ? 0b11 : 1;
    built.entries = {{.channel = 1, .unit = "KN", .mask = mask, .name_field = quoted_name("Kraft;am Lager")},
                     {.channel = 2, .unit = "MM", .mask = mask, .name_field = quoted_name("Weg")}};
    return built;
  }
};

TEST_F(RecordingInfoTest, ReducedRecordingShowsTheSettingsOfItsMeasurementFile) {
  RecorderBuilder original = recording(6001);
  original.entries[1].name_field = quoted_name("Weg voll");
  write_file(folder.file("run.mea"), original.build().bytes());
  RecorderBuilder reduced = recording(6002);
  add("run.STO", reduced.build());
  ASSERT_EQ(model.Grid.MaxRows(), 3);
  FillChannelInfo(model, 3);
  EXPECT_EQ(model.InfoGrid[0].name, "Weg voll");
  EXPECT_EQ(value("Werte"), "4000");
  EXPECT_EQ(value("Hardwarekanal"), "2");
  EXPECT_EQ(value("dt Meßwerterfassung"), "10.00 ms (100 Hz)");
  EXPECT_EQ(value("Kommentar"), "Kommentar");
  EXPECT_EQ(value("Mervan Skalierung"), "Nicht verfügbar");
  FillChannelInfo(model, 2);
  EXPECT_EQ(model.InfoGrid[0].name, "Kraft");
  EXPECT_EQ(value("Kommentar"), "am Lager");
}

TEST_F(RecordingInfoTest, DotsAheadOfTheExtensionDoNotHideTheMeasurementFile) {
  RecorderBuilder original = recording(6001);
  original.entries[1].name_field = quoted_name("Weg voll");
  write_file(folder.file("run.7.MEA"), original.build().bytes());
  add("run.7.STO", recording(6002).build());
  ASSERT_EQ(model.Grid.MaxRows(), 5);  // listed as a plain file: each stored channel has its row
  FillChannelInfo(model, 4);
  EXPECT_EQ(model.InfoGrid[0].name, "Weg voll");
  EXPECT_EQ(value("Werte"), "4000");
}

TEST_F(RecordingInfoTest, FailedLoadLeavesTheRows) {
  fill({.name = "Kraft", .values = {1}});
  const Texts before = lines();
  add("run.ST1", recording(6002).build());
  FillChannelInfo(model, model.Grid.MaxRows());  // there is no run.ME1
  EXPECT_EQ(lines(), before);
  EXPECT_EQ(model.NofHeaders, 1);
  EXPECT_EQ(model.LastDatabaseStatus, -100);
  EXPECT_TRUE(shell.messages().empty());
  FillChannelInfo(model, 0);
  FillChannelInfo(model, 99);
  EXPECT_EQ(lines(), before);
}

TEST_F(ChannelInfoTest, FormShowsTheActiveChannel) {
  fill({.name = "Kraft", .values = {1}});
  model.InfoGrid.clear();
  activate_row(model, 2);
  shell.info_presses = {[](const ChannelInfoForm& form) { form.copy(); },
                        [](const ChannelInfoForm& form) { form.print(); }};
  mnuShowChanInfo(model);
  ASSERT_EQ(shell.info_rows.size(), 26U);
  EXPECT_EQ(shell.info_rows[0].name, "Kraft");
  const Texts calls(shell.calls.end() - 4, shell.calls.end());
  EXPECT_EQ(calls[0], "channel info: Kanalinformationen");
  EXPECT_TRUE(calls[1].starts_with("copy: Kraft\t\r\nWerte\t1\r\nKommentar\tBemerkung\r\n")) << calls[1];
  EXPECT_TRUE(calls[1].ends_with("\r\nBrückenfaktor\t0\r\n")) << calls[1];
  EXPECT_EQ(calls[2], "status 1: Kanalinformationen werden gedruckt");
  EXPECT_EQ(calls[3], "print 26 rows: Kanalinformationen");
}

TEST_F(ChannelInfoTest, AllPlotsStandInOneForm) {
  add("run.BIN", StandardFileLayout{.channels = {{.name = "eins", .values = {1}},
                                                 {.name = "zwei", .values = {1, 2}},
                                                 {.name = "drei", .values = {1, 2, 3}}}}
                     .build());
  model.CurrentLayer = 2;
  click_check_cell(model, 2, 1);
  model.CurrentLayer = 1;
  click_check_cell(model, 4, 1);
  show_info_of_plots(model);
  EXPECT_EQ(shell.calls.back(), "channel info: Informationen aller dargestellten Kanäle");
  EXPECT_EQ(model.NofHeaders, 2);
  ASSERT_EQ(shell.info_rows.size(), 52U);
  EXPECT_EQ(shell.info_rows[0], (ChannelInfoRow{"drei", "", true}));
  EXPECT_EQ(shell.info_rows[1].value, "3");
  EXPECT_EQ(shell.info_rows[26], (ChannelInfoRow{"eins", "", true}));

  std::filesystem::remove(folder.file("run.BIN"));
  show_info_of_plots(model);
  EXPECT_EQ(shell.info_rows.size(), 52U);

  click_check_cell(model, 2, 0);
  click_check_cell(model, 4, 0);
  show_info_of_plots(model);
  EXPECT_TRUE(shell.info_rows.empty());
  EXPECT_EQ(model.NofHeaders, 0);
}

TEST_F(ChannelInfoTest, FileWithoutParametersDoesNotTakeThoseOfAnother) {
  fill({.record = known_record(), .values = {1}});
  add("old.BIN", StandardFileLayout{.id = 5004, .channels = {{.values = {1}}}}.build());
  EXPECT_NE(DatasetHeaderText(model, folder.file("old.BIN"), 1).find("Serien-Nr.: \r\n"), std::string::npos);
  EXPECT_FALSE(model.ChannelParams.contains(0)) << "the words for a channel make no parameters";
}

}  // namespace
}  // namespace trendaro
