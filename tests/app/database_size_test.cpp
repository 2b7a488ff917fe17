#include "app/database_size.h"

#include <gtest/gtest.h>

#include "support/file_builder.h"

namespace trendaro {
namespace {

class DatabaseSizeTest : public testing::Test {
 protected:
  DatabaseSize size_of_file(const std::string& text) {
    write_file(path, text);
    return read_database_size(path);
  }

  TemporaryFolder folder;
  std::string path = folder.file("DATABASE.$$$");
};

TEST_F(DatabaseSizeTest, KeptSizeIsReadAgain) {
  keep_database_size(path, {200, 5000000});
  EXPECT_EQ(read_file(path), "channels 200\nsamples 5000000\n");
  EXPECT_EQ(read_database_size(path), (DatabaseSize{200, 5000000}));
}

TEST_F(DatabaseSizeTest, MissingFileGivesTheUsualSize) {
  EXPECT_EQ(read_database_size(path), (DatabaseSize{96, 100000}));
}

TEST_F(DatabaseSizeTest, FileThatEndsEarlyGivesTheUsualSize) {
  const std::string text = "channels 200\nsamples 5000000\n";
  for (std::size_t bytes = 0; bytes < text.size(); ++bytes)
    EXPECT_EQ(size_of_file(text.substr(0, bytes)), DatabaseSize()) << bytes;
}

TEST_F(DatabaseSizeTest, SizesThatAreNoneGiveTheUsualSize) {
  for (const char* text :
       {"channels 0\nsamples 5\n", "channels 10000\nsamples 5\n", "channels 5\nsamples -1\n",
        "channels 99999999999\nsamples 5\n", "channels 5\nsamples 100000001\n", "samples 5\nchannels 5\n",
        "channels five\nsamples 5\n", "channels 5\nsamples 5.5\n"})
    EXPECT_EQ(size_of_file(text), DatabaseSize()) << text;
}

TEST_F(DatabaseSizeTest, FolderThatCannotBeWrittenKeepsNothing) {
  keep_database_size(folder.file("none/DATABASE.$$$"), {5, 5});
  EXPECT_EQ(read_database_size(folder.file("none/DATABASE.$$$")), DatabaseSize());
}

}  // namespace
}  // namespace trendaro
