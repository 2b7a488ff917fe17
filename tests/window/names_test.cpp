#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>
#include <map>

#include "app/commands.h"
#include "app/icons.h"
#include "app/toolbar.h"
#include "window/window_fixture.h"

namespace trendaro {
namespace {

class NamesTest : public WindowTest {
 protected:
  NamesTest() { open_window(); }

  // The words of an entry; the sign of its mnemonic is none of them.
  QString caption(const char* name) { return find<QAction>(name)->text().remove(QLatin1Char('&')); }
};

TEST_F(NamesTest, EveryEntryOfTheTableIsAnActionOfItsName) {
  for (const Command& command : commands())
    if (command.name != nullptr) find<QAction>(command.name);
}

TEST_F(NamesTest, EveryPaneHasItsName) {
  EXPECT_EQ(window->objectName(), QStringLiteral("Kelmira"));
  for (const char* pane : {"Toolbar1", "Label1", "xSrc", "Grid", "Separator", "PESG", "SeparatorGraph",
                           "PESGSurvey", "sbStatus", "sbStatus(1)", "sbStatus(2)"})
    EXPECT_TRUE(find<QWidget>(pane)->isVisible()) << pane;
}

TEST_F(NamesTest, ToolbarStandsInTheOrderOfItsTable) {
  const QList<QAction*> positions = find<QToolBar>("Toolbar1")->actions();
  ASSERT_EQ(positions.size(), static_cast<qsizetype>(tool_buttons().size()));
  for (qsizetype i = 0; i < positions.size(); ++i) {
    const ToolButton& tool = tool_buttons()[static_cast<std::size_t>(i)];
    EXPECT_EQ(positions[i]->isSeparator(), tool.kind == ToolKind::Separator) << i + 1;
    if (tool.kind == ToolKind::Button) {
      EXPECT_EQ(positions[i]->objectName(), QString::fromUtf8(tool.key));
      EXPECT_EQ(find<QToolButton>(tool.key)->toolTip(), QString::fromUtf8(tool.tooltip));
    }
    if (tool.kind == ToolKind::Box) {
      EXPECT_EQ(find<QLineEdit>(tool.box)->toolTip(), QString::fromUtf8(tool.tooltip));
    }
  }
  EXPECT_TRUE(positions[15]->isSeparator());
  EXPECT_EQ(positions[23]->objectName(), QStringLiteral("TB_SHOWPOINTS"));
  EXPECT_TRUE(positions[28]->isSeparator());
}

TEST_F(NamesTest, MenuTextsAreGerman) {
  EXPECT_EQ(caption("mnuFile"), QStringLiteral("Datei"));
  EXPECT_EQ(caption("mnuOpenFile"), QStringLiteral("Datei zu Kanalliste hinzufügen"));
  EXPECT_EQ(caption("mnuSaveAs"), QStringLiteral("Aussichtsgraphik speichern als..."));
  EXPECT_EQ(caption("mnuTUnit(4)"), QStringLiteral("Datum + Zeit"));
  EXPECT_EQ(caption("mnuSetX"), QStringLiteral("Als x-Datensatz verwenden"));
  EXPECT_EQ(caption("mnuAbout"), QStringLiteral("Über Trendaro..."));
}

TEST_F(NamesTest, CaptionsAreThoseOfTheTable) {
  for (const Command& command : commands())
    if (command.caption != nullptr) {
      EXPECT_EQ(caption(command.name), QString::fromUtf8(command.caption).remove(QLatin1Char('&')));
    }
}

TEST_F(NamesTest, EveryEntryOfAMenuHasAMnemonicOfItsOwn) {
  for (const QMenu* menu : window->findChildren<QMenu*>()) {
    QStringList keys;
    for (const QAction* entry : menu->actions()) {
      if (entry->isSeparator()) continue;
      const QKeySequence key = QKeySequence::mnemonic(entry->text());
      EXPECT_FALSE(key.isEmpty()) << entry->text().toStdString();
      keys << key.toString();
    }
    EXPECT_EQ(keys.removeDuplicates(), 0) << menu->objectName().toStdString();
  }
}

TEST_F(NamesTest, BarShowsTheMenusWithoutThePopups) {
  QStringList names;
  for (const QAction* menu : window->menuBar()->actions()) names << menu->objectName();
  EXPECT_EQ(names.join(QLatin1Char(' ')), QStringLiteral("mnuFile mnuView mnuGraph mnuAxes mnuDB mnuHelp"));
}

TEST_F(NamesTest, SubmenusHoldTheirEntries) {
  const auto* units = find<QMenu>("mnuXUnit");
  ASSERT_EQ(units->actions().size(), 5);
  EXPECT_EQ(units->actions()[1]->objectName(), QStringLiteral("mnuTUnit(1)"));
  EXPECT_TRUE(units->actions()[1]->isChecked());
  EXPECT_FALSE(units->actions()[2]->isChecked());
}

TEST_F(NamesTest, EveryWidgetThatTakesFocusTellsItsName) {
  for (const QWidget* widget : window->findChildren<QWidget*>()) {
    const bool of_the_toolkit =
        widget->objectName().isEmpty() || widget->objectName().startsWith(QStringLiteral("qt_"));
    if (widget->focusPolicy() != Qt::NoFocus && !of_the_toolkit) {
      EXPECT_FALSE(widget->accessibleName().isEmpty()) << widget->objectName().toStdString();
    }
  }
}

// No picture is missing, and none looks like another one.
TEST_F(NamesTest, EveryImageKeyHasAPictureOfItsOwn) {
  std::vector<std::string> keys = {"IMG_PLUS",        "IMG_MINUS",  "IMG_CHECKED",    "IMG_UNCHECKED",
                                   "IMG_FILE",        "IMG_SIGNAL", "IMG_IO",         "IMG_ANALOGIN",
                                   "IMG_FORMULAIN",   "IMG_TIME",   "IMG_DATABASEIN", "IMG_FILEIN",
                                   "IMG_NOTCONNECTED"};
  for (const ToolButton& tool : tool_buttons())
    for (const char* image : {tool.image, tool.down_image})
      if (image != nullptr) keys.emplace_back(image);
  std::map<QByteArray, std::string> pictures;
  for (const std::string& key : keys) {
    const QImage picture = load_icon(key).pixmap(48, 48).toImage().convertToFormat(QImage::Format_ARGB32);
    ASSERT_FALSE(picture.isNull()) << key;
    const QByteArray bytes(reinterpret_cast<const char*>(picture.constBits()), picture.sizeInBytes());
    EXPECT_NE(bytes.count('\0'), bytes.size()) << key << " is empty";
    const auto [other, added] = pictures.emplace(bytes, key);
    EXPECT_TRUE(added) << key << " looks like " << other->second;
  }
  EXPECT_TRUE(load_icon("IMG_NO_SUCH_KEY").isNull());
}

}  // namespace
}  // namespace trendaro
