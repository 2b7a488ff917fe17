#include "files/reduce_handlers.h"

#include <algorithm>
#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/commands.h"
#include "app/model.h"
#include "files/loader.h"
#include "support/file_builder.h"
#include "support/recording_shell.h"
#include "support/reducible_files.h"

namespace trendaro {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Pair;

constexpr char kTitle[] = "Mervan-Datei im binären Standardformat komprimieren";
constexpr char kPrompt[] =
    "Trendaro kann binäre Mervan-Dateien bearbeiten. Aus der Originaldatei wird eine komprimierte Datei "
    "erzeugt, "
    "die analog zu TLQplus-Dateien angezeigt werden kann. Geben Sie die Anzahl der Werte an, für die ein "
    "Minimum-Maximum-Paar gebildet werden soll. Wertebereich: 10 bis 10000. Die Werte werden in der "
    "Reihenfolge "
    "des Auftretens in der Datei abgelegt. Die Komprimierung kann einige Zeit dauern.";

class ReduceHandlersTest : public testing::Test {
 protected:
  [[nodiscard]] std::string source() const { return folder_.file("lauf.v2.BIN"); }
  [[nodiscard]] std::string target() const { return folder_.file("lauf.REB"); }
  void write_source() {
    std::vector<f64> samples(40);
    for (std::size_t i = 0; i < samples.size(); ++i) samples[i] = static_cast<f64>(i);
    write_file(source(), StandardFile{.channels = {{.samples = samples}}}.build().bytes());
  }
  static std::string prompt(const std::string& preset) {
    return std::string("text: ") + kTitle + ": " + kPrompt + " [" + preset + "]";
  }

  TemporaryFolder folder_;
  RecordingShell shell_;
  Model model_{shell_};
};

TEST_F(ReduceHandlersTest, ReducesAndTellsTheEnd) {
  write_source();
  shell_.texts = {"20"};
  shell_.files = {source()};
  model_.LastDatabaseStatus = 77;
  std::vector<std::pair<std::string, int>> pointers;
  shell_.during_status = [&](const std::string& text) { pointers.emplace_back(text, shell_.wait_pointers); };
  run_command(model_, "mnuReduceBin");
  EXPECT_THAT(shell_.calls, ElementsAre(prompt("100"), "open: Binärfile zur Komprimierung auswählen",
                                        "status 1: Binäre Mervan-Datei wird reduziert!",
                                        "status 1: Reduzierung abgeschlossen."));
  EXPECT_THAT(pointers, ElementsAre(Pair("Binäre Mervan-Datei wird reduziert!", 1),
                                    Pair("Reduzierung abgeschlossen.", 0)));
  EXPECT_EQ(shell_.filters_of(0), "*.BIN|*.BIN|*.DAT|*.DAT|*.*|*.*");
  EXPECT_EQ(model_.LastDatabaseStatus, 0);
  EXPECT_EQ(model_.FileReduceBlock, 20);
  EXPECT_TRUE(std::filesystem::exists(target()));
}

TEST_F(ReduceHandlersTest, ProgressRisesToTheWholeAndGoes) {
  write_source();
  shell_.texts = {"20"};
  shell_.files = {source()};
  mnuReduceBin(model_);
  ASSERT_GE(shell_.progress.size(), 2U);
  EXPECT_EQ(shell_.progress.back(), -1);
  shell_.progress.pop_back();
  EXPECT_EQ(shell_.progress.back(), 1);
  EXPECT_TRUE(std::is_sorted(shell_.progress.begin(), shell_.progress.end()));
}

TEST_F(ReduceHandlersTest, LastBlockSizeIsTheDefault) {
  model_.FileReduceBlock = 250;
  mnuReduceBin(model_);
  EXPECT_THAT(shell_.calls, ElementsAre(prompt("250")));
}

TEST_F(ReduceHandlersTest, BlockSizeIsTheDefaultUntilAFileIsLoaded) {
  write_source();
  shell_.texts = {"25"};
  shell_.files = {source()};
  mnuReduceBin(model_);
  shell_.calls.clear();
  mnuReduceBin(model_);
  EXPECT_THAT(shell_.calls, ElementsAre(prompt("25")));
  EXPECT_EQ(LoadMeasurementFile(model_, 0, target(), 1, 0), LoadStatus::Done);
  shell_.calls.clear();
  mnuReduceBin(model_);
  EXPECT_THAT(shell_.calls, ElementsAre(prompt("25")));  // that of the reduced file
  EXPECT_EQ(LoadMeasurementFile(model_, 0, source(), 1, 0), LoadStatus::Done);
  shell_.calls.clear();
  mnuReduceBin(model_);
  EXPECT_THAT(shell_.calls, ElementsAre(prompt("100")));
}

TEST_F(ReduceHandlersTest, CancelAndZeroEndTheCommandWithTheDefaultKept) {
  for (const char* answer : {"", "0", "abc", "0.4", "0,5"}) {
    shell_.calls.clear();
    shell_.texts = {answer};
    mnuReduceBin(model_);
    EXPECT_THAT(shell_.calls, ElementsAre(prompt("100"))) << answer;
    EXPECT_EQ(model_.FileReduceBlock, 100);
  }
}

TEST_F(ReduceHandlersTest, AnswerIsRoundedAndTakenByItsLeadingNumber) {
  const std::vector<std::pair<const char*, i32>> rows = {{"12,5 Werte", 12}, {"13.5", 14}, {"9.5", 10},
                                                         {"10000.4", 10000}, {"  64", 64}, {"1e3", 1000}};
  for (const auto& [answer, block] : rows) {
    shell_.texts = {answer};
    mnuReduceBin(model_);
    EXPECT_EQ(model_.FileReduceBlock, block) << answer;
    EXPECT_THAT(shell_.messages(), IsEmpty());
  }
}

TEST_F(ReduceHandlersTest, NumbersOutsideOfTheRangeBecomeTheDefault) {
  for (const char* answer : {"9", "9,4", "10001", "-50", "1e300"}) {
    shell_.calls.clear();
    model_.FileReduceBlock = 500;
    shell_.texts = {answer};
    mnuReduceBin(model_);
    EXPECT_EQ(model_.FileReduceBlock, 100) << answer;
    EXPECT_THAT(shell_.messages(),
                ElementsAre("Trendaro: Der angegebene Komprimierungsfaktor liegt außerhalb des erlaubten "
                            "Wertebereiches und wird auf den Defaultwert 100 zurückgestellt."));
    EXPECT_THAT(shell_.calls.back(), HasSubstr("open: "));  // the command goes on
  }
}

TEST_F(ReduceHandlersTest, NoLeavesAnExistingTarget) {
  write_source();
  write_file(target(), "alt");
  shell_.texts = {"20"};
  shell_.files = {source()};
  mnuReduceBin(model_);
  EXPECT_EQ(shell_.calls.back(), "question: Trendaro: Zieldatei existiert bereits. Fortfahren?");
  EXPECT_EQ(read_file(target()), "alt");
}

TEST_F(ReduceHandlersTest, YesWritesOverAnExistingTarget) {
  write_source();
  write_file(target(), "alt");
  shell_.texts = {"20"};
  shell_.files = {source()};
  shell_.yes_no = {true};
  mnuReduceBin(model_);
  EXPECT_EQ(shell_.calls.back(), "status 1: Reduzierung abgeschlossen.");
  EXPECT_GT(read_file(target()).size(), 100U);
}

TEST_F(ReduceHandlersTest, EachFailureShowsItsWords) {
  struct Row {
    std::string bytes;
    i32 status;
    std::string message;
  };
  const std::string cut = StandardFile{.channels = {{.samples = {1, 2}}}, .points = {100}}.build().bytes();
  for (const Row& row : {Row{FileBuilder().i16_field(5009).zeros(20).bytes(), -2000,
                             "Trendaro: Diese Datei hat ein veraltetes binäres Format."},
                         Row{FileBuilder().i16_field(5003).zeros(20).bytes(), -1000,
                             "Trendaro: Diese Datei hat kein binäres Standardformat."},
                         Row{cut, -1, "Trendaro: Fehler bei Öffnen der Datei aufgetreten."}}) {
    SCOPED_TRACE(row.message);
    write_file(source(), row.bytes);
    shell_.calls.clear();
    shell_.texts = {"20"};
    shell_.files = {source()};
    shell_.yes_no = {true};
    shell_.during_message = [&] { EXPECT_EQ(shell_.wait_pointers, 0); };
    mnuReduceBin(model_);
    EXPECT_EQ(model_.LastDatabaseStatus, row.status);
    EXPECT_EQ(shell_.progress.back(), -1);
    EXPECT_THAT(shell_.calls, testing::Contains("status 1: Fehler bei Reduzierung aufgetreten."));
    EXPECT_THAT(shell_.messages(), testing::Contains(row.message));
  }
}

TEST(ReducedFileNameTest, NameUpToItsFirstDotGetsTheEnding) {
  EXPECT_EQ(reduced_file_name("/a/b.c/lauf.BIN"), "/a/b.c/lauf.REB");
  EXPECT_EQ(reduced_file_name("/a/lauf.v2.dat"), "/a/lauf.REB");
  EXPECT_EQ(reduced_file_name("/a/b.c/lauf"), "/a/b.c/lauf.REB");
  EXPECT_EQ(reduced_file_name("C:\\Daten\\lauf.BIN"), "C:\\Daten\\lauf.REB");
  EXPECT_EQ(reduced_file_name("/lauf.BIN"), "/lauf.REB");
  EXPECT_EQ(reduced_file_name("lauf.BIN"), "lauf.REB");
}

}  // namespace
}  // namespace trendaro
