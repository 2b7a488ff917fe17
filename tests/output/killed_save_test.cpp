#include <chrono>
#include <csignal>
#include <random>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "graph/graph_surface.h"
#include "output/atomic_file.h"
#include "output/graph_template.h"
#include "support/file_builder.h"

namespace trendaro {
namespace {

constexpr int kPieces = 8;
constexpr int kKills = 60;
constexpr std::size_t kTitleBytes = 20000;

// Runs `save` in a process of its own that kills itself, or is killed after a while.
template <typename Save>
void in_killed_process(std::chrono::microseconds life, Save&& save) {
  const pid_t child = ::fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    save();
    ::_exit(0);
  }
  if (life.count() >= 0) {
    ::usleep(static_cast<useconds_t>(life.count()));
    ASSERT_EQ(::kill(child, SIGKILL), 0);
  }
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFSIGNALED(status));
}

constexpr std::chrono::microseconds kUntilItsEnd{-1};

TEST(KilledSaveTest, FileThatIsHalfWrittenIsNotTheFile) {
  const TemporaryFolder folder;
  const std::string path = folder.file("look");
  ASSERT_TRUE(replace_file(path, "old"));
  for (int last = 0; last <= kPieces; ++last) {
    in_killed_process(kUntilItsEnd, [&] {
      int piece = 0;
      replace_file(path, [&] {
        if (piece == last) std::raise(SIGKILL);
        return piece++ == kPieces ? std::string() : std::string(100000, 'n');
      });
    });
    EXPECT_EQ(read_file(path), "old") << last;
  }
}

TEST(KilledSaveTest, WriterOfTheTemporaryFileMayBeKilledToo) {
  const TemporaryFolder folder;
  const std::string path = folder.file("look");
  ASSERT_TRUE(replace_file(path, "old"));
  in_killed_process(kUntilItsEnd, [&] {
    replace_file_with(path, [](const std::string& temporary) {
      write_file(temporary, "new");
      return std::raise(SIGKILL) == 0;
    });
  });
  EXPECT_EQ(read_file(path), "old");
}

GraphSurface look(char letter) {
  GraphSurface graph(1);
  graph.pending.MainTitle = std::string(kTitleBytes, letter);
  graph.pending.SubTitle = std::string(kTitleBytes, letter);
  return graph;
}

// Kills at any moment of a save, the renaming included.
TEST(KilledSaveTest, LookOfAGraphIsTheOldOrTheNewOne) {
  const TemporaryFolder folder;
  const std::string path = folder.file("KM_TEMPLATE.$$$");
  const GraphSurface looks[] = {look('a'), look('b')};
  const auto begin = std::chrono::steady_clock::now();
  ASSERT_EQ(PEsavetofile(looks[0], path), kPropertyDone);
  const auto save_time = std::chrono::steady_clock::now() - begin;
  std::mt19937 random(7);
  std::uniform_int_distribution<i64> life(
      0, 4 * std::chrono::duration_cast<std::chrono::microseconds>(save_time).count());
  for (int kill = 0; kill < kKills; ++kill) {
    in_killed_process(std::chrono::microseconds(life(random)), [&] {
      for (int i = 0;; ++i) PEsavetofile(looks[i % 2], path);
    });
    GraphSurface graph(1);
    ASSERT_EQ(PEloadfromfile(graph, path), kPropertyDone) << kill;
    const std::string& title = graph.pending.MainTitle;
    ASSERT_EQ(title.size(), kTitleBytes);
    EXPECT_EQ(title, std::string(kTitleBytes, title.front()));
    EXPECT_EQ(graph.pending.SubTitle, title);
  }
}

}  // namespace
}  // namespace trendaro
