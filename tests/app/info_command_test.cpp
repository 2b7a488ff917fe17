#include "app/info_command.h"

#include <cmath>
#include <limits>
#include <sstream>

#include <gtest/gtest.h>

#include "support/block_builder.h"
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
