#include <QHelpEvent>
#include <QToolTip>

#include "window/window_fixture.h"

namespace trendaro {
namespace {

// The list under the hands of a user who types and points.
class ChannelKeysTest : public WindowTest {
 protected:
  ChannelKeysTest() {
    open_window();
    StandardFile file;
    for (const char* name : {"Kraft", "Weg", "Kraft 2", "Druck", "Kurbel"})
      file.channels.push_back({.name = name, .samples = {1, 2}});
    path = folder.file("Kurven.BIN");
    write_file(path, file.build().bytes());
    window->run([&] { open_file(model, path); });
    grid()->setFocus();
  }

  // Letters beyond ASCII have no key of their own here, only their text.
  void type(const QString& text) {
    for (const QChar letter : text) {
      const int key = letter.unicode() < 0x80 ? int{letter.toUpper().unicode()} : int{Qt::Key_unknown};
      QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, letter);
      QApplication::sendEvent(grid(), &event);
    }
  }
  static void pause() { QTest::qWait(QApplication::keyboardInputInterval() + 50); }
  std::string active_name() const { return model.Grid.rows[model.Grid.active_row].name; }
  // The text that the pointer brings up when it rests on a cell.
  QString tip_over(int position, int column) {
    const QPoint place = cell(position, column);
    QHelpEvent event(QEvent::ToolTip, place, grid()->viewport()->mapToGlobal(place));
    QApplication::sendEvent(grid()->viewport(), &event);
    return QToolTip::text();
  }

  std::string path;
};

TEST_F(ChannelKeysTest, LettersJumpToTheNextNameThatBeginsWithThem) {
  type(QStringLiteral("d"));
  EXPECT_EQ(active_name(), "Druck");
  pause();
  type(QStringLiteral("k"));
  EXPECT_EQ(active_name(), "Kurbel");
  pause();
  type(QStringLiteral("k"));
  EXPECT_EQ(active_name(), "Kraft") << "goes on at the top, past the name of the file";
  pause();
  type(QStringLiteral("ku"));
  EXPECT_EQ(active_name(), "Kurbel");
  pause();
  type(QStringLiteral("xyz"));
  EXPECT_EQ(active_name(), "Kurbel");
}

TEST_F(ChannelKeysTest, TheSameLetterGoesFromNameToName) {
  type(QStringLiteral("kkk"));
  EXPECT_EQ(active_name(), "Kurbel");
  EXPECT_EQ(model.NofPlots, 0);
}

TEST_F(ChannelKeysTest, BlankBelongsToTheNameThatIsBeingTyped) {
  type(QStringLiteral("kraft 2"));
  EXPECT_EQ(active_name(), "Kraft 2");
  EXPECT_EQ(model.NofPlots, 0);
  pause();
  type(QStringLiteral(" "));
  EXPECT_EQ(model.Grid.rows[4].mark, "3_1_1");
}

TEST_F(ChannelKeysTest, JumpScrollsTheNameIntoView) {
  add_file("b.BIN", 200);
  StandardFile file;
  file.channels.push_back({.name = "Z\xFCnddruck", .samples = {1}});
  write_file(folder.file("c.BIN"), file.build().bytes());
  window->run([&] { open_file(model, folder.file("c.BIN")); });
  window->run([&] { model.Grid.top_row = 1; });
  ASSERT_EQ(grid()->rowAt(0), 0);
  type(QStringLiteral("zü"));
  EXPECT_EQ(active_name(), "Zünddruck");
  const int position = grid()->currentIndex().row();
  EXPECT_TRUE(grid()->viewport()->rect().contains(cell(position, 3)));
  EXPECT_EQ(grid()->rowAt(0) + 1, model.Grid.top_row);
}

TEST_F(ChannelKeysTest, ArrowsToTheSidesLeaveTheListAlone) {
  click_cell(1, 3);
  QTest::keyClick(grid(), Qt::Key_Right);
  QTest::keyClick(grid(), Qt::Key_Left);
  EXPECT_EQ(model.Grid.active_row, 2);
  EXPECT_EQ(model.NofPlots, 0);
}

TEST_F(ChannelKeysTest, TipReadsTheHeaderWhenItIsAskedFor) {
  model.FileChannelNames.clear();
  grid()->viewport()->grab();
  EXPECT_TRUE(model.FileChannelNames.empty()) << "painting reads no file";
  const QString tip = tip_over(1, 3);
  EXPECT_TRUE(tip.contains(QStringLiteral("Name: Kraft\nWerte: 2\n"))) << tip.toStdString();
  EXPECT_TRUE(tip_over(0, 3).contains(QStringLiteral("Filename: ") + QString::fromStdString(path)));
  EXPECT_TRUE(tip_over(1, 1).contains(QStringLiteral("Markieren, um den Datensatz")));
  tip_over(1, 2);
  pause();  // a tip goes a moment later
  EXPECT_TRUE(QToolTip::text().isEmpty());
}

}  // namespace
}  // namespace trendaro
