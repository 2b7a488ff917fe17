#include "interact/annotation_tables.h"

#include <array>

#include <gtest/gtest.h>

#include "app/model.h"
#include "support/recording_shell.h"

namespace trendaro {
namespace {

using Kinds = std::vector<i32>;
using Reals = std::vector<f64>;
using Texts = std::vector<std::string>;

class AnnotationTablesTest : public testing::Test {
 protected:
  // The record is good until the next one comes.
  AnnotationRecord& add(u8 type, const std::string& text = "Text") {
    AnnotationRecord record;
    record.Type = type;
    record.X = {1, 2};
    record.Y = {3, 4};
    record.Text = text;
    record.Color = 0x112233;
    record.Symbol = 7;
    record.Layer = 2;
    record.LineStyle = 5;
    model.Annotations.push_back(record);
    ++model.AnnotationCount;
    return model.Annotations[model.AnnotationCount];
  }
  void rebuild() { RebuildAnnotations(model, model.PESG); }

  RecordingShell shell;
  Model model{shell};
  const GraphProperties& graph = model.PESG.pending;
};

TEST_F(AnnotationTablesTest, SymbolIsOnePoint) {
  add(0);
  rebuild();
  EXPECT_EQ(graph.GraphAnnotationType, (Kinds{7}));
  EXPECT_EQ(graph.GraphAnnotationX, (Reals{1}));
  EXPECT_EQ(graph.GraphAnnotationY, (Reals{3}));
  EXPECT_EQ(graph.GraphAnnotationText, (Texts{"Text"}));
  EXPECT_EQ(graph.GraphAnnotationColor, (Kinds{0x112233}));
  EXPECT_EQ(graph.GraphAnnotationAxis, (Kinds{1}));
  EXPECT_TRUE(graph.ShowAnnotations);
  EXPECT_EQ(graph.AnnotationTextSize, 80);
  EXPECT_EQ(graph.AxisAnnotationTextSize, 80);
  EXPECT_EQ(graph.LineAnnotationTextSize, 80);
}

TEST_F(AnnotationTablesTest, NoStyleTurnsALineOrShapeIntoAnotherKind) {
  const Kinds lines = {38, 39, 40, 41, 42, 43, 44, 38, 38, 38};
  const Kinds distances = {0, 1, 2, 3, 4, 5, 6, 0, 0, 7};
  for (i16 style = 0; style < 10; ++style) {
    const auto index = static_cast<std::size_t>(style);
    model.AnnotationCount = 0;
    model.Annotations.clear();
    for (const u8 type : std::array<u8, 4>{5, 6, 7, 8}) add(type).LineStyle = style;
    rebuild();
    EXPECT_EQ(graph.GraphAnnotationType, (Kinds{lines[index], 45, 46, 47, 48 + distances[index], 46, 47,
                                                56 + distances[index], 46, 47, 64 + distances[index]}));
  }
}

TEST_F(AnnotationTablesTest, AStyleThatIsNoneCountsAsNormal) {
  add(5).LineStyle = -3;
  add(6).LineStyle = 32767;
  rebuild();
  EXPECT_EQ(graph.GraphAnnotationType, (Kinds{38, 45, 46, 47, 48}));
}

TEST_F(AnnotationTablesTest, WholeLinesHaveTablesOfTheirOwn) {
  add(1);
  add(2);
  rebuild();
  EXPECT_EQ(graph.HorzLineAnnotation, (Reals{3}));
  EXPECT_EQ(graph.HorzLineAnnotationText, (Texts{"Text"}));
  EXPECT_EQ(graph.HorzLineAnnotationColor, (Kinds{0x112233}));
  EXPECT_EQ(graph.HorzLineAnnotationType, (Kinds{5}));
  EXPECT_EQ(graph.HorzLineAnnotationAxis, (Kinds{1}));
  EXPECT_EQ(graph.VertLineAnnotation, (Reals{1}));
  EXPECT_EQ(graph.VertLineAnnotationText, (Texts{"Text"}));
  EXPECT_EQ(graph.VertLineAnnotationColor, (Kinds{0x112233}));
  EXPECT_EQ(graph.VertLineAnnotationType, (Kinds{5}));
  EXPECT_TRUE(graph.GraphAnnotationType.empty());
}

TEST_F(AnnotationTablesTest, MarksAtTheAxes) {
  add(3);
  add(4);
  add(4, "zweite").Layer = 1;
  rebuild();
  EXPECT_EQ(graph.XAxisAnnotation, (Reals{1}));
  EXPECT_EQ(graph.XAxisAnnotationText, (Texts{"Text"}));
  EXPECT_EQ(graph.XAxisAnnotationColor, (Kinds{0x112233}));
  EXPECT_EQ(graph.layers[1].YAxisAnnotation, (Reals{3}));
  EXPECT_EQ(graph.layers[1].YAxisAnnotationText, (Texts{"Text"}));
  EXPECT_EQ(graph.layers[1].YAxisAnnotationColor, (Kinds{0x112233}));
  EXPECT_EQ(graph.layers[0].YAxisAnnotationText, (Texts{"zweite"}));
}

TEST_F(AnnotationTablesTest, LineAndShapesTakeSeveralPoints) {
  for (const u8 type : std::initializer_list<u8>{5, 6, 7, 8}) add(type);
  rebuild();
  EXPECT_EQ(graph.GraphAnnotationType, (Kinds{38 + 5, 45, 46, 47, 48 + 5, 46, 47, 56 + 5, 46, 47, 64 + 5}));
  EXPECT_EQ(graph.GraphAnnotationX, (Reals{1, 2, 1, 2, 2, 1, 2, 2, 1, 2, 2}));
  EXPECT_EQ(graph.GraphAnnotationText, (Texts{"", "Text", "", "", "Text", "", "", "Text", "", "", "Text"}));
  EXPECT_EQ(graph.GraphAnnotationColor, (Kinds{0, 0x112233, 0, 0, 0x112233, 0, 0, 0x112233, 0, 0, 0x112233}));
}

TEST_F(AnnotationTablesTest, HiddenLayerGivesANegativeAxis) {
  model.FirstZoomLayer = 2;
  add(0);
  add(1).Layer = 3;
  add(4);
  rebuild();
  EXPECT_EQ(graph.GraphAnnotationAxis, (Kinds{-1}));
  EXPECT_EQ(graph.HorzLineAnnotationAxis, (Kinds{0}));
  for (const LayerProperties& layer : graph.layers) EXPECT_TRUE(layer.YAxisAnnotation.empty());
}

TEST_F(AnnotationTablesTest, EverythingIsWrittenAnew) {
  for (u8 type = 0; type <= 8; ++type) add(type);
  rebuild();
  const Kinds before = graph.GraphAnnotationType;
  rebuild();
  EXPECT_EQ(graph.GraphAnnotationType, before);
  model.Annotations.clear();
  model.AnnotationCount = 0;
  rebuild();
  EXPECT_TRUE(graph.GraphAnnotationType.empty());
  EXPECT_TRUE(graph.GraphAnnotationText.empty());
  EXPECT_TRUE(graph.HorzLineAnnotation.empty());
  EXPECT_TRUE(graph.VertLineAnnotationText.empty());
  EXPECT_TRUE(graph.XAxisAnnotation.empty());
  EXPECT_TRUE(graph.layers[1].YAxisAnnotation.empty());
}

TEST_F(AnnotationTablesTest, WithoutAnnotationsNothingElseIsTouched) {
  rebuild();
  EXPECT_FALSE(graph.ShowAnnotations);
  EXPECT_EQ(graph.AnnotationTextSize, 100);
}

TEST_F(AnnotationTablesTest, LongestTextOfASideWidensItsMargin) {
  add(1, "|Rkurz");
  add(1, "|Rviel länger");
  add(1, "|Llinks");
  add(2, "|Toben");
  add(2, "|Bunten");
  add(1, "nirgendwo, aber lang");
  rebuild();
  EXPECT_EQ(graph.RightMargin, "|Rviel länger");
  EXPECT_EQ(graph.LeftMargin, "|Llinks");
  EXPECT_EQ(graph.TopMargin, "|Toben");
  EXPECT_EQ(graph.BottomMargin, "|Bunten");
  model.Annotations[2].Text = "|Rü";
  rebuild();
  EXPECT_EQ(graph.RightMargin, "|Rviel länger");
}

TEST_F(AnnotationTablesTest, UnknownTypeAndRecordsBehindTheCountAreLeftOut) {
  add(9);
  add(0);
  model.AnnotationCount = 1;
  rebuild();
  EXPECT_TRUE(graph.GraphAnnotationType.empty());
}

TEST_F(AnnotationTablesTest, ErasedRecordLetsTheLaterOnesMoveUp) {
  add(0, "a");
  add(0, "b");
  add(0, "c");
  erase_annotation(model, 2);
  erase_annotation(model, 0);
  erase_annotation(model, 3);
  ASSERT_EQ(model.AnnotationCount, 2);
  EXPECT_EQ(model.Annotations[1].Text, "a");
  EXPECT_EQ(model.Annotations[2].Text, "c");
}

}  // namespace
}  // namespace trendaro
