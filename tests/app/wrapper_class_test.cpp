#include "app/wrapper_class.h"

#include <gtest/gtest.h>

#include "app/model.h"
#include "app/startup.h"
#include "support/fake_host.h"
#include "support/file_builder.h"
#include "support/recording_kernel.h"
#include "support/recording_shell.h"

namespace trendaro {
namespace {

class WrapperClassTest : public testing::Test {
 protected:
  TemporaryFolder folder;
  RecordingKernel kernel;
  FakeHost host;
  RecordingShell shell;
  int shown = 0;
  WrapperClass wrapper{kernel, [this] { ++shown; }};
};

TEST_F(WrapperClassTest, RunAloneShowsTheWindow) {
  wrapper.AddmrvInterface(&host);
  EXPECT_EQ(shown, 0);
  EXPECT_FALSE(wrapper.CanUnload());
  wrapper.Run();
  EXPECT_EQ(shown, 1);
}

TEST_F(WrapperClassTest, WindowHasTheHostThatWasAdded) {
  wrapper.AddmrvInterface(&host);
  Model model(shell);
  wrapper.hand_link_to(model);
  EXPECT_EQ(model.Host, &host);
  EXPECT_EQ(model.Kernel, &kernel);
  EXPECT_TRUE(host.calls.empty());
}

TEST_F(WrapperClassTest, WindowWithoutAnAddedHostHasNone) {
  Model model(shell);
  wrapper.hand_link_to(model);
  EXPECT_EQ(model.Host, nullptr);
}

TEST_F(WrapperClassTest, HostReachesAWindowThatIsShown) {
  Model model(shell);
  wrapper.hand_link_to(model);
  wrapper.AddmrvInterface(&host);
  EXPECT_EQ(model.Host, &host);
  wrapper.AddmrvInterface(nullptr);
  EXPECT_EQ(model.Host, nullptr);
}

TEST_F(WrapperClassTest, UnloadOfTheWindowSetsTheFlag) {
  {
    Model model(shell);
    wrapper.hand_link_to(model);
    model.TemplateFolder = folder.path();
    EXPECT_FALSE(wrapper.CanUnload());
    unload_main_window(model);
    EXPECT_TRUE(wrapper.CanUnload());
    wrapper.release_link();
  }
  EXPECT_TRUE(wrapper.CanUnload());
}

TEST_F(WrapperClassTest, HostMaySetTheFlagItself) {
  wrapper.CanUnload(true);
  EXPECT_TRUE(wrapper.CanUnload());
  Model model(shell);
  wrapper.hand_link_to(model);
  EXPECT_TRUE(can_unload(model));
  wrapper.CanUnload(false);
  EXPECT_FALSE(can_unload(model));
}

}  // namespace
}  // namespace trendaro
