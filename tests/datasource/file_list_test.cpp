#include "datasource/file_list.h"

#include <filesystem>
#include <fstream>

#include "app/commands.h"
#include "datasource/list_fixture.h"

namespace trendaro {
namespace {

using FileListTest = ListFixture;
using Texts = std::vector<std::string>;

TEST_F(FileListTest, PlainFileGivesAFileRowAndItsSignals) {
  const std::string path = add_file("run.BIN", 2);
  ASSERT_EQ(model.Grid.MaxRows(), 3);
  const ChannelRow& file = model.Grid.rows[1];
  EXPECT_EQ(file.kind, RowKind::File);
  EXPECT_EQ(file.check, 1);
  EXPECT_EQ(file.name, "run.BIN");
  EXPECT_EQ(file.path, path);
  EXPECT_EQ(file.picture, "IMG_FILE");
  const ChannelRow& signal = model.Grid.rows[3];
  EXPECT_EQ(signal.kind, RowKind::Signal);
  EXPECT_EQ(signal.check, 0);
  EXPECT_EQ(signal.name, "run.BIN 2");
  EXPECT_EQ(signal.mark, "2");
  EXPECT_EQ(signal.path, path);
  EXPECT_EQ(signal.points, 4);
  EXPECT_EQ(signal.picture, "IMG_SIGNAL");
  EXPECT_EQ(model.NofFiles, 1);
  EXPECT_EQ(model.FileList[1], path);
  EXPECT_FALSE(model.ButtonLock);
  EXPECT_TRUE(model.Grid.redraw);
}

TEST_F(FileListTest, ReducedFileListsTheFirstOfEachPair) {
  add_file("run.st1", 4);
  EXPECT_EQ(row_names(), (Texts{"run.st1", "run.st1 1", "run.st1 3"}));
  EXPECT_EQ(model.Grid.rows[3].mark, "3");
  EXPECT_EQ(model.Grid.rows[3].points, 4);
}

TEST_F(FileListTest, OddChannelOfAReducedFileIsDropped) {
  add_file("run.ST2", 5);
  EXPECT_EQ(row_names(), (Texts{"run.ST2", "run.ST2 1", "run.ST2 3"}));
}

TEST_F(FileListTest, FolderWithADotMakesAReducedFileAPlainOne) {
  std::filesystem::create_directory(folder.file("a.b"));
  const std::string path = make_file("a.b/run.STO", 2);
  open_file(model, path);
  EXPECT_EQ(row_names(), (Texts{"run.STO", "a.b/run.STO 1", "a.b/run.STO 2"}));
}

TEST_F(FileListTest, MemberOfAFamilyBringsTheOthersAlong) {
  for (const char* name : {"run.STO", "run.ST1", "run.ST2"}) make_file(name, 2);
  open_file(model, folder.file("run.ST1"));
  EXPECT_EQ(row_names(), (Texts{"run.STO", "run.STO 1", "run.ST1", "run.ST1 1", "run.ST2", "run.ST2 1"}));
  EXPECT_EQ(model.NofFiles, 3);
  EXPECT_EQ(model.FileList[1], folder.file("run.STO"));
  EXPECT_EQ(model.Grid.top_row, 5);
}

TEST_F(FileListTest, FamilyIsFoundInAnyCase) {
  make_file("run.sto", 2);
  make_file("run.St2", 2);
  open_file(model, folder.file("run.sto"));
  EXPECT_EQ(row_names(), (Texts{"run.sto", "run.sto 1", "run.St2", "run.St2 1"}));
}

TEST_F(FileListTest, VanishedMemberStillAddsTheOthers) {
  make_file("run.ST2", 2);
  open_file(model, folder.file("run.STO"));
  EXPECT_EQ(row_names(), (Texts{"run.ST2", "run.ST2 1"}));
  EXPECT_TRUE(shell.messages().empty());
}

TEST_F(FileListTest, FolderWithTheNameOfAMemberIsNoMember) {
  std::filesystem::create_directory(folder.file("run.STO"));
  make_file("run.ST1", 2);
  open_file(model, folder.file("run.ST1"));
  EXPECT_EQ(row_names(), (Texts{"run.ST1", "run.ST1 1"}));
}

TEST_F(FileListTest, MenuAsksForAFile) {
  shell.files.push_back(make_file("run.BIN", 1));
  mnuOpenFile(model);
  EXPECT_EQ(shell.calls.front(), "open: Datensätze aus Datei einfügen");
  ASSERT_EQ(shell.dialogs.size(), 1U);
  EXPECT_EQ(shell.filters_of(0), "*.ST*|*.ST*|*.REB|*.REB|*.ME*|*.ME*|*.BIN*|*.BIN*|*.*|*.*");
  EXPECT_EQ(model.NofFiles, 1);
}

TEST_F(FileListTest, CancelledDialogDoesNothing) {
  mnuOpenFile(model);
  EXPECT_EQ(model.Grid.MaxRows(), 0);
  EXPECT_TRUE(shell.messages().empty());
}

TEST_F(FileListTest, RefusedFileChangesNothing) {
  add_file("run.BIN", 2);
  write_file(folder.file("text.BIN"), "no measurement");
  AddFileToGrid(model, folder.file("text.BIN"), false);
  AddFileToGrid(model, folder.file("missing.BIN"), false);
  const std::string message = "Trendaro: Diese Datei enthält kein gültiges Format";
  EXPECT_EQ(shell.messages(), (Texts{message, message}));
  EXPECT_EQ(shell.icons, (std::vector{MessageIcon::None, MessageIcon::None}));
  EXPECT_EQ(model.Grid.MaxRows(), 3);
  EXPECT_EQ(model.NofFiles, 1);
}

TEST_F(FileListTest, BrokenHeaderTakesItsRowsBack) {
  add_file("run.BIN", 2);
  FileBuilder broken;
  broken.i16_field(5004).i16_field(-3);
  write_file(folder.file("broken.BIN"), broken.bytes());
  AddFileToGrid(model, folder.file("broken.BIN"), false);
  EXPECT_EQ(shell.messages(), (Texts{"Trendaro: Fehler beim Laden der Datei aufgetreten."}));
  EXPECT_EQ(shell.icons, (std::vector{MessageIcon::Stop}));
  EXPECT_EQ(model.Grid.MaxRows(), 3);
  EXPECT_EQ(model.NofFiles, 1);
  EXPECT_FALSE(model.ButtonLock);
  EXPECT_TRUE(model.Grid.redraw);
}

TEST_F(FileListTest, WithoutListEntryOnlyTheRowsCome) {
  AddFileToGrid(model, make_file("run.BIN", 1), true);
  EXPECT_EQ(model.Grid.MaxRows(), 2);
  EXPECT_EQ(model.NofFiles, 0);
  EXPECT_EQ(model.FileList.size(), 0U);
}

TEST_F(FileListTest, FullFileCounterRefusesTheFile) {
  add_file("other.BIN", 1);
  model.NofFiles = 32767;
  i32 rows_during_message = 0;
  bool locked_during_message = false;
  shell.during_message = [&] {
    rows_during_message = model.Grid.MaxRows();
    locked_during_message = model.ButtonLock;
  };
  AddFileToGrid(model, make_file("run.BIN", 2), false);
  EXPECT_EQ(shell.messages(), (Texts{"Trendaro: Fehler beim Laden der Datei aufgetreten."}));
  // The rows go after the message: two of the first file, three of the refused one.
  EXPECT_EQ(rows_during_message, 5);
  EXPECT_TRUE(locked_during_message);
  EXPECT_EQ(row_names(), (Texts{"other.BIN", "other.BIN 1"}));
  EXPECT_EQ(model.NofFiles, 32767);
  EXPECT_FALSE(model.ButtonLock);
  EXPECT_TRUE(model.Grid.redraw);
}

TEST_F(FileListTest, FullFileCounterLetsRowsWithoutAnEntryIn) {
  model.NofFiles = 32767;
  AddFileToGrid(model, make_file("run.BIN", 1), true);
  EXPECT_EQ(model.Grid.MaxRows(), 2);
  EXPECT_TRUE(shell.messages().empty());
}

TEST_F(FileListTest, FileAddedTwiceAndRemovedOnceLeavesOneBlock) {
  const std::string path = add_file("run.BIN", 2);
  add_file("other.BIN", 1);
  AddFileToGrid(model, path, false);
  model.Grid.active_row = 1;
  RemoveFileFromGrid(model);
  EXPECT_EQ(row_names(), (Texts{"other.BIN", "other.BIN 1", "run.BIN", "run.BIN 1", "run.BIN 2"}));
  EXPECT_EQ(model.NofFiles, 2);
  EXPECT_EQ(model.FileList.size(), 2U);
  EXPECT_EQ(model.FileList[1], folder.file("other.BIN"));
  EXPECT_EQ(model.FileList[2], path);
}

TEST_F(FileListTest, LastFileLeavesAnEmptyList) {
  add_file("run.BIN", 2);
  RemoveFileFromGrid(model);
  EXPECT_EQ(model.Grid.MaxRows(), 0);
  EXPECT_EQ(model.NofFiles, 0);
  EXPECT_EQ(model.Grid.active_row, 0);
  RemoveFileFromGrid(model);
  EXPECT_EQ(model.NofFiles, 0);
}

TEST_F(FileListTest, SignalRowIsNoFileToRemove) {
  add_file("run.BIN", 2);
  model.Grid.active_row = 2;
  RemoveFileFromGrid(model);
  EXPECT_EQ(model.Grid.MaxRows(), 3);
}

TEST_F(FileListTest, RemovalWithoutAMarkLeavesTheGraphsAlone) {
  add_file("run.BIN", 2);
  add_file("other.BIN", 1);
  write_mark(5);
  RemoveFileFromGrid(model);
  EXPECT_EQ(main_redraws(), 0);
  EXPECT_EQ(survey_redraws(), 0);
  EXPECT_EQ(model.Grid.rows[2].mark, "1_1_1");
}

TEST_F(FileListTest, RemovalOfAMarkedSignalRedrawsWhatIsLeft) {
  add_file("run.REB", 2, 8);
  add_file("other.REB", 1, 8);
  mark(2);
  mark(5);
  shell.calls.clear();
  model.MaxViewPoints = 55;
  model.Grid.active_row = 1;
  RemoveFileFromGrid(model);
  EXPECT_EQ(signals(), (Texts{"other.REB 1"}));
  EXPECT_EQ(main_redraws(), 2);  // one of them with the reset of the zoom
  EXPECT_EQ(survey_redraws(), 1);
  EXPECT_EQ(model.MaxViewPoints, 4);
  EXPECT_EQ(model.controls["ZoomPointsBox"].text, "16");  // 4 points, each for half of 8 samples
  EXPECT_TRUE(model.controls["mnuShowSurvGraph"].ticked);
}

TEST_F(FileListTest, RemovalOfTheOnlyPlainFileBringsTheSurveyBack) {
  add_file("run.BIN", 1);
  add_file("other.REB", 1, 8);
  mark(2);
  mark(4);
  EXPECT_FALSE(model.controls["mnuShowSurvGraph"].ticked);
  model.Grid.active_row = 1;
  RemoveFileFromGrid(model);
  EXPECT_TRUE(model.controls["mnuShowSurvGraph"].ticked);
  EXPECT_TRUE(model.controls["PESGSurvey"].visible);
  EXPECT_TRUE(model.controls["TB_SCROLLLEFT"].visible);
}

TEST_F(FileListTest, YellowReadoutGoesWithThePlainFile) {
  add_file("run.BIN", 1);
  add_file("other.BIN", 1);
  add_file("third.REB", 1, 8);
  for (const i32 row : {2, 4, 6}) mark(row);
  model.Grid.active_row = 1;
  RemoveFileFromGrid(model);
  EXPECT_EQ(model.controls["ZoomPointsBox"].back_color, kYellow);
  RemoveFileFromGrid(model);
  EXPECT_EQ(model.controls["ZoomPointsBox"].text, "16");  // 4 points, each for half of 8 samples
  EXPECT_EQ(model.controls["ZoomPointsBox"].back_color, kWhite);
  RemoveFileFromGrid(model);
  EXPECT_EQ(model.controls["ZoomPointsBox"].text, "0");
  EXPECT_EQ(model.controls["ZoomPointsBox"].back_color, kWhite);
}

TEST_F(FileListTest, RemovalWithAZoomLeavesItAndShowsTheSurvey) {
  add_file("run.REB", 1, 8);
  add_file("other.REB", 1, 8);
  mark(2);
  mark(4);
  run_command(model, "mnuShowSurvGraph");
  ASSERT_FALSE(model.controls["PESGSurvey"].visible);
  model.Zoomed = true;
  model.PESG.pending.ScrollingHorzZoom = true;
  model.PESG.pending.ScrollingVertZoom = true;
  shell.calls.clear();
  model.Grid.active_row = 1;
  RemoveFileFromGrid(model);
  EXPECT_FALSE(model.Zoomed);
  EXPECT_TRUE(model.controls["mnuShowSurvGraph"].ticked);
  EXPECT_TRUE(model.controls["PESGSurvey"].visible);
  EXPECT_FALSE(model.PESG.pending.ScrollingHorzZoom);
  EXPECT_FALSE(model.PESG.pending.ScrollingVertZoom);
  EXPECT_EQ(survey_redraws(), 1);
}

TEST_F(FileListTest, RemovalWithAZoomLeavesAShownSurveyShown) {
  add_file("run.REB", 1, 8);
  add_file("other.REB", 1, 8);
  mark(2);
  mark(4);
  model.Zoomed = true;
  model.Grid.active_row = 1;
  RemoveFileFromGrid(model);
  EXPECT_TRUE(model.controls["mnuShowSurvGraph"].ticked);
  EXPECT_TRUE(model.controls["PESGSurvey"].visible);
}

TEST_F(FileListTest, RemovalWithoutAZoomLeavesASurveyHiddenByTheUser) {
  add_file("run.REB", 1, 8);
  add_file("other.REB", 1, 8);
  mark(2);
  mark(4);
  run_command(model, "mnuShowSurvGraph");
  shell.calls.clear();
  model.Grid.active_row = 1;
  RemoveFileFromGrid(model);
  EXPECT_FALSE(model.controls["PESGSurvey"].visible);
  EXPECT_EQ(survey_redraws(), 1);
}

TEST_F(FileListTest, RemovalBesidePlainFilesRedrawsTheHiddenSurvey) {
  add_file("run.BIN", 1);
  add_file("other.BIN", 1);
  add_file("third.BIN", 1);
  for (const i32 row : {2, 4, 6}) mark(row);
  shell.calls.clear();
  model.Grid.active_row = 1;
  RemoveFileFromGrid(model);
  EXPECT_EQ(survey_redraws(), 1);
  EXPECT_FALSE(model.controls["PESGSurvey"].visible);
  EXPECT_FALSE(model.controls["mnuShowSurvGraph"].enabled);
  model.Zoomed = true;
  shell.calls.clear();
  RemoveFileFromGrid(model);
  EXPECT_EQ(signals(), (Texts{"third.BIN 1"}));
  EXPECT_EQ(survey_redraws(), 0);
}

TEST_F(FileListTest, RemovalShowsALargeCountInPlainDigits) {
  const std::vector<f64> samples(200000, 1.5);
  for (const char* name : {"run.REB", "other.REB"}) {
    write_file(folder.file(name), recording_bytes({{"signal", samples}}, 10));
    AddFileToGrid(model, folder.file(name), false);
  }
  mark(2);
  mark(4);
  model.Grid.active_row = 1;
  RemoveFileFromGrid(model);
  // 200000 stored samples, each for half of 10.
  EXPECT_EQ(model.controls["ZoomPointsBox"].text, "1000000");
}

TEST_F(FileListTest, ClosedFileThatMovesUpIntoTheFirstRowIsOpened) {
  add_file("run.BIN", 1);
  add_file("other.BIN", 2);
  add_file("third.BIN", 1);
  click_check_cell(model, 3, 0);
  click_check_cell(model, 6, 0);
  model.Grid.active_row = 1;
  RemoveFileFromGrid(model);
  EXPECT_EQ(model.Grid.rows[1].check, 1);
  EXPECT_FALSE(model.Grid.rows[2].hidden);
  EXPECT_FALSE(model.Grid.rows[3].hidden);
  // A closed file in another row can be opened by a click and stays closed.
  EXPECT_EQ(model.Grid.rows[4].check, 0);
  EXPECT_TRUE(model.Grid.rows[5].hidden);
}

TEST_F(FileListTest, RemovalOfALaterFileLeavesClosedFilesClosed) {
  add_file("run.BIN", 1);
  add_file("other.BIN", 1);
  add_file("third.BIN", 1);
  click_check_cell(model, 3, 0);
  model.Grid.active_row = 5;
  RemoveFileFromGrid(model);
  EXPECT_EQ(model.Grid.rows[3].check, 0);
  EXPECT_TRUE(model.Grid.rows[4].hidden);
}

TEST_F(FileListTest, RemovalMovesTheHighlightedRowAlong) {
  add_file("run.BIN", 2);
  add_file("other.BIN", 1);
  right_click_cell(model, 5, 3);
  model.Grid.active_row = 1;
  RemoveFileFromGrid(model);
  EXPECT_EQ(model.SelectedRow, 2);
  model.Grid.active_row = 1;
  RemoveFileFromGrid(model);
  EXPECT_EQ(model.SelectedRow, 0);
}

TEST_F(FileListTest, CounterGoesDownForAFileThatIsNotListed) {
  add_file("run.BIN", 1);
  AddFileToGrid(model, make_file("other.BIN", 1), true);
  model.Grid.active_row = 3;
  RemoveFileFromGrid(model);
  EXPECT_EQ(model.NofFiles, 0);
}

TEST_F(FileListTest, ExtensionOfTheOriginalsIsAsked) {
  model.OriginalExtension.clear();
  shell.texts = {"BIN", ""};
  mnuFileExtension(model);
  EXPECT_EQ(shell.calls.back(),
            "text: Dateierweiterung der originalen Mervan-Dateien: Um aus der komprimierten Mervan-Datei in "
            "die Originaldatei zu kommen, müssen Sie Trendaro die Dateierweiterung der Originaldatei (z.B. "
            "*.BIN) angeben. [DAT]");
  EXPECT_EQ(model.OriginalExtension, "BIN");
  mnuFileExtension(model);
  EXPECT_EQ(model.OriginalExtension, "BIN");
}

TEST_F(FileListTest, FileMenuRemovesFilesOnlyOutsideOfOriginalData) {
  add_file("run.BIN", 1);
  const auto enabled_at = [&](i32 row, bool original) {
    model.Grid.active_row = row;
    model.OriginalDataMode = original;
    mnuFile(model);
    return model.controls["mnuRemoveFile"].enabled;
  };
  EXPECT_TRUE(enabled_at(1, false));
  EXPECT_FALSE(enabled_at(1, true));
  EXPECT_FALSE(enabled_at(2, false));
  EXPECT_FALSE(enabled_at(0, false));
}

}  // namespace
}  // namespace trendaro
