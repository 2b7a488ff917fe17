#include "output/online_help.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/model.h"
#include "support/file_builder.h"
#include "support/recording_shell.h"

namespace trendaro {
namespace {

using testing::ElementsAre;

class OnlineHelpTest : public testing::Test {
 protected:
  RecordingShell shell;
  Model model{shell};
  TemporaryFolder folder;

  OnlineHelpTest() { model.HelpFile = folder.file("Trendaro.chm"); }
};

TEST_F(OnlineHelpTest, HelpFileIsShownByTheViewerOfTheDesktop) {
  write_file(model.HelpFile, "help");
  mnuOnlineHelp(model);
  EXPECT_THAT(shell.calls, ElementsAre("document " + model.HelpFile));
}

TEST_F(OnlineHelpTest, MissingHelpFileIsTold) {
  mnuOnlineHelp(model);
  EXPECT_THAT(shell.calls,
              ElementsAre("message: Trendaro: Die Hilfedatei " + model.HelpFile + " ist nicht vorhanden."));
}

TEST_F(OnlineHelpTest, DesktopWithoutAViewerIsTold) {
  write_file(model.HelpFile, "help");
  shell.opens_documents = false;
  mnuOnlineHelp(model);
  EXPECT_THAT(shell.messages(),
              ElementsAre("Trendaro: Kein Programm kann die Hilfedatei " + model.HelpFile + " anzeigen."));
}

}  // namespace
}  // namespace trendaro
