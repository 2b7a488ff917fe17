#include "app/command_line.h"

#include <filesystem>
#include <fstream>
#include <limits>

#include <gtest/gtest.h>

#include "support/file_builder.h"

namespace trendaro {
namespace {

namespace fs = std::filesystem;

Invocation parse(std::vector<const char*> words) {
  words.insert(words.begin(), "trendaro");
  return parse_command_line(static_cast<int>(words.size()), words.data());
}

template <typename Command>
Command parsed(const std::vector<const char*>& words) {
  const Invocation call = parse(words);
  const auto* command = std::get_if<Command>(&call);
  EXPECT_NE(command, nullptr) << words.front();
  if (const auto* wrong = std::get_if<WrongCall>(&call)) ADD_FAILURE() << wrong->text;
  return command == nullptr ? Command() : *command;
}

void expect_wrong(const std::vector<const char*>& words, const std::string& text) {
  const Invocation call = parse(words);
  const auto* wrong = std::get_if<WrongCall>(&call);
  ASSERT_NE(wrong, nullptr) << words.front();
  EXPECT_EQ(wrong->text.substr(0, text.size()), text) << wrong->text;
  EXPECT_EQ(wrong->text.back(), '\n');
}

TEST(CommandLineTest, WithoutACommandTheWindowOpensWithItsFiles) {
  const auto window = parsed<OpenWindow>({"/a/lauf.ST1:1,3", "/a/lauf.bin"});
  ASSERT_EQ(window.files.size(), 2u);
  EXPECT_EQ(window.files[0].path, "/a/lauf.ST1");
  EXPECT_EQ(window.files[0].channels, (std::vector<i16>{1, 3}));
  EXPECT_EQ(window.files[1].path, "/a/lauf.bin");
  EXPECT_TRUE(window.files[1].channels.empty());
  EXPECT_FALSE(window.automation);
  EXPECT_TRUE(parsed<OpenWindow>({"--automation"}).automation);
  EXPECT_TRUE(parsed<OpenWindow>({"--host=bus"}).bus_host);
  EXPECT_FALSE(parsed<OpenWindow>({"--host=embedded"}).without_host);
  EXPECT_TRUE(parsed<OpenWindow>({"--host", "none"}).without_host);
  EXPECT_FALSE(parsed<OpenWindow>({"--host", "none"}).bus_host);
}

TEST(CommandLineTest, AColonBeginsChannelsOnlyAheadOfDigitsAndCommas) {
  EXPECT_EQ(parse_file_argument("/a/f:1,2").channels, (std::vector<i16>{1, 2}));
  EXPECT_EQ(parse_file_argument("/a/f:1,").channels, (std::vector<i16>{1}));
  EXPECT_EQ(parse_file_argument("/a/f:,4").channels, (std::vector<i16>{4}));
  EXPECT_EQ(parse_file_argument("/a/f:99999").channels, (std::vector<i16>{32767}));
  for (const char* path : {"/a/f:", "/a/f:,", "/a/f:x", "/a/f:1x", "/a/f: 1"}) {
    EXPECT_EQ(parse_file_argument(path).path, path);
    EXPECT_TRUE(parse_file_argument(path).channels.empty());
  }
}

TEST(CommandLineTest, AFileOfTheWholeNameHasNoChannelList) {
  const TemporaryFolder folder;
  const std::string path = folder.file("lauf:1");
  std::ofstream(path) << "x";
  EXPECT_EQ(parse_file_argument(path).path, path);
}

TEST(CommandLineTest, NamesInBracketsAreOneFile) {
  const auto window = parsed<OpenWindow>({"/a/[s.bin,b.dat]", "[s.bin]"});
  ASSERT_EQ(window.files.size(), 2u);
  EXPECT_EQ(window.files[0].path, "/a/[s.bin,b.dat]");
  EXPECT_EQ(fs::path(window.files[1].path).filename(), "[s.bin]");
}

TEST(CommandLineTest, PathsBecomeAbsoluteAndFollowLinksAheadOfTwoDots) {
  const TemporaryFolder folder;
  const fs::path root = fs::canonical(folder.file("."));
  fs::create_directories(root / "one" / "sub");
  fs::create_directories(root / "two");
  fs::create_directory_symlink(root / "one" / "sub", root / "two" / "link");
  const std::string path = (root / "two" / "link" / ".." / "f.bin").string();
  EXPECT_EQ(parsed<InfoCommand>({"info", path.c_str()}).path, (root / "one" / "f.bin").string());
  const std::string through_link = (root / "two" / "link" / "." / "f.bin").string();
  EXPECT_EQ(parsed<InfoCommand>({"info", through_link.c_str()}).path,
            (root / "two" / "link" / "f.bin").string());
  EXPECT_EQ(parsed<InfoCommand>({"info", "lauf.bin"}).path, (fs::current_path() / "lauf.bin").string());
  EXPECT_EQ(parsed<InfoCommand>({"info", "./lauf.bin"}).path, (fs::current_path() / "lauf.bin").string());
}

TEST(CommandLineTest, ChannelsAreDecimalAndClampedToWhatFilesCanHave) {
  EXPECT_EQ(parsed<ValuesCommand>({"values", "/a", "010"}).channel, 10);
  EXPECT_EQ(parsed<ValuesCommand>({"values", "/a", "40000"}).channel, 32767);
  EXPECT_EQ(parsed<ValuesCommand>({"values", "/a", "99999999999"}).channel, 32767);
  EXPECT_TRUE(parsed<ValuesCommand>({"values", "--raw", "/a", "1"}).raw);
  expect_wrong({"values", "/a", "0x2"}, "CHANNEL: kein gültiger Wert: \"0x2\"");
  expect_wrong({"info", "/a", "zwei"}, "CHANNEL: kein gültiger Wert: \"zwei\"");
  for (const char* command : {"info", "values"})
    expect_wrong({command, "/a", ""}, "CHANNEL: kein gültiger Wert: \"\"");
  EXPECT_EQ(parsed<InfoCommand>({"info", "/a"}).channel, 0);
}

TEST(CommandLineTest, ReduceHasItsFactorAndMayHaveATarget) {
  const auto without = parsed<ReduceCommand>({"reduce", "/a/l.bin"});
  EXPECT_EQ(without.factor, 100);
  EXPECT_EQ(without.target, "");
  const auto with = parsed<ReduceCommand>({"reduce", "--factor", "0250", "--force", "/a/l.bin", "/b/z.REB"});
  EXPECT_EQ(with.factor, 250);
  EXPECT_EQ(with.target, "/b/z.REB");
  EXPECT_TRUE(with.force);
  expect_wrong({"reduce", "--factor", "9", "/a"}, "--factor: kein gültiger Wert: \"9\"");
  expect_wrong({"reduce", "--factor", "10001", "/a"}, "--factor");
  expect_wrong({"reduce", "/a", ""}, "TARGET: kein gültiger Wert: \"\"");
}

TEST(CommandLineTest, SectionNeedsItsRows) {
  const auto section = parsed<SectionCommand>({"section", "--first", "5", "--count", "7", "/a", "/b"});
  EXPECT_EQ(section.first, 5);
  EXPECT_EQ(section.count, 7);
  expect_wrong({"section", "--first", "-1", "--count", "7", "/a", "/b"}, "--first");
  expect_wrong({"section", "--first", "5", "/a", "/b"}, "Es fehlt eine Angabe: --count");
}

TEST(CommandLineTest, RenderTakesSizeUnitAndRange) {
  const auto render = parsed<RenderCommand>({"render", "--output", "/p.png", "--size", "800x500", "--from",
                                             "-1.5", "--to", "2e3", "--unit", "date", "/a"});
  EXPECT_EQ(render.width, 800);
  EXPECT_EQ(render.height, 500);
  EXPECT_EQ(render.from, -1.5);
  EXPECT_EQ(render.to, 2000);
  EXPECT_EQ(render.time_unit, 4);
  for (const char* size : {"800", "800x", "x500", "800x500x2", "0x0", "15x100", "100x40000", "8.5x9"})
    expect_wrong({"render", "--output", "/p.png", "--size", size, "/a"}, "--size: kein gültiger Wert");
  expect_wrong({"render", "--output", "/p.png", "--unit", "tage", "/a"}, "--unit");
  expect_wrong({"render", "--output", "/p.png", "--to", "1,5x", "/a"}, "--to");
}

TEST(CommandLineTest, RangeOutsideOfAllNumbersIsTheNearestOne) {
  const auto range = [](const std::string& from, const std::string& to) {
    const auto render =
        parsed<RenderCommand>({"render", "--output", "/p", "--from", from.c_str(), "--to", to.c_str(), "/a"});
    return std::pair(render.from.value(), render.to.value());
  };
  constexpr f64 kMost = std::numeric_limits<f64>::max();
  EXPECT_EQ(range("1e-400", "1e400"), std::pair(0.0, kMost));
  EXPECT_EQ(range("-1e400", "-1e-400"), std::pair(-kMost, 0.0));
  EXPECT_EQ(range("0." + std::string(400, '0') + "1", "1" + std::string(400, '0') + "e-5"),
            std::pair(0.0, kMost));
}

TEST(CommandLineTest, WrongCallsSayInGermanWhatIsWrong) {
  expect_wrong({"info"}, "Es fehlt eine Angabe: FILE");
  expect_wrong({"info", ""}, "FILE: kein gültiger Wert");
  expect_wrong({""}, "FILE: kein gültiger Wert");
  expect_wrong({"info", "/a", "1", "/b"}, "Unbekannte Angabe: /b");
  expect_wrong({"--gibtsnicht"}, "Unbekannte Angabe: --gibtsnicht");
  expect_wrong({"render", "/a", "--output"}, "Der Wert fehlt: --output");
}

TEST(CommandLineTest, HelpAndVersionGoToStandardOutput) {
  const auto help = parsed<PrintText>({"--help"}).text;
  EXPECT_NE(help.find("Aufruf"), std::string::npos) << help;
  for (const char* english : {"Usage", "Options", "Subcommands", "REQUIRED"})
    EXPECT_EQ(help.find(english), std::string::npos) << english;
  EXPECT_TRUE(parsed<PrintText>({"--version"}).text.starts_with("Trendaro "));
}

}  // namespace
}  // namespace trendaro
