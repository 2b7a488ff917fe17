// What the settings of letters, symbols, lines and grids stand for, as data of the painters.

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "graph/graph_surface.h"
#include "graph/painters/graph_colors.h"
#include "graph/painters/graph_fonts.h"
#include "graph/painters/grid_painter.h"
#include "graph/painters/line_style.h"
#include "graph/painters/symbol_painter.h"
#include "graph/painters/table_painter.h"
#include "graph/shape_sizes.h"

namespace trendaro {
namespace {

int pixels(const GraphProperties& shown, TextRole role) {
  return GraphFonts(shown).font(role).pixelSize();
}

TEST(GraphFontsTest, ClassZeroHasTheLargestLettersAndTwoTheSmallest) {
  GraphProperties shown;
  for (const TextRole role : {TextRole::MainTitle, TextRole::SubTitle, TextRole::Axis, TextRole::Legend}) {
    std::vector<f64> heights;
    for (const i32 size_class : {0, 1, 2}) {
      shown.FontSizeClass = size_class;
      heights.push_back(GraphFonts(shown).height(role));
    }
    EXPECT_GT(heights[0], heights[1]);
    EXPECT_GT(heights[1], heights[2]);
  }
}

TEST(GraphFontsTest, EachFactorHasItsTexts) {
  const GraphProperties plain;
  const auto grown = [&](f32 GraphProperties::*factor) {
    GraphProperties shown;
    shown.*factor = 2;
    std::set<TextRole> roles;
    for (const TextRole role : {TextRole::MainTitle, TextRole::SubTitle, TextRole::Axis, TextRole::Legend}) {
      const int size = pixels(shown, role);
      if (size == pixels(plain, role)) continue;
      roles.insert(role);
      EXPECT_NEAR(size, 2 * pixels(plain, role), 1);
    }
    return roles;
  };
  EXPECT_EQ(grown(&GraphProperties::FontScale1), (std::set{TextRole::MainTitle, TextRole::SubTitle}));
  EXPECT_EQ(grown(&GraphProperties::FontScale2), std::set{TextRole::Axis});
  EXPECT_EQ(grown(&GraphProperties::FontScale3), std::set{TextRole::Legend});
}

struct FontFields {
  std::string GraphProperties::*family;
  bool GraphProperties::*bold;
  bool GraphProperties::*italic;
  bool GraphProperties::*underline;
};

TEST(GraphFontsTest, TitleSubtitleAndLabelsHaveTheirFonts) {
  const std::pair<FontFields, std::vector<TextRole>> fonts[] = {
      {{&GraphProperties::MainTitleFont, &GraphProperties::MainTitleBold, &GraphProperties::MainTitleItalic,
        &GraphProperties::MainTitleUnderline},
       {TextRole::MainTitle}},
      {{&GraphProperties::SubTitleFont, &GraphProperties::SubTitleBold, &GraphProperties::SubTitleItalic,
        &GraphProperties::SubTitleUnderline},
       {TextRole::SubTitle}},
      {{&GraphProperties::LabelFont, &GraphProperties::LabelBold, &GraphProperties::LabelItalic,
        &GraphProperties::LabelUnderline},
       {TextRole::Axis, TextRole::Legend}}};
  const auto describe = [](const GraphProperties& shown, TextRole role) {
    const QFont font = GraphFonts(shown).font(role);
    return font.family().toStdString() + (font.bold() ? " bold" : "") + (font.italic() ? " italic" : "") +
           (font.underline() ? " underline" : "");
  };
  GraphProperties plain;
  plain.MainTitleBold = false;
  for (const auto& [fields, roles] : fonts) {
    GraphProperties shown = plain;
    shown.*fields.family = "DejaVu Serif";
    for (const TextRole role : {TextRole::MainTitle, TextRole::SubTitle, TextRole::Axis, TextRole::Legend}) {
      const bool own = std::ranges::find(roles, role) != roles.end();
      EXPECT_EQ(describe(shown, role), own ? "DejaVu Serif" : "DejaVu Sans");
      for (const auto& [flag, name] : {std::pair(fields.bold, " bold"), std::pair(fields.italic, " italic"),
                                       std::pair(fields.underline, " underline")}) {
        GraphProperties flagged = plain;
        flagged.*flag = true;
        EXPECT_EQ(describe(flagged, role), own ? std::string("DejaVu Sans") + name : "DejaVu Sans");
      }
    }
  }
}

TEST(SymbolTest, SizesRiseFromTinyToLarge) {
  EXPECT_LT(symbol_size(3), symbol_size(0));
  EXPECT_LT(symbol_size(0), symbol_size(1));
  EXPECT_LT(symbol_size(1), symbol_size(2));
}

// The shape of a symbol of 20 pixels: which places it covers. Lines are taken half a pixel wide.
std::string places_of(i32 point_type) {
  const Symbol symbol = make_symbol(point_type, 20);
  QPainterPathStroker stroker{QPen(Qt::black, 0.5)};
  const QPainterPath path =
      point_type <= 1 || point_type == 72 ? stroker.createStroke(symbol.path) : symbol.path;
  const std::pair<QPointF, char> places[] = {{{8, 0}, 'e'},      {{0, -8}, 'n'}, {{0, 8}, 's'},
                                             {{7.5, -7.5}, '/'}, {{6, -6}, 'o'}, {{4, -4}, 'i'},
                                             {{0, -4}, 'c'}};
  std::string covered;
  for (const auto& [place, name] : places)
    if (path.contains(place)) covered += name;
  return covered;
}

TEST(SymbolTest, EveryPointTypeHasItsShape) {
  const std::pair<i32, const char*> shapes[] = {{0, "ensc"},     // plus
                                                {1, "/oi"},      // x
                                                {2, "ensoic"},   // circle
                                                {4, "ens/oic"},  // square
                                                {6, "ensic"},    // diamond
                                                {8, "nic"},      // triangle, point up
                                                {10, "soic"},    // point down
                                                {72, "e"},       // dash
                                                {73, "c"}};      // dot
  for (const auto& [type, places] : shapes) {
    EXPECT_EQ(places_of(type), places) << type;
    if (type < 2 || type > 10) continue;
    EXPECT_EQ(make_symbol(type + 1, 20).path, make_symbol(type, 20).path) << type;
  }
}

TEST(SymbolTest, OddNumbersAndTheDotAreFilled) {
  for (const i32 type : {3, 5, 7, 9, 11, 73}) EXPECT_TRUE(make_symbol(type, 8).filled) << type;
  for (const i32 type : {0, 1, 2, 4, 6, 8, 10, 72}) EXPECT_FALSE(make_symbol(type, 8).filled) << type;
}

TEST(LineStyleTest, WidthsRiseFromThinToExtraBold) {
  const auto width = [](i32 type) { return line_pen(type, Qt::black).widthF(); };
  for (const i32 thin : {1, 2, 3, 4, 7, 99}) EXPECT_EQ(width(thin), width(0)) << thin;
  const i32 rising[] = {0, 9, 5, 10, 6, 11};
  for (std::size_t i = 1; i < std::size(rising); ++i) EXPECT_LT(width(rising[i - 1]), width(rising[i]));
}

// "-" for a dash, "." for a dot, which is at most a quarter of a dash.
std::string pieces_of(i32 line_type) {
  const std::vector<f64> pattern = dash_pattern(line_type);
  std::string pieces;
  for (std::size_t i = 0; i < pattern.size(); i += 2)
    pieces += pattern[i] <= dash_pattern(1)[0] / 4 ? '.' : '-';
  return pieces;
}

TEST(LineStyleTest, FivePatternsDiffer) {
  EXPECT_EQ(pieces_of(1), "-");
  EXPECT_EQ(pieces_of(2), ".");
  EXPECT_EQ(pieces_of(3), "-.");
  EXPECT_EQ(pieces_of(4), "-..");
  for (const i32 solid : {0, 5, 6, 9, 10, 11, 99}) EXPECT_TRUE(dash_pattern(solid).empty()) << solid;
  for (const i32 broken : {1, 2, 3, 4}) EXPECT_EQ(dash_pattern(broken).size() % 2, 0U) << broken;
}

struct Dashes {
  f64 drawn = 0, left = 0;  // in widths of the pen

  friend bool operator==(const Dashes&, const Dashes&) = default;
};

Dashes dashes_of(const GridPen& grid) {
  const QList<qreal> pattern = grid.pen.style() == Qt::SolidLine ? QList<qreal>{} : grid.pen.dashPattern();
  return pattern.empty() ? Dashes{} : Dashes{pattern[0], pattern[1]};
}

TEST(GridPenTest, EveryStyleHasItsDashes) {
  GraphProperties shown;
  const auto major = [&](i32 style) {
    shown.GridStyle = style;
    return major_grid_pen(shown);
  };
  const auto minor = [&](i32 style) {
    shown.TickSetting = style;
    return minor_grid_pen(shown);
  };
  EXPECT_EQ(dashes_of(major(kGridSolid)), Dashes());
  EXPECT_EQ(dashes_of(major(kGridBold)), Dashes());
  EXPECT_EQ(dashes_of(minor(kMinorSolid)), Dashes());
  EXPECT_EQ(major(kGridBold).width, 2 * major(kGridSolid).width);
  for (const auto& pen : {major(kGridDotted), minor(kGridDotted)}) EXPECT_EQ(dashes_of(pen), (Dashes{1, 3}));
  for (const auto& pen : {major(kGridDashed), minor(kGridDashed)}) EXPECT_EQ(dashes_of(pen), (Dashes{5, 4}));
  for (const auto& pen : {major(kGridPixel), minor(kGridPixel)}) EXPECT_EQ(dashes_of(pen), (Dashes{1, 1}));
}

TEST(GridPenTest, MinorLinesHaveTheirOwnColour) {
  GraphProperties shown;
  shown.TickSetting = kMinorSolid;
  shown.MinorGridColor = 0x0000FF;
  const QColor minor = minor_grid_pen(shown).pen.color();
  EXPECT_GT(minor.red(), minor.blue());
  const QColor major = major_grid_pen(shown).pen.color();
  EXPECT_EQ(major.red(), major.blue());
}

class GridLinesTest : public testing::Test {
 protected:
  GridLinesTest() {
    graph.pending.SubsetCount = 1;
    graph.pending.PointCount = 2;
    PEvset(graph, kXData, FlatArray{0, 10});
    PEvset(graph, kYData, FlatArray{0, 10});
  }

  // Which of the lines beside the middle of the area are there: "|" upright, "-" level.
  std::string lines(i32 control) {
    graph.pending.GridLineControl = control;
    PEactions(graph, kTakeOverAndRedraw);
    const GraphLayout layout = graph_layout(graph.shown(), 600, 400, GraphFonts(graph.shown()));
    QImage image(600, 400, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    paint_grid(painter, graph.shown(), layout);
    painter.end();
    const AxisLayout& upright = layout.x_axis;
    const AxisLayout& level = layout.layers[0].left;
    const f64 x = upright.major[upright.major.size() / 2];
    const f64 y = level.major[level.major.size() / 2];
    std::string found;
    if (drawn_near(image, x, y + 7)) found += '|';
    if (drawn_near(image, x + 7, y)) found += '-';
    return found;
  }

  GraphSurface graph{1};

 private:
  static bool drawn_near(const QImage& image, f64 x, f64 y) {
    for (int dy = -1; dy <= 1; ++dy)
      for (int dx = -1; dx <= 1; ++dx)
        if (image.pixelColor(static_cast<int>(x) + dx, static_cast<int>(y) + dy) != Qt::white) return true;
    return false;
  }
};

TEST_F(GridLinesTest, ControlChoosesTheirDirection) {
  EXPECT_EQ(lines(kGridBoth), "|-");
  EXPECT_EQ(lines(kGridOfYAxes), "-");
  EXPECT_EQ(lines(kGridOfXAxis), "|");
  EXPECT_EQ(lines(kGridNone), "");
}

TEST(GraphColorsTest, TextsInColoursOfCurvesGetAShadeThatCanBeRead) {
  const QColor white(Qt::white), black(Qt::black);
  EXPECT_EQ(readable_on(QColor(180, 20, 30), white), QColor(180, 20, 30));
  EXPECT_EQ(readable_on(QColor(255, 255, 0), black), QColor(255, 255, 0));
  // Yellow of 140, as of any number n, has nearly the brightness of grey n: white is 3 times as far as 148.
  const QColor dark_yellow = readable_on(QColor(255, 255, 0), white);
  EXPECT_EQ(dark_yellow.red(), dark_yellow.green());
  EXPECT_EQ(dark_yellow.blue(), 0);
  EXPECT_GT(dark_yellow.red(), 130);
  EXPECT_LT(dark_yellow.red(), 156);
  const QColor pale_blue = readable_on(QColor(0, 0, 90), black);
  EXPECT_GT(pale_blue.red(), 0);
  EXPECT_EQ(readable_on(white, white).red(), readable_on(white, white).blue());
  EXPECT_LT(readable_on(white, white).red(), 150);
}

TEST(GraphColorsTest, AColourAndItsNumber) {
  EXPECT_EQ(color_number(QColor(0x12, 0x34, 0x56)), 0x563412);
  EXPECT_EQ(graph_color(0x563412), QColor(0x12, 0x34, 0x56));
}

TEST(TablePainterTest, ACellInAPaleColourIsPaintedDarkerOnWhite) {
  const GraphProperties shown;
  PlacedTable table;
  table.box = {0, 0, 120, 30};
  table.background = 0xFFFFFF;
  table.cells.push_back({"8888", {5, 5, 100, 20}, TextRole::Table, TextAlignment::Left, false, 0x00FFFF});
  QImage image(120, 30, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  paint_tables(painter, {table}, GraphFonts(shown));
  int darkest = 255;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) darkest = std::min(darkest, image.pixelColor(x, y).green());
  EXPECT_LT(darkest, 190);  // 255 in yellow itself
}

}  // namespace
}  // namespace trendaro
