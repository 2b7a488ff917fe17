#include "app/commands.h"

#include <set>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/model.h"
#include "app/toolbar.h"
#include "support/recording_shell.h"

namespace trendaro {
namespace {

using testing::ElementsAre;

class CommandsTest : public testing::Test {
 protected:
  RecordingShell shell;
  Model model{shell};
};

TEST_F(CommandsTest, NamesOccurOnceAndParentsStandAhead) {
  std::set<std::string> seen;
  for (const Command& command : commands()) {
    if (command.parent != nullptr) {
      EXPECT_TRUE(seen.contains(command.parent)) << command.parent;
    }
    if (command.name == nullptr) continue;
    EXPECT_TRUE(seen.insert(command.name).second) << command.name;
    EXPECT_TRUE(model.controls.has(command.name)) << command.name;
  }
}

TEST_F(CommandsTest, EntriesAreEnabledWhereTheirWorkIsBuilt) {
  EXPECT_TRUE(model.controls["mnuOpenFile"].enabled);
  EXPECT_TRUE(model.controls["mnuExit"].enabled);
  EXPECT_TRUE(model.controls["mnuXUnit"].enabled);  // a menu
  for (const Command& command : commands()) {
    if (command.name == nullptr || command.run != nullptr) continue;
    enable_control(model, command.name, true);
    bool has_entries = command.parent == nullptr;
    for (const Command& other : commands())
      has_entries |= other.parent != nullptr && std::string(other.parent) == command.name;
    EXPECT_EQ(model.controls[command.name].enabled, has_entries) << command.name;
  }
}

TEST_F(CommandsTest, DisablingAndEnablingReachEntriesAndButtons) {
  for (const char* name : {"mnuOpenFile", "TB_ADDFILE", "TB_AXIS1"}) {
    enable_control(model, name, false);
    EXPECT_FALSE(model.controls[name].enabled) << name;
    enable_control(model, name, true);
    EXPECT_TRUE(model.controls[name].enabled) << name;
  }
}

TEST_F(CommandsTest, ExitClosesTheWindow) {
  run_command(model, "mnuExit");
  EXPECT_EQ(shell.window_closings, 1);
}

TEST_F(CommandsTest, MenuAndToolbarOpenTheSameDialog) {
  run_command(model, "mnuOpenFile");
  click_tool(model, "TB_ADDFILE");
  EXPECT_THAT(shell.calls,
              ElementsAre("open: Datensätze aus Datei einfügen", "open: Datensätze aus Datei einfügen"));
}

TEST_F(CommandsTest, PopUpMenuOpensForTheActiveRow) {
  ChannelRow file;
  file.kind = RowKind::File;
  ChannelRow signal;
  signal.kind = RowKind::Signal;
  model.Grid.rows.push_back(file);
  model.Grid.rows.push_back(signal);
  model.Grid.active_row = 1;
  open_menu(model, "mnuPOP1");
  EXPECT_TRUE(model.controls["mnuPRemoveFile"].enabled);
  EXPECT_FALSE(model.controls["mnuSetX"].enabled);
  model.Grid.active_row = 2;
  open_menu(model, "mnuPOP1");
  EXPECT_FALSE(model.controls["mnuPRemoveFile"].enabled);
  EXPECT_TRUE(model.controls["mnuSetX"].enabled);
}

TEST_F(CommandsTest, UnknownNamesDoNothing) {
  run_command(model, "mnuNone");
  run_command(model, "mnuFile");
  open_menu(model, "mnuView");
  EXPECT_TRUE(shell.calls.empty());
}

}  // namespace
}  // namespace trendaro
