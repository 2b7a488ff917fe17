#include "app/status_bar.h"

#include <QLabel>
#include <QProgressBar>

#include "window/paintings.h"
#include "window/window_fixture.h"

namespace trendaro {
namespace {

class StatusBarTest : public WindowTest {
 protected:
  StatusBarTest() { open_window(); }
};

TEST_F(StatusBarTest, PanelsShowTheirTexts) {
  window_shell.show_status(1, "Datei wird gelesen <b>");
  window_shell.show_status(2, "4711");
  window_shell.show_status(3, "no such panel");
  EXPECT_EQ(find<QLabel>("sbStatus(1)")->text(), QStringLiteral("Datei wird gelesen <b>"));
  EXPECT_EQ(find<QLabel>("sbStatus(2)")->text(), QStringLiteral("4711"));
}

TEST_F(StatusBarTest, ChangesAreDrawnWithoutTheEventLoop) {
  auto* text = new Paintings(find<QLabel>("sbStatus(1)"));
  auto* progress = new Paintings(find<QProgressBar>("Progress"));
  window_shell.show_status(1, "Import läuft");
  EXPECT_EQ(text->count, 1);
  window_shell.show_progress(0.25);
  window_shell.show_progress(0.5);
  EXPECT_GE(progress->count, 2);
  EXPECT_EQ(find<QProgressBar>("Progress")->value(), 500);
}

TEST_F(StatusBarTest, ProgressGoesWithANegativeValue) {
  auto* progress = find<QProgressBar>("Progress");
  EXPECT_FALSE(progress->isVisible());
  window_shell.show_progress(2);
  EXPECT_TRUE(progress->isVisible());
  EXPECT_EQ(progress->value(), 1000);
  window_shell.show_progress(-1);
  EXPECT_FALSE(progress->isVisible());
}

TEST_F(StatusBarTest, LongTextDoesNotWidenTheWindow) {
  window_shell.show_status(1, std::string(2000, 'x'));
  QApplication::processEvents();
  EXPECT_EQ(window->width(), 1280);
}

TEST_F(StatusBarTest, WithoutAWindowNothingShowsAndNothingBreaks) {
  window.reset();
  EXPECT_NO_THROW(window_shell.show_status(1, "nobody"));
  EXPECT_NO_THROW(window_shell.show_progress(0.5));
  EXPECT_NO_THROW(window_shell.close_window());
}

TEST_F(StatusBarTest, WaitPointersNest) {
  {
    const WaitPointer outer(window_shell);
    { const WaitPointer inner(window_shell); }
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  }
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

}  // namespace
}  // namespace trendaro
