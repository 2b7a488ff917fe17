#include "app/info_command.h"

#include <cmath>
#include <limits>
#include <sstream>

#include <gtest/gtest.h>

#include "support/block_builder.h"
#include "support/recorder_builder.h"
#include "support/standard_builder.h"

namespace trendaro {
namespace {

class InfoCommandTest : public testing::Test {
 protected:
  // Exit status; what was printed stands in `output` and `errors`.
  int run(const std::string& path, i16 channel, bool json) {
    std::ostringstream out;
    std::ostringstream err;
    const int status = run_info({.path = path, .channel = channel, .json = json}, out, err);
    output = out.str();
    errors = err.str();
    return status;
  }

  std::string output, errors;
};

TEST_F(InfoCommandTest, JsonOfAStandardFile) {
  StandardFileLayout standard{.id = 5010, .reduce_block = 50};
  standard.channels = {{.name = "Kraft \"1\"", .unit = "\xB5m", .values = {1, 2, 3}},
                       {.name = "Weg", .unit = "mm", .channel_date = 44260.5}};
  standard.channels[0].record.SampleInterval = 0.1;
  const TemporaryFile file(standard.build());
  EXPECT_EQ(run(file.path(), 0, true), 0);
  EXPECT_EQ(output, "{\"status\":0,\"file\":\"" + file.path() +
                        R"(","id":5010,"channel_count":2,"reduce_factor":0,"reduce_block":50,)"
                        R"("date":"","comment":"","channels":[)"
                        R"({"number":1,"name":"Kraft \"1\"","unit":"µm","interval_ms":0.1,"points":3,)"
                        R"("points_estimate":null},)"
                        R"({"number":2,"name":"Weg","unit":"mm","interval_ms":0.0,"points":0,)"
                        R"("points_estimate":null}],"channel":null})"
                        "\n");
  EXPECT_EQ(errors, "");
  EXPECT_EQ(run(file.path(), 3, true), 0);
  EXPECT_TRUE(
      output.ends_with("\"date\":\"\",\"comment\":\"\"" + output.substr(output.find(",\"channels\""))));
  EXPECT_TRUE(output.ends_with("\"channel\":null}\n"));
  EXPECT_EQ(run(file.path(), 2, true), 0);
  EXPECT_NE(output.find("\"date\":\"44260.5\""), std::string::npos);
}

TEST_F(InfoCommandTest, JsonOfAChannelsRecords) {
  StandardFileLayout standard{.id = 5012};
  ChannelParamRecord record = distinct_param_record();
  record.TareValue = 0.1f;
  record.ScaleX1 = std::numeric_limits<f32>::infinity();
  record.AmplifierSerial = {'A', '\xFC', ' ', '\0', 'x'};
  record.PhysicalUnit = {'k', 'N', ' ', ' ', ' ', ' ', ' ', ' '};
  standard.channels = {{.record = record, .extra = {2, 1, 2, {1.5, std::nan("")}, 0, "a*x"}}};
  const TemporaryFile file(standard.build());
  EXPECT_EQ(run(file.path(), 1, true), 0);
  const std::string expected =
      R"("channel":{"number":1,"params":{"StartTime":44260.25,"SampleInterval":0.5,"TransducerType":100,)"
      R"("Excitation":101,"FilterType":102,"FilterFrequency":103,"TareValue":0.1,"ZeroValue":2.25,)"
      R"("MeasuringRange":3.25,"ScaleX1":null,"ScaleY1":5.25,"ScaleX2":6.25,"ScaleY2":7.25,)"
      R"("AmplifierSerial":"Aü","PhysicalUnit":"kN","ElectricalUnit":"EEEEEEEE","HardwareChannel":104,)"
      R"("HardwareSubChannel":105,"AmplifierType":106,"ConnectionBoard":107,"KFactor":8.25,)"
      R"("BridgeFactor":9.25,"MeasuredSignal":108,"AmplifierInput":109,"ParamWord1":110,"FixedBlockFlag":0,)"
      R"("ParamByte1":11,"SoftwareZero":10.25,"ParamByte2":12,"ParamWord2":305419896,)"
      R"("ParamText":"TTTTTTTTTTTTTTT"},"extras":{"ScalingMode":2,"ScalingKind":1,"CoefficientCount":2,)"
      R"("Coefficients":[1.5,null],"ThermoType":0,"FormulaText":"a*x"}}})"
      "\n";
  EXPECT_TRUE(output.ends_with(expected)) << output;
}

TEST_F(InfoCommandTest, FormulaEndsAtItsNulAndLosesItsBlanks) {
  StandardFileLayout standard{.id = 5012};
  for (const std::string& text : {std::string("a*x+\xB5  \0hidden", 14), std::string("a*x+\xB5 ")}) {
    standard.channels = {{.extra = {2, 2, 0, {}, 0, text}}};
    const TemporaryFile file(standard.build());
    EXPECT_EQ(run(file.path(), 1, true), 0);
    EXPECT_TRUE(output.ends_with(R"("Coefficients":[],"ThermoType":0,"FormulaText":"a*x+µ"}}})"
                                 "\n"))
        << output;
  }
}

// The closing block stands a settings block behind that of the time channel, which has none.
std::string force_over_time() {
  RecorderBuilder recording{.row_count = 1200};
  RecorderEntry force{.channel = 4, .unit = "N", .mask = 0x020002, .name_field = quoted_name("Kraft;links")};
  force.settings.patch<u8>(48, 4).patch<f32>(107, 0.1F);
  recording.entries = {force, {.channel = 17, .unit = "ms"}, {.channel = 18, .unit = "ms"}};
  std::string bytes = recording.build().bytes();
  return bytes.insert(32 + 3 * 20 + 225, 225, '\0');
}

TEST_F(InfoCommandTest, JsonOfARecordingHasASlotForTheTimeCarry) {
  const TemporaryFile file(force_over_time());
  EXPECT_EQ(run(file.path(), 0, true), 0);
  const auto slot = [](const std::string& number, const std::string& name, const std::string& unit) {
    return "{\"number\":" + number + ",\"name\":\"" + name + "\",\"unit\":\"" + unit +
           "\",\"interval_ms\":10.0,\"points\":1200,\"points_estimate\":null}";
  };
  const std::string expected = "{\"status\":0,\"file\":\"" + file.path() +
                               "\",\"id\":6001,\"channel_count\":2,\"reduce_factor\":0,\"reduce_block\":0,"
                               "\"date\":\"Fri Mar 05 12:34:56 2021\",\"comment\":\"\\u0000\\u0000Kommentar" +
                               std::string(69, ' ') + "\",\"channels\":[" + slot("1", "Kraft", "N") + "," +
                               slot("2", "TLQ 17 (Zeitkanal)", "ms") + "," +
                               slot("3", "TLQ 18 (Zeitkanal Übertrag)", "ms") + "],\"channel\":null}\n";
  EXPECT_EQ(output, expected);
}

TEST_F(InfoCommandTest, JsonOfARecordingsChannelHasNoExtras) {
  const TemporaryFile file(force_over_time());
  EXPECT_EQ(run(file.path(), 1, true), 0);
  EXPECT_TRUE(output.ends_with(
      R"("channel":{"number":1,"params":{"StartTime":0.0,"SampleInterval":10.0,"TransducerType":0,)"
      R"("Excitation":0,"FilterType":0,"FilterFrequency":0,"TareValue":0.0,"ZeroValue":0.1,)"
      R"("MeasuringRange":0.0,"ScaleX1":0.0,"ScaleY1":0.0,"ScaleX2":0.0,"ScaleY2":0.0,"AmplifierSerial":"",)"
      R"("PhysicalUnit":"","ElectricalUnit":"","HardwareChannel":4,"HardwareSubChannel":2,)"
      R"("AmplifierType":5003,"ConnectionBoard":0,"KFactor":0.0,"BridgeFactor":0.0,"MeasuredSignal":215,)"
      R"("AmplifierInput":0,"ParamWord1":0,"FixedBlockFlag":0,"ParamByte1":0,"SoftwareZero":0.0,)"
      R"("ParamByte2":0,"ParamWord2":0,"ParamText":""},"extras":null}})"
      "\n"))
      << output;
  EXPECT_EQ(run(file.path(), 3, true), 0);
  EXPECT_NE(output.find(R"("channel":{"number":3,)"), std::string::npos);
  EXPECT_EQ(run(file.path(), 4, true), 0);
  EXPECT_TRUE(output.ends_with("\"channel\":null}\n"));
}

TEST_F(InfoCommandTest, JsonOfAReducedRecordingNamesItsOwnIdAndFactor) {
  for (const i32 id : {6002, 6012}) {
    RecorderBuilder recording{.id = id, .row_count = 3, .reduce_factor = 1000};
    recording.entries = {{.mask = 3}};
    const TemporaryFile file(recording.build());
    EXPECT_EQ(run(file.path(), 0, true), 0);
    EXPECT_NE(output.find("\"id\":" + std::to_string(id) + ",\"channel_count\":" + (id == 6002 ? "2" : "1") +
                          ",\"reduce_factor\":1000,\"reduce_block\":0,"),
              std::string::npos)
        << output;
    EXPECT_NE(output.find(R"({"number":2,)"), std::string::npos);
  }
}

TEST_F(InfoCommandTest, JsonOfABlockFileHasEstimates) {
  BlockFileLayout block{.id = 5003};
  block.channels.resize(1);
  FileBuilder bytes = block.header();
  bytes.zeros(8 * 30);
  const TemporaryFile file(bytes);
  EXPECT_EQ(run(file.path(), 0, true), 0);
  EXPECT_NE(output.find(R"("points":-1,"points_estimate":)"), std::string::npos);
  EXPECT_EQ(output.find("null,"), std::string::npos);
}

TEST_F(InfoCommandTest, FailuresHoldStatusAndFileAlone) {
  const TemporaryFile file("xx");
  EXPECT_EQ(run(file.path(), 0, true), 1);
  EXPECT_EQ(output, "{\"status\":-1000,\"file\":\"" + file.path() + "\"}\n");
  EXPECT_EQ(errors, "Diese Datei enthält kein gültiges Format\n");
  EXPECT_EQ(run(file.path() + ".missing", 0, false), 1);
  EXPECT_EQ(output, "");
  EXPECT_EQ(errors, "Fehler bei Öffnen der Datei!\n");
  const TemporaryFile broken(FileBuilder().i16_field(5004).i16_field(-1));
  EXPECT_EQ(run(broken.path(), 0, true), 1);
  EXPECT_EQ(output, "{\"status\":9,\"file\":\"" + broken.path() + "\"}\n");
  EXPECT_EQ(errors, "Fehler beim Laden der Datei aufgetreten.\n");
}

TEST_F(InfoCommandTest, PathsThatAreNoUtf8DoNotStopTheOutput) {
  EXPECT_EQ(run("/missing\xFF", 0, true), 1);
  EXPECT_EQ(output, "{\"status\":-100,\"file\":\"/missing\uFFFD\"}\n");
}

TEST_F(InfoCommandTest, TableForPeople) {
  StandardFileLayout standard{.id = 5012, .reduce_block = 50};
  standard.channels = {{.name = "Temperatur\r\n",
                        .unit = "\xB0"
                                "C",
                        .channel_date = 44260.5,
                        .values = {1, 2, 3}},
                       {.name = "L\xE4nge", .unit = "mm", .values = {7}}};
  standard.channels[0].record.SampleInterval = 0.1;
  const TemporaryFile file(standard.build());
  EXPECT_EQ(run(file.path(), 1, false), 0);
  const std::string expected = "Datei:       " + file.path() +
                               "\n"
                               "Kennung:     5012\n"
                               "Kanäle:      2\n"
                               "Blockgröße:  50\n"
                               "Datum:       05.03.2021 12:00:00\n"
                               "\n"
                               "Kanal  Name          Einheit  Intervall [ms]  Werte\n"
                               "    1  Temperatur    °C                  0.1      3\n"
                               "    2  Länge         mm                    0      1\n"
                               "\n"
                               "Parameter von Kanal 1\n";
  EXPECT_EQ(output.substr(0, expected.size()), expected);
  EXPECT_NE(output.find("dt Meßwerterfassung         0.1 ms\n"), std::string::npos);
}

}  // namespace
}  // namespace trendaro
