#include <QComboBox>
#include <QContextMenuEvent>
#include <QMenu>
#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "app/commands.h"
#include "window/window_fixture.h"

namespace trendaro {
namespace {

using Entries = std::vector<std::string>;

// The pop-up menu of the list, opened and pressed as a user does.
class ChannelMenuTest : public WindowTest {
 protected:
  ~ChannelMenuTest() override {
    if (window != nullptr) menu()->close();
  }

  // Heading, a group of two live channels, then a file of two signals: positions 0 to 6.
  void open_live_window() {
    model.IsRealTime = true;
    model.IOChannelCount = 2;
    open_window();
    add_file("a.BIN", 2);
  }

  QMenu* menu() { return find<QMenu>("mnuPOP1"); }
  void open_menu(int position, int column = 3) {
    menu()->close();
    const QPoint place = cell(position, column);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, grid()->viewport()->mapToGlobal(place));
    QApplication::sendEvent(grid()->viewport(), &event);
  }
  void press(const char* entry) {
    auto* action = find<QAction>(entry);
    QTest::mouseClick(menu(), Qt::LeftButton, Qt::NoModifier, menu()->actionGeometry(action).center());
  }
  // The entries that the open menu offers, in its order.
  Entries offered() {
    Entries names;
    if (!menu()->isVisible()) return names;
    for (const QAction* action : menu()->actions())
      if (action->isEnabled()) names.push_back(action->objectName().toStdString());
    return names;
  }
  Entries offered_at(int position) {
    open_menu(position);
    return offered();
  }
};

// `entries` without those whose work is not built: they stay disabled.
Entries built(Entries entries) {
  std::erase_if(entries, [](const std::string& entry) {
    return std::ranges::none_of(commands(), [&](const Command& command) {
      return command.name != nullptr && entry == command.name && command.run != nullptr;
    });
  });
  return entries;
}

TEST_F(ChannelMenuTest, EachKindOfRowOffersWhatFits) {
  open_live_window();
  EXPECT_EQ(offered_at(0), (Entries{"mnuShowChanInfo"})) << "heading";
  EXPECT_EQ(offered_at(1), (Entries{"mnuShowChanInfo"})) << "group";
  EXPECT_EQ(offered_at(2), (Entries{"mnuSetX", "mnuShowChanInfo"})) << "live channel";
  EXPECT_EQ(offered_at(4), (Entries{"mnuPRemoveFile"})) << "file";
  EXPECT_EQ(offered_at(5), (Entries{"mnuSetX", "mnuShowChanInfo"})) << "signal";
}

TEST_F(ChannelMenuTest, MarkedChannelsCanBeConfigured) {
  open_live_window();
  menu()->close();
  click_cell(2, 1);
  click_cell(6, 1);
  EXPECT_EQ(offered_at(2), built({"mnuSetX", "mnuCfgPlot", "mnuShowChanInfo"})) << "live channel";
  EXPECT_EQ(offered_at(6), built({"mnuSetX", "mnuCfgPlot", "mnuShowChanInfo"})) << "signal";
  EXPECT_EQ(offered_at(5), (Entries{"mnuSetX", "mnuShowChanInfo"})) << "signal beside it";
}

TEST_F(ChannelMenuTest, OriginalDataKeepsTheFiles) {
  open_window();
  add_file("a.BIN", 1);
  model.OriginalDataMode = true;
  EXPECT_EQ(offered_at(0), Entries());
  EXPECT_TRUE(menu()->isVisible());
}

TEST_F(ChannelMenuTest, EveryColumnOpensTheMenuOfItsRow) {
  open_window();
  add_file("a.BIN", 2);
  for (int column = 1; column <= 3; ++column) {
    open_menu(2, column);
    EXPECT_EQ(offered(), (Entries{"mnuSetX", "mnuShowChanInfo"})) << column;
    EXPECT_EQ(model.SelectedCol, column);
    EXPECT_EQ(model.Grid.active_row, 3);
  }
}

TEST_F(ChannelMenuTest, KeyOpensTheMenuOfTheActiveRow) {
  open_window();
  add_file("a.BIN", 2);
  click_cell(1, 3);
  QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
  QApplication::sendEvent(grid()->viewport(), &event);
  EXPECT_EQ(offered(), (Entries{"mnuSetX", "mnuShowChanInfo"}));
  EXPECT_EQ(model.SelectedRow, 2);
}

TEST_F(ChannelMenuTest, InformationIsThatOfTheRowUnderThePointer) {
  open_window();
  add_file("a.BIN", 3);
  click_cell(1, 3);
  open_menu(3);
  press("mnuShowChanInfo");
  EXPECT_EQ(user.calls.back(), "channel info: Kanalinformationen");
  ASSERT_FALSE(user.info_rows.empty());
  EXPECT_EQ(user.info_rows[0].name, "Kanal 3");
  EXPECT_FALSE(menu()->isVisible());
}

TEST_F(ChannelMenuTest, ChannelBecomesTheXSourceAndTheBoxGoesBack) {
  open_window();
  add_file("a.BIN", 3);
  click_cell(1, 1);
  open_menu(3);
  press("mnuSetX");
  auto* box = find<QComboBox>("xSrc");
  EXPECT_EQ(box->currentText(), QStringLiteral("Kanal 3"));
  EXPECT_EQ(model.XChannel, 3);
  EXPECT_EQ(model.Plots[1].XSource, 3);
  box->setFocus();
  QTest::keyClick(box, Qt::Key_Up);
  EXPECT_EQ(box->currentText(), QStringLiteral("Zeit aus Meßrate"));
  EXPECT_EQ(model.Plots[1].XSource, 0);
  QTest::keyClick(box, Qt::Key_Down);
  EXPECT_EQ(model.Plots[1].XSource, 3);
}

TEST_F(ChannelMenuTest, FileUnderThePointerIsRemoved) {
  open_window();
  add_file("a.BIN", 2);
  add_file("b.BIN", 1);
  click_cell(1, 1);
  open_menu(3);
  press("mnuPRemoveFile");
  EXPECT_EQ(grid()->model()->rowCount(), 3);
  EXPECT_EQ(name_at(0), "a.BIN");
  EXPECT_EQ(model.NofPlots, 1);
}

TEST_F(ChannelMenuTest, DisabledEntryDoesNothing) {
  open_window();
  add_file("a.BIN", 2);
  open_menu(1);
  press("mnuPRemoveFile");
  EXPECT_EQ(grid()->model()->rowCount(), 3);
  EXPECT_EQ(model.NofFiles, 1);
}

}  // namespace
}  // namespace trendaro
