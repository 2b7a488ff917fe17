// Numbers, names and types as the users of a graph know them.

#include <map>
#include <string>

#include <gtest/gtest.h>

#include "graph/graph_properties.h"
#include "graph/graph_surface.h"

namespace trendaro {
namespace {

struct Agreed {
  i32 number;
  const char* name;
  const char* type;
  bool is_list;
};

constexpr bool kOne = false;
constexpr bool kList = true;

constexpr Agreed kAgreed[] = {
    {0xDB, "PlottingMethod", "i16", kOne},
    {0x190, "SetupDone", "bool", kOne},
    {0x159, "SetupMode", "i16", kOne},
    {0x0B, "SubsetCount", "i32", kOne},
    {0x0C, "PointCount", "i32", kOne},
    {0x83, "SubsetLabels", "std::string", kList},
    {0x84, "SubsetColors", "i32", kList},
    {0x85, "SubsetPointTypes", "i16", kList},
    {0x86, "SubsetLineTypes", "i16", kList},
    {0x1D6, "SubsetPlotMethods", "i32", kList},
    {0xB4, "SubsetsToLegend", "i32", kList},
    {0x3D, "SpecialSubsetCount", "i16", kOne},
    {0xBE, "MultiAxesSubsets", "i16", kList},
    {0xC3, "WorkingAxis", "i16", kOne},
    {0x5D, "NullDataValue", "f64", kOne},
    {0xE2, "NullDataValueX", "f64", kOne},
    {0xE3, "UsingXDataII", "bool", kOne},
    {0xE4, "DateTimeMode", "i16", kOne},
    {0x100, "AutoScaleData", "bool", kOne},
    {0x12A, "AutoPadPercent", "i16", kOne},
    {0x857, "XData", "FlatArray", kList},
    {0x85C, "YData", "FlatArray", kList},
    {0xBC5, "XDataII", "SampleArray", kList},
    {0x20, "XAxisLabel", "std::string", kOne},
    {0x21, "YAxisLabel", "std::string", kOne},
    {0x44, "RYAxisLabel", "std::string", kOne},
    {0x28, "XAxisScaleControl", "i32", kOne},
    {0x29, "YAxisScaleControl", "i32", kOne},
    {0x46, "RYAxisScaleControl", "i32", kOne},
    {0x3A, "ManualScaleControlX", "i16", kOne},
    {0x37, "ManualScaleControlY", "i16", kOne},
    {0x47, "ManualScaleControlRY", "i16", kOne},
    {0x3B, "ManualMinX", "f64", kOne},
    {0x38, "ManualMinY", "f64", kOne},
    {0x48, "ManualMinRY", "f64", kOne},
    {0x3C, "ManualMaxX", "f64", kOne},
    {0x39, "ManualMaxY", "f64", kOne},
    {0x49, "ManualMaxRY", "f64", kOne},
    {0x4F, "ManualXAxisTicknLine", "bool", kOne},
    {0x50, "ManualYAxisTicknLine", "bool", kOne},
    {0x51, "ManualRYAxisTicknLine", "bool", kOne},
    {0x57, "ManualXAxisTick", "f64", kOne},
    {0x59, "ManualYAxisTick", "f64", kOne},
    {0x5B, "ManualRYAxisTick", "f64", kOne},
    {0x58, "ManualXAxisLine", "f64", kOne},
    {0x5A, "ManualYAxisLine", "f64", kOne},
    {0x5C, "ManualRYAxisLine", "f64", kOne},
    {0xD7, "XAxisColor", "i32", kOne},
    {0xD5, "YAxisColor", "i32", kOne},
    {0xD6, "RYAxisColor", "i32", kOne},
    {0x12F, "AxisFormatX", "std::string", kOne},
    {0x119, "AxisFormatY", "std::string", kOne},
    {0x11A, "AxisFormatRY", "std::string", kOne},
    {0xF5, "InvertedXAxis", "bool", kOne},
    {0xD3, "InvertedYAxis", "bool", kOne},
    {0xD4, "InvertedRYAxis", "bool", kOne},
    {0x62, "AllowZooming", "i16", kOne},
    {0x63, "ZoomActive", "bool", kOne},
    {0x64, "ZoomMinX", "f64", kOne},
    {0x65, "ZoomMaxX", "f64", kOne},
    {0x66, "ZoomMinY", "f64", kOne},
    {0x67, "ZoomMaxY", "f64", kOne},
    {0x11B, "ZoomMinRY", "f64", kOne},
    {0x11C, "ZoomMaxRY", "f64", kOne},
    {0x89, "CursorMode", "i16", kOne},
    {0x8A, "CursorPoint", "i32", kOne},
    {0x8B, "CursorSubset", "i32", kOne},
    {0x8C, "CursorStyle1", "i16", kOne},
    {0x8D, "CursorStyle2", "i16", kOne},
    {0x8E, "CursorStyle3", "i16", kOne},
    {0xDD, "FirstVisibleAxis", "i16", kOne},
    {0x09, "MainTitle", "std::string", kOne},
    {0x0A, "SubTitle", "std::string", kOne},
    {0xC9, "MultiSubTitles", "std::string", kList},
    {0xCA, "MultiBottomTitles", "std::string", kList},
    {0x06, "DeskColor", "i32", kOne},
    {0x07, "TextColor", "i32", kOne},
    {0x05, "GraphBackColor", "i32", kOne},
    {0x04, "GraphForeColor", "i32", kOne},
    {0x08, "ShadowColor", "i32", kOne},
    {0x158, "MinorGridColor", "i32", kOne},
    {0x13, "FontSizeClass", "i32", kOne},
    {0x14, "MainTitleFont", "std::string", kOne},
    {0x15, "MainTitleBold", "bool", kOne},
    {0x16, "MainTitleItalic", "bool", kOne},
    {0x17, "MainTitleUnderline", "bool", kOne},
    {0x18, "SubTitleFont", "std::string", kOne},
    {0x19, "SubTitleBold", "bool", kOne},
    {0x1A, "SubTitleItalic", "bool", kOne},
    {0x1B, "SubTitleUnderline", "bool", kOne},
    {0x1C, "LabelFont", "std::string", kOne},
    {0x1D, "LabelBold", "bool", kOne},
    {0x1E, "LabelItalic", "bool", kOne},
    {0x1F, "LabelUnderline", "bool", kOne},
    {0xCC, "FontScale1", "f32", kOne},
    {0xCD, "FontScale2", "f32", kOne},
    {0xD8, "FontScale3", "f32", kOne},
    {0x2B, "GridLineControl", "i32", kOne},
    {0xD2, "GridStyle", "i32", kOne},
    {0x157, "TickSetting", "i32", kOne},
    {0xF8, "TicksOn", "bool", kOne},
    {0xD9, "AxisTicksOn", "bool", kOne},
    {0x53, "DataPointSize", "i16", kOne},
    {0x12B, "LegendLocation", "i16", kOne},
    {0x15C, "LegendStyle", "i16", kOne},
    {0x118, "GraphExtra1", "i16", kOne},
    {0xDF, "GraphExtra2", "i16", kOne},
    {0x68, "ShowRYAxis", "bool", kOne},
    {0x2A, "LayerPlacement", "i16", kOne},
    {0xC6, "LayerProportion", "i16", kOne},
    {0xC20, "GraphStyleValue", "i32", kOne},
    {0x03, "Switch03", "bool", kOne},
    {0x108, "Switch108", "bool", kOne},
    {0x10F, "Switch10F", "bool", kOne},
    {0x116, "Switch116", "bool", kOne},
    {0x12, "Switch12", "bool", kOne},
    {0x90, "Switch90", "bool", kOne},
    {0xAA, "SwitchAA", "bool", kOne},
    {0xAB, "SwitchAB", "bool", kOne},
    {0xAC, "SwitchAC", "bool", kOne},
    {0xAD, "SwitchAD", "bool", kOne},
    {0x40, "Switch40", "bool", kOne},
    {0x120, "Switch120", "bool", kOne},
    {0x3E, "Switch3E", "bool", kOne},
    {0x10C, "Switch10C", "bool", kOne},
    {0x10D, "Switch10D", "bool", kOne},
    {0x10E, "Switch10E", "bool", kOne},
    {0x0E, "Switch0E", "bool", kOne},
    {0x11, "Switch11", "bool", kOne},
    {0x41, "Switch41", "bool", kOne},
    {0x35, "Switch35", "i16", kOne},
    {0x36, "Switch36", "i16", kOne},
    {0x45, "Switch45", "i16", kOne},
};

struct Property {
  i32 number;
  std::string type;
  bool is_list;

  friend bool operator==(const Property&, const Property&) = default;
};

std::map<std::string, Property> properties() {
  std::map<std::string, Property> all;
#define GRAPH_PROPERTY(number, type, name, initial) all[#name] = {number, #type, kOne};
#define LAYER_PROPERTY(number, type, name, initial) all[#name] = {number, #type, kOne};
#define GRAPH_LIST(number, type, name) all[#name] = {number, #type, kList};
#define GRAPH_SAMPLES(number, type, name) all[#name] = {number, #type, kList};
#include "graph/graph_properties.def"
  return all;
}

TEST(PropertyNumbersTest, EveryAgreedPropertyHasItsNumberAndType) {
  const auto all = properties();
  for (const Agreed& agreed : kAgreed) {
    const auto found = all.find(agreed.name);
    ASSERT_NE(found, all.end()) << agreed.name;
    EXPECT_EQ(found->second.number, agreed.number) << agreed.name;
    EXPECT_EQ(found->second.type, agreed.type) << agreed.name;
    EXPECT_EQ(found->second.is_list, agreed.is_list) << agreed.name;
  }
}

// Numbers of our own begin above those that others may know.
TEST(PropertyNumbersTest, NoOtherPropertyTakesANumberFromTheAgreedRange) {
  std::size_t count = 0;
  for (const auto& [name, property] : properties()) count += property.number < 0x1000 ? 1 : 0;
  EXPECT_EQ(count, std::size(kAgreed));
}

TEST(PropertyNumbersTest, SamplesAndTheStyleHaveTheirNumbersInTheFlatFunctions) {
  GraphSurface graph(1);
  EXPECT_EQ(PEvset(graph, 2135, FlatArray{1}), kPropertyDone);
  EXPECT_EQ(PEvset(graph, 2140, FlatArray{2}), kPropertyDone);
  EXPECT_EQ(PEvset(graph, 3013, SampleArray{3}), kPropertyDone);
  EXPECT_EQ((*graph.pending.XData)[0], 1);
  EXPECT_EQ((*graph.pending.YData)[0], 2);
  EXPECT_EQ((*graph.pending.XDataII)[0], 3);
  EXPECT_EQ(PEnset(graph, 3104, 3), kPropertyDone);
  EXPECT_EQ(graph.pending.GraphStyleValue, 3);
}

TEST(PropertyNumbersTest, ActionsHaveTheirCodes) {
  GraphSurface graph(1);
  graph.pending.MainTitle = "a";
  PEactions(graph, 0);
  EXPECT_EQ(graph.shown().MainTitle, "a");
  graph.pending.MainTitle = "b";
  PEactions(graph, 2);
  EXPECT_EQ(graph.shown().MainTitle, "b");
  PEactions(graph, 20);
  EXPECT_EQ(graph.shown().MainTitle, "");
}

}  // namespace
}  // namespace trendaro
