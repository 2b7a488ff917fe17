#include "app/program_folder.h"

#include <cstdlib>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>
#include <unistd.h>

namespace trendaro {
namespace {

// Gives an environment variable a value for the lifetime of the object; null takes it away.
class Environment {
 public:
  Environment(const char* name, const char* value) : name_(name) {
    const char* former = std::getenv(name);
    existed_ = former != nullptr;
    if (existed_) former_ = former;
    value == nullptr ? ::unsetenv(name) : ::setenv(name, value, 1);
  }
  ~Environment() { existed_ ? ::setenv(name_, former_.c_str(), 1) : ::unsetenv(name_); }
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;

 private:
  const char* name_;
  bool existed_ = false;
  std::string former_;
};

TEST(ProgramFolderTest, HoldsTheRunningProgram) {
  EXPECT_TRUE(std::filesystem::exists(program_folder() + "/app_test"));
}

TEST(ProgramFolderTest, TemplatesLieBesideAProgramThatCanBeWrittenTo) {
  ASSERT_EQ(::access(program_folder().c_str(), W_OK), 0);
  EXPECT_EQ(template_folder(), program_folder());
}

TEST(ProgramFolderTest, StateFolderIsThatOfTheDesktop) {
  const Environment state("XDG_STATE_HOME", "/var/state");
  EXPECT_EQ(state_folder(), "/var/state/trendaro");
}

TEST(ProgramFolderTest, StateFolderStandsBelowHomeWhenNoneOrARelativeOneIsGiven) {
  const Environment home("HOME", "/home/mess");
  {
    const Environment state("XDG_STATE_HOME", nullptr);
    EXPECT_EQ(state_folder(), "/home/mess/.local/state/trendaro");
  }
  const Environment state("XDG_STATE_HOME", "relative");
  EXPECT_EQ(state_folder(), "/home/mess/.local/state/trendaro");
}

}  // namespace
}  // namespace trendaro
