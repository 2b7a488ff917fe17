#include <QComboBox>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QToolButton>
#include <map>

#include "window/paintings.h"
#include "window/window_fixture.h"

namespace trendaro {
namespace {

bool has_enabled_entry(const QMenu& menu) {
  for (const QAction* entry : menu.actions())
    if (!entry->isSeparator() && entry->menu() == nullptr && entry->isEnabled()) return true;
  return false;
}

class MainWindowTest : public WindowTest {
 protected:
  MainWindowTest() { open_window(); }

  void drop(const QList<QUrl>& urls) {
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &enter);
    QDropEvent event({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &event);
    QApplication::processEvents();
  }
};

TEST_F(MainWindowTest, OpenEntryAddsTheChosenFile) {
  StandardFile file{.channels = {{.name = "Drehzahl", .samples = {1, 2, 3}}}};
  const std::string path = folder.file("Lauf.BIN");
  write_file(path, file.build().bytes());
  user.files.push_back(path);
  find<QAction>("mnuOpenFile")->trigger();
  ASSERT_EQ(grid()->model()->rowCount(), 2);
  EXPECT_EQ(name_at(1), "Drehzahl");
}

TEST_F(MainWindowTest, ClickMarksAndUnmarksASignal) {
  add_file("a.BIN", 3);
  click_cell(2, 1);
  EXPECT_EQ(model.Grid.rows[3].mark, "2_1_1");
  EXPECT_EQ(model.NofPlots, 1);
  click_cell(2, 1);
  EXPECT_EQ(model.Grid.rows[3].mark, "2");
  EXPECT_EQ(model.NofPlots, 0);
}

TEST_F(MainWindowTest, ClickOnANameMakesTheRowActiveAndMarksNothing) {
  add_file("a.BIN", 3);
  click_cell(2, 3);
  EXPECT_EQ(model.Grid.active_row, 3);
  EXPECT_EQ(model.NofPlots, 0);
}

// A command may keep the event loop waiting for long.
TEST_F(MainWindowTest, MenuBarIsDrawnWithoutItsMenuAheadOfTheCommand) {
  auto* bar = new Paintings(window->menuBar());
  int ahead_of_the_message = 0;
  user.during_message = [&] { ahead_of_the_message = bar->count; };
  model.MaxDatabaseChannels = 1;  // so that the command finds another size and says so
  QMenu* menu = find<QMenu>("mnuDB");
  window->menuBar()->setActiveAction(menu->menuAction());
  QApplication::processEvents();
  bar->count = 0;
  menu->setActiveAction(find<QAction>("mnuDBConfig"));
  QTest::keyClick(menu, Qt::Key_Return);
  EXPECT_GT(ahead_of_the_message, 0);
}

TEST_F(MainWindowTest, CursorKeysReachTheZoomFromAnywhereInTheWindow) {
  add_file("a.BIN", 1);
  click_cell(1, 1);
  model.controls["StepBox"].text = "77";
  QTest::keyClick(window.get(), Qt::Key_Right);
  EXPECT_NE(model.ScrollInterval, 77);
  model.Zoomed = true;
  model.HasFullDataPlot = false;
  model.PESG.pending.ZoomActive = false;  // as in original samples
  QTest::keyClick(window.get(), Qt::Key_Up);
  EXPECT_NE(model.ScrollInterval, 77);
  QTest::keyClick(window.get(), Qt::Key_Left);
  EXPECT_EQ(model.ScrollInterval, 77);
}

TEST_F(MainWindowTest, ArrowKeysInTheListMoveTheSection) {
  add_file("a.BIN", 1);
  click_cell(1, 1);
  model.controls["StepBox"].text = "77";
  grid()->setFocus();
  QTest::keyClick(grid(), Qt::Key_Right);
  EXPECT_NE(model.ScrollInterval, 77);
  model.Zoomed = true;
  model.HasFullDataPlot = false;
  QTest::keyClick(grid(), Qt::Key_Left);
  EXPECT_EQ(model.ScrollInterval, 77);
}

TEST_F(MainWindowTest, LayerAndSideButtonsSteerTheNextMark) {
  add_file("a.BIN", 3);
  click_button("TB_AXIS2");
  click_button("TB_RYAXIS");
  EXPECT_TRUE(find<QAction>("TB_AXIS2")->isChecked());
  EXPECT_FALSE(find<QAction>("TB_AXIS1")->isChecked());
  EXPECT_TRUE(find<QAction>("TB_RYAXIS")->isChecked());
  EXPECT_FALSE(find<QAction>("TB_LYAXIS")->isChecked());
  click_cell(1, 1);
  EXPECT_EQ(model.Grid.rows[2].mark, "1_2_2");
  click_button("TB_AXIS2");
  EXPECT_TRUE(find<QAction>("TB_AXIS2")->isChecked()) << "a second click keeps the button pressed";
}

TEST_F(MainWindowTest, SecondFileCollapsesAndOpensAgain) {
  add_file("a.BIN", 2);
  add_file("b.BIN", 3);
  ASSERT_EQ(grid()->model()->rowCount(), 7);
  click_cell(3, 1);
  EXPECT_EQ(grid()->model()->rowCount(), 4);
  click_cell(3, 1);
  EXPECT_EQ(grid()->model()->rowCount(), 7);
}

TEST_F(MainWindowTest, DroppedFilesAreAddedInTheirOrder) {
  const std::string first = add_file("a.BIN", 1);
  const std::string second = add_file("b.BIN", 2);
  drop({QUrl::fromLocalFile(QString::fromStdString(second)),
        QUrl::fromLocalFile(QString::fromStdString(first))});
  ASSERT_EQ(model.NofFiles, 4);
  EXPECT_EQ(model.FileList[3], second);
  EXPECT_EQ(model.FileList[4], first);
}

TEST_F(MainWindowTest, DroppedAddressesThatAreNoFilesAreIgnored) {
  drop({QUrl(QStringLiteral("https://example.org/a.BIN"))});
  EXPECT_EQ(model.NofFiles, 0);
}

TEST_F(MainWindowTest, RefusedFileIsTold) {
  const std::string path = folder.file("kein.BIN");
  write_file(path, "no measurement");
  drop({QUrl::fromLocalFile(QString::fromStdString(path))});
  EXPECT_EQ(user.messages(), std::vector<std::string>{"Trendaro: Diese Datei enthält kein gültiges Format"});
}

TEST_F(MainWindowTest, RemoveEntryIsEnabledOnAFileRowAlone) {
  add_file("a.BIN", 2);
  click_cell(0, 3);
  Q_EMIT find<QMenu>("mnuFile")->aboutToShow();
  EXPECT_TRUE(find<QAction>("mnuRemoveFile")->isEnabled());
  click_cell(1, 3);
  Q_EMIT find<QMenu>("mnuFile")->aboutToShow();
  EXPECT_FALSE(find<QAction>("mnuRemoveFile")->isEnabled());
}

TEST_F(MainWindowTest, RemoveEntryTakesTheFileAway) {
  add_file("a.BIN", 2);
  add_file("b.BIN", 1);
  click_cell(0, 3);
  Q_EMIT find<QMenu>("mnuFile")->aboutToShow();
  find<QAction>("mnuRemoveFile")->trigger();
  ASSERT_EQ(grid()->model()->rowCount(), 2);
  EXPECT_EQ(name_at(1), "Kanal 1");
  EXPECT_EQ(model.NofFiles, 1);
}

TEST_F(MainWindowTest, DeleteKeyRemovesAFileAndNoSignal) {
  add_file("a.BIN", 2);
  click_cell(1, 3);
  QTest::keyClick(grid(), Qt::Key_Delete);
  EXPECT_EQ(model.NofFiles, 1);
  click_cell(0, 3);
  QTest::keyClick(grid(), Qt::Key_Delete);
  EXPECT_EQ(model.NofFiles, 0);
}

TEST_F(MainWindowTest, ChannelAsXWithoutOneIsTold) {
  auto* box = find<QComboBox>("xSrc");
  ASSERT_EQ(box->count(), 2);
  EXPECT_EQ(box->itemText(0), QStringLiteral("Zeit aus Meßrate"));
  box->setCurrentIndex(1);
  Q_EMIT box->activated(1);
  ASSERT_EQ(user.messages().size(), 1U);
  EXPECT_EQ(box->currentIndex(), 0);
}

TEST_F(MainWindowTest, EnterInStepBoxRoundsToEven) {
  auto* box = find<QLineEdit>("StepBox");
  box->selectAll();
  QTest::keyClicks(box, QStringLiteral("12,5"));
  QTest::keyClick(box, Qt::Key_Return);
  EXPECT_EQ(model.ScrollInterval, 12);
  EXPECT_EQ(box->text(), QStringLiteral("12"));
}

TEST_F(MainWindowTest, StepTooLargeForANumberLeavesTheOldOne) {
  auto* box = find<QLineEdit>("StepBox");
  const i32 before = model.ScrollInterval;
  box->selectAll();
  QTest::keyClicks(box, QStringLiteral("1e99"));
  QTest::keyClick(box, Qt::Key_Return);
  EXPECT_EQ(model.ScrollInterval, before);
}

TEST_F(MainWindowTest, ColourOfABoxIsThatOfItsState) {
  model.controls["ZoomPointsBox"].back_color = kYellow;
  model.controls["ZoomPointsBox"].text = "4711";
  window->mirror();
  auto* box = find<QLineEdit>("ZoomPointsBox");
  EXPECT_EQ(box->palette().color(QPalette::Base), QColor(255, 255, 0));
  EXPECT_EQ(box->text(), QStringLiteral("4711"));
  EXPECT_TRUE(box->isReadOnly());
}

TEST_F(MainWindowTest, HiddenBoxTakesItsPlaceInTheBarAlong) {
  model.controls["TB_ZOOMPOINTS"].visible = false;
  window->mirror();
  QApplication::processEvents();
  EXPECT_FALSE(find<QLineEdit>("PointsBox")->isVisible());
}

TEST_F(MainWindowTest, EntriesWithoutWorkAreDisabled) {
  for (const auto& [name, state] : model.controls.all()) {
    const auto* entry = window->findChild<QAction*>(QString::fromStdString(name));
    if (entry == nullptr || entry->isSeparator()) continue;
    const bool in_a_menu = entry->menu() != nullptr && qobject_cast<QMenu*>(entry->menu()->parentWidget());
    EXPECT_EQ(entry->isEnabled(), state.enabled && (!in_a_menu || has_enabled_entry(*entry->menu()))) << name;
  }
}

TEST_F(MainWindowTest, MenuInAMenuOpensWhileOneOfItsEntriesIsEnabled) {
  EXPECT_TRUE(find<QAction>("mnuXUnit")->isEnabled());
  for (int unit = 0; unit < 5; ++unit)
    model.controls["mnuTUnit(" + std::to_string(unit) + ")"].enabled = false;
  window->mirror();
  EXPECT_FALSE(find<QAction>("mnuXUnit")->isEnabled());
  model.controls["mnuTUnit(3)"].enabled = true;
  window->mirror();
  EXPECT_TRUE(find<QAction>("mnuXUnit")->isEnabled());
  EXPECT_TRUE(find<QAction>("mnuAxes")->isEnabled());
}

// Both panels tell of the uncompressed channel, or are both empty.
TEST_F(MainWindowTest, PanelsTellOfAnUncompressedChannelAsLongAsItIsShown) {
  const auto panels = [&] {
    std::map<std::string, std::string> last;
    for (const std::string& call : user.calls)
      if (call.starts_with("status ")) last[call.substr(7, 1)] = call.substr(10);
    return last;
  };
  add_file("a.BIN", 2);
  click_cell(1, 1);
  EXPECT_TRUE(panels()["1"].starts_with("Nichtkomprimierter Kanal"));
  EXPECT_EQ(panels()["2"], std::to_string(model.MaxViewPoints));
  find<QAction>("mnuTUnit(0)")->trigger();
  EXPECT_TRUE(panels()["1"].starts_with("Nichtkomprimierter Kanal"));
  EXPECT_EQ(panels()["2"], std::to_string(model.MaxViewPoints));
  click_cell(1, 3);
  find<QAction>("mnuSetX")->trigger();
  EXPECT_TRUE(panels()["1"].starts_with("Nichtkomprimierter Kanal"));
  find<QComboBox>("xSrc")->setCurrentIndex(0);
  Q_EMIT find<QComboBox>("xSrc")->activated(0);
  EXPECT_TRUE(panels()["1"].starts_with("Nichtkomprimierter Kanal"));
  click_cell(1, 1);
  EXPECT_EQ(panels()["1"], "");
  EXPECT_EQ(panels()["2"], "");
  click_cell(2, 1);
  EXPECT_NE(panels()["2"], "");
  find<QAction>("mnuClearGraph")->trigger();
  EXPECT_EQ(panels()["1"], "");
  EXPECT_EQ(panels()["2"], "");
  click_cell(2, 1);
  EXPECT_NE(panels()["2"], "");
  click_cell(0, 3);
  QTest::keyClick(grid(), Qt::Key_Delete);
  EXPECT_EQ(panels()["1"], "");
  EXPECT_EQ(panels()["2"], "");
}

TEST_F(MainWindowTest, FailureOfAHandlerIsTold) {
  window->run([] { throw RunTimeError{13}; });
  window->run([] { throw std::bad_alloc(); });
  EXPECT_EQ(user.messages(),
            (std::vector<std::string>{"Trendaro: Laufzeitfehler 13", "Trendaro: Laufzeitfehler 7"}));
}

TEST_F(MainWindowTest, CloseIsAskedAndNoKeepsTheWindow) {
  user.yes_no = {false};
  window->close();
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(user.calls.back(), "question: Programm beenden: Trendaro beenden?");
  EXPECT_FALSE(can_unload(model));
}

TEST_F(MainWindowTest, CloseWithYesUnloads) {
  add_file("a.BIN", 2);
  click_cell(1, 1);
  user.yes_no = {true};
  window->close();
  EXPECT_FALSE(window->isVisible());
  EXPECT_TRUE(can_unload(model));
  EXPECT_EQ(model.NofPlots, 0);
}

TEST_F(WindowTest, WithoutHostTheWindowSaysSoOnceAndGoesWithoutAQuestion) {
  model.Host = nullptr;
  open_window();
  QApplication::processEvents();
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(user.messages(),
            std::vector<std::string>{"Trendaro: Mervan ActiveX-Server nicht vorhanden. Trendaro kann nicht "
                                     "gestartet werden!"});
  for (const std::string& call : user.calls) EXPECT_FALSE(call.starts_with("question")) << call;
  EXPECT_EQ(user.icons, std::vector<MessageIcon>{MessageIcon::Stop});
  EXPECT_TRUE(can_unload(model));
}

}  // namespace
}  // namespace trendaro
