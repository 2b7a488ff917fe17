#include <QContextMenuEvent>
#include <QMenu>
#include <QScrollBar>

#include "window/window_fixture.h"

namespace trendaro {
namespace {

ChannelRow signal_row(const std::string& name) {
  ChannelRow row;
  row.picture = "IMG_SIGNAL";
  row.name = name;
  row.mark = "1";
  return row;
}

class ChannelGridTest : public WindowTest {
 protected:
  ChannelGridTest() { open_window(); }

  QRgb pixel(int position, int column, QPoint offset) {
    const QImage picture = grid()->viewport()->grab().toImage();
    return picture.pixel(grid()->visualRect(grid()->model()->index(position, column - 1)).topLeft() + offset);
  }
  void right_click(int position, int column) {
    const QPoint place = cell(position, column);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, grid()->viewport()->mapToGlobal(place));
    QApplication::sendEvent(grid()->viewport(), &event);
  }
  bool enabled(const char* name) { return find<QAction>(name)->isEnabled(); }
};

TEST_F(ChannelGridTest, EmptyListShowsNoRow) {
  EXPECT_EQ(grid()->model()->rowCount(), 0);
  QTest::keyClick(grid(), Qt::Key_Space);
  QTest::keyClick(grid(), Qt::Key_Down);
  EXPECT_EQ(model.Grid.active_row, 0);
}

TEST_F(ChannelGridTest, ArrowsMoveTheActiveRowAndSpaceTogglesItsMark) {
  add_file("a.BIN", 3);
  click_cell(0, 3);
  grid()->setFocus();
  QTest::keyClick(grid(), Qt::Key_Down);
  QTest::keyClick(grid(), Qt::Key_Down);
  EXPECT_EQ(model.Grid.active_row, 3);
  QTest::keyClick(grid(), Qt::Key_Space);
  EXPECT_EQ(model.Grid.rows[3].mark, "2_1_1");
  QTest::keyClick(grid(), Qt::Key_Space);
  EXPECT_EQ(model.Grid.rows[3].mark, "2");
  QTest::keyClick(grid(), Qt::Key_Up);
  EXPECT_EQ(model.Grid.active_row, 2);
}

TEST_F(ChannelGridTest, ColourOfARowRunsOnToTheEdgeOfTheList) {
  add_file("a.BIN", 3);
  click_cell(1, 3);
  right_click(2, 3);
  find<QMenu>("mnuPOP1")->hide();
  const QImage blue = grid()->viewport()->grab().toImage();
  const int middle_of_blue = grid()->visualRect(grid()->model()->index(2, 2)).center().y();
  EXPECT_EQ(blue.pixel(blue.width() - 2, middle_of_blue), qRgb(0, 0, 255));
  click_cell(1, 3);
  const QImage both = grid()->viewport()->grab().toImage();
  const int middle_of_active = grid()->visualRect(grid()->model()->index(1, 2)).center().y();
  EXPECT_EQ(both.pixel(both.width() - 2, middle_of_blue), qRgb(0, 0, 255));
  EXPECT_EQ(both.pixel(both.width() - 2, middle_of_active), both.pixel(30, middle_of_active - 8));
  EXPECT_NE(both.pixel(both.width() - 2, middle_of_active), qRgb(255, 255, 255));
}

TEST_F(ChannelGridTest, ArrowsPassOverHiddenRows) {
  add_file("a.BIN", 1);
  add_file("b.BIN", 4);
  add_file("c.BIN", 1);
  click_cell(2, 1);
  click_cell(2, 3);
  QTest::keyClick(grid(), Qt::Key_Down);
  EXPECT_EQ(model.Grid.active_row, 8);
}

TEST_F(ChannelGridTest, ClickWhereAHiddenSignalStoodMarksNoneOfItsFile) {
  add_file("a.BIN", 1);
  add_file("b.BIN", 2);
  add_file("c.BIN", 1);
  const QPoint former_place = cell(3, 1);
  click_cell(2, 1);
  ASSERT_TRUE(model.Grid.rows[4].hidden);
  QTest::mouseClick(grid()->viewport(), Qt::LeftButton, Qt::NoModifier, former_place);
  EXPECT_EQ(model.Grid.rows[4].mark, "1");
  EXPECT_EQ(model.Grid.rows[5].mark, "2");
  EXPECT_EQ(model.NofPlots, 0);
}

TEST_F(ChannelGridTest, MarkedRowHasAnotherPictureThanAnUnmarkedOne) {
  add_file("a.BIN", 2);
  click_cell(1, 1);
  const QVariant marked = grid()->model()->index(1, 0).data(Qt::AccessibleTextRole);
  EXPECT_EQ(marked.toString(), QStringLiteral("dargestellt"));
  const QPoint inside(grid()->columnWidth(0) / 2 - 6, grid()->rowHeight(1) / 2 + 4);
  EXPECT_NE(pixel(1, 1, inside), pixel(2, 1, inside));
}

TEST_F(ChannelGridTest, NewFileStandsOnTopWhereTheListIsLong) {
  add_file("a.BIN", 100);
  add_file("b.BIN", 100);
  EXPECT_EQ(model.Grid.top_row, 102);
  EXPECT_EQ(grid()->rowAt(0), 101);
}

TEST_F(ChannelGridTest, ScrollingMovesTheTopRowOfTheRecords) {
  add_file("a.BIN", 100);
  grid()->verticalScrollBar()->setValue(7);
  EXPECT_EQ(model.Grid.top_row, 8);
  click_cell(9, 1);
  EXPECT_EQ(grid()->rowAt(0), 7) << "a mark leaves the list where it is";
}

TEST_F(ChannelGridTest, RightClickHighlightsTheNameAndEnablesWhatFits) {
  add_file("a.BIN", 2);
  right_click(1, 3);
  EXPECT_EQ(model.Grid.active_row, 2);
  EXPECT_EQ(model.SelectedRow, 2);
  EXPECT_TRUE(find<QMenu>("mnuPOP1")->isVisible());
  EXPECT_TRUE(enabled("mnuSetX"));
  EXPECT_FALSE(enabled("mnuPRemoveFile"));
  find<QMenu>("mnuPOP1")->close();
  EXPECT_EQ(pixel(1, 3, {1, 1}), qRgb(0, 0, 255));
  right_click(0, 3);
  EXPECT_TRUE(enabled("mnuPRemoveFile"));
  EXPECT_FALSE(enabled("mnuSetX"));
  find<QMenu>("mnuPOP1")->close();
  EXPECT_NE(pixel(1, 3, {1, 1}), qRgb(0, 0, 255));
}

TEST_F(ChannelGridTest, RightClickBesideTheRowsShowsNoMenu) {
  QContextMenuEvent event(QContextMenuEvent::Mouse, {20, 20},
                          grid()->viewport()->mapToGlobal(QPoint(20, 20)));
  QApplication::sendEvent(grid()->viewport(), &event);
  EXPECT_FALSE(find<QMenu>("mnuPOP1")->isVisible());
}

TEST_F(ChannelGridTest, TipOverTheCheckCellIsAsked) {
  add_file("a.BIN", 2);
  EXPECT_EQ(grid()->tip(2, 1), QStringLiteral("Markieren, um den Datensatz in der Graphik darzustellen"));
  EXPECT_TRUE(grid()->tip(2, 2).isEmpty());
  EXPECT_TRUE(grid()->tip(99, 1).isEmpty());
}

TEST_F(ChannelGridTest, NothingMovesWhileTheRedrawIsOff) {
  add_file("a.BIN", 2);
  {
    const PausedList paused(model.Grid);
    append_row(model.Grid, signal_row("neu"));
    window->mirror();
    EXPECT_EQ(grid()->model()->rowCount(), 3);
  }
  window->mirror();
  EXPECT_EQ(grid()->model()->rowCount(), 4);
}

TEST_F(ChannelGridTest, RowsThatHaveGoneUnderTheViewPaintAsNothing) {
  add_file("a.BIN", 5);
  erase_rows(model.Grid, 2, 5);
  const QImage picture = grid()->viewport()->grab().toImage();
  EXPECT_FALSE(picture.isNull());
  EXPECT_FALSE(grid()->model()->index(3, 2).data().isValid());
}

TEST_F(ChannelGridTest, HundredThousandRowsAreShownAndScrolled) {
  for (i32 row = 1; row <= 130000; ++row) append_row(model.Grid, signal_row("Kanal " + std::to_string(row)));
  window->mirror();
  EXPECT_EQ(grid()->model()->rowCount(), 130000);
  grid()->scrollToBottom();
  EXPECT_EQ(name_at(129999), "Kanal 130000");
  EXPECT_EQ(model.Grid.top_row, grid()->rowAt(0) + 1);
}

}  // namespace
}  // namespace trendaro
