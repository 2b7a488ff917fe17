#include <QDateTime>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpression>
#include <QSpinBox>
#include <QTimer>
#include <QTreeView>
#include <functional>

#include "window/window_fixture.h"

namespace trendaro {
namespace {

constexpr int kPatience = 30000;  // milliseconds; the columns follow a slow folder

class DialogsTest : public WindowTest {
 protected:
  DialogsTest() { open_window(); }

  // Does `action` with the next modal dialog.
  void in_dialog(std::function<void(QDialog&)> action) {
    QTimer::singleShot(0, window.get(), [this, action = std::move(action)] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      const QPointer<QDialog> open = dialog;
      seen = dialog->objectName();
      action(*dialog);
      if (open && HasFailure()) open->reject();  // the program waits for an answer
    });
  }
  static void press(QDialog& dialog, const char* button) {
    auto* found = dialog.findChild<QPushButton*>(QString::fromUtf8(button));
    ASSERT_NE(found, nullptr) << button;
    found->click();
  }

  QString seen;
};

TEST_F(DialogsTest, QuestionHasGermanButtons) {
  QStringList texts;
  in_dialog([&](QDialog& dialog) {
    for (const auto* button : dialog.findChildren<QPushButton*>())
      texts << button->text().remove(QLatin1Char('&'));
    press(dialog, "Ja");
  });
  EXPECT_TRUE(window_shell.ask_yes_no("Trendaro beenden?", "Programm beenden"));
  EXPECT_EQ(seen, QStringLiteral("MsgBox"));
  texts.sort();
  EXPECT_EQ(texts, (QStringList{QStringLiteral("Ja"), QStringLiteral("Nein")}));
}

TEST_F(DialogsTest, NeinAndClosingAreNo) {
  in_dialog([](QDialog& dialog) { press(dialog, "Nein"); });
  EXPECT_FALSE(window_shell.ask_yes_no("Weiter?", "Frage"));
  in_dialog([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
  EXPECT_FALSE(window_shell.ask_yes_no("Weiter?", "Frage"));
}

TEST_F(DialogsTest, MessageShowsItsTextAsItStands) {
  QString text;
  in_dialog([&](QDialog& dialog) {
    text = dynamic_cast<QMessageBox&>(dialog).text();
    EXPECT_EQ(dynamic_cast<QMessageBox&>(dialog).icon(), QMessageBox::Critical);
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Trendaro"));
    press(dialog, "OK");
  });
  window_shell.show_message("Fehler in <Datei> & Übersicht", kProgramTitle, MessageIcon::Stop);
  EXPECT_EQ(text, QStringLiteral("Fehler in <Datei> & Übersicht"));
}

TEST_F(DialogsTest, BoxesAreWiderThanTheirTitles) {
  const std::string title = "Dateierweiterung der originalen Mervan-Dateien";
  int width = 0;
  const auto measure = [&](QDialog& dialog) {
    QApplication::processEvents();
    width = dialog.width() - dialog.fontMetrics().horizontalAdvance(QString::fromStdString(title));
    dialog.reject();
  };
  in_dialog(measure);
  window_shell.show_message("Ja.", title, MessageIcon::None);
  EXPECT_GE(width, 150);
  in_dialog(measure);
  EXPECT_FALSE(window_shell.ask_yes_no("Weiter?", title));
  EXPECT_GE(width, 150);
  in_dialog(measure);
  EXPECT_EQ(window_shell.ask_text("Wert:", title, ""), "");
  EXPECT_GE(width, 150);
}

TEST_F(DialogsTest, FileDialogShowsSizesAndDatesInGermanAndUncut) {
  const std::string path = folder.file("Lauf.BIN");
  write_file(path, std::string(2048, 'x'));
  QFile file(QString::fromStdString(path));
  ASSERT_TRUE(file.open(QIODevice::ReadWrite));
  ASSERT_TRUE(file.setFileTime(QDateTime(QDate(2021, 10, 5), QTime(7, 8, 9)), QFile::FileModificationTime));
  file.close();
  in_dialog([&](QDialog& dialog) {
    dynamic_cast<QFileDialog&>(dialog).setDirectory(QString::fromStdString(folder.path()));
    auto* list = dialog.findChild<QTreeView*>(QStringLiteral("treeView"));
    ASSERT_NE(list, nullptr);
    const auto* files = qobject_cast<QFileSystemModel*>(list->model());
    ASSERT_NE(files, nullptr);
    const QModelIndex name = files->index(QString::fromStdString(path));
    const auto shown = [&](int column) {
      return list->itemDelegate()->sizeHint({}, name.siblingAtColumn(column)).width();
    };
    const QFontMetrics font = list->fontMetrics();
    EXPECT_GE(shown(3), font.horizontalAdvance(QStringLiteral("05.10.2021 07:08")));
    const int date_width = font.horizontalAdvance(QStringLiteral("05.10.2021 07:08"));
    const auto uncut = [&] { return list->columnWidth(3) >= date_width && list->columnWidth(1) >= shown(1); };
    EXPECT_TRUE(QTest::qWaitFor(uncut, kPatience));
    EXPECT_GT(list->columnWidth(0), 200);
    dialog.reject();
  });
  const FileDialog dialog{"Datei", {{"Alle Dateien", "*.*"}}};

  EXPECT_EQ(window_shell.ask_open_file(dialog), "");
}

TEST_F(DialogsTest, DialogTakesTheWaitPointerAwayForItsTime) {
  const WaitPointer wait(window_shell);
  bool waiting = true;
  in_dialog([&](QDialog& dialog) {
    waiting = QApplication::overrideCursor() != nullptr;
    press(dialog, "OK");
  });
  window_shell.show_message("Text", kProgramTitle, MessageIcon::None);
  EXPECT_FALSE(waiting);
  EXPECT_NE(QApplication::overrideCursor(), nullptr);
}

TEST_F(DialogsTest, InputGivesTheTypedTextAndNothingWhenCancelled) {
  in_dialog([](QDialog& dialog) {
    auto& input = dynamic_cast<QInputDialog&>(dialog);
    EXPECT_EQ(input.textValue(), QStringLiteral("DAT"));
    EXPECT_EQ(input.cancelButtonText(), QStringLiteral("Abbrechen"));
    input.setTextValue(QStringLiteral("BIN"));
    input.accept();
  });
  EXPECT_EQ(window_shell.ask_text("Erweiterung", "Titel", "DAT"), "BIN");
  in_dialog([](QDialog& dialog) { dialog.reject(); });
  EXPECT_EQ(window_shell.ask_text("Erweiterung", "Titel", "DAT"), "");
}

TEST_F(DialogsTest, DatabaseFormGivesTheChosenSize) {
  in_dialog([](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Datenbasis einrichten"));
    auto* channels = dialog.findChild<QSpinBox*>(QStringLiteral("ChannelsBox"));
    auto* samples = dialog.findChild<QSpinBox*>(QStringLiteral("SamplesBox"));
    EXPECT_EQ(channels->value(), 96);
    EXPECT_EQ(samples->value(), 100000);
    QTest::keyClicks(channels, QStringLiteral("12"));  // all of it is selected
    samples->selectAll();
    QTest::keyClicks(samples, QStringLiteral("250000"));
    press(dialog, "OKButton");
  });
  EXPECT_EQ(window_shell.ask_database_size(DatabaseSize()), (DatabaseSize{12, 250000}));
  EXPECT_EQ(seen, QStringLiteral("frmDatabase"));
}

TEST_F(DialogsTest, CancelledDatabaseFormGivesNoSize) {
  in_dialog([](QDialog& dialog) { press(dialog, "CancelButton"); });
  EXPECT_EQ(window_shell.ask_database_size(DatabaseSize()), std::nullopt);
}

TEST_F(DialogsTest, OpenDialogHasTitleFiltersAndGermanButtons) {
  const std::string path = folder.file("a.BIN");
  write_file(path, "x");
  QStringList filters;
  in_dialog([&](QDialog& dialog) {
    auto& box = dynamic_cast<QFileDialog&>(dialog);
    filters = box.nameFilters();
    EXPECT_EQ(box.windowTitle(), QStringLiteral("Datensätze aus Datei einfügen"));
    EXPECT_EQ(box.labelText(QFileDialog::Reject), QStringLiteral("Abbrechen"));
    box.setDirectory(QString::fromStdString(folder.path()));
    box.selectFile(QString::fromStdString(path));
    QMetaObject::invokeMethod(&box, "accept");
  });
  const FileDialog dialog{"Datensätze aus Datei einfügen", {{"*.BIN*", "*.BIN*"}, {"Alle Dateien", "*.*"}}};
  EXPECT_EQ(window_shell.ask_open_file(dialog), path);
  EXPECT_EQ(filters, (QStringList{QStringLiteral("*.BIN*"), QStringLiteral("Alle Dateien (*.*)")}));
}

TEST_F(DialogsTest, SaveDialogAppendsItsEndingToANameWithoutOne) {
  const FileDialog dialog{
      .title = "Speichern", .filters = {{"Messwertdatei(*.MEA)", "*.MEA"}}, .default_ending = "MEA"};
  for (const auto& [typed, chosen] : {std::pair("teil", "teil.MEA"), std::pair("teil.x", "teil.x")}) {
    in_dialog([&](QDialog& shown) {
      auto& box = dynamic_cast<QFileDialog&>(shown);
      EXPECT_EQ(box.nameFilters(), QStringList{QStringLiteral("Messwertdatei(*.MEA)")});
      auto* name = box.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
      EXPECT_EQ(name->text(), QString());
      box.setDirectory(QString::fromStdString(folder.path()));
      name->setText(QString::fromUtf8(typed));
      QMetaObject::invokeMethod(&box, "accept");
    });
    EXPECT_EQ(window_shell.ask_save_file(dialog), folder.file(chosen));
  }
}

TEST_F(DialogsTest, CancelledFileDialogGivesNoName) {
  in_dialog([](QDialog& dialog) { dialog.reject(); });
  EXPECT_EQ(window_shell.ask_save_file({.title = "Speichern", .filters = {{"*.GTP", "*.GTP"}}}), "");
}

TEST_F(DialogsTest, AboutTellsTheVersionAndOkClosesIt) {
  QString version;
  in_dialog([&](QDialog& dialog) {
    version = dialog.findChild<QLabel*>(QStringLiteral("Version"))->text();
    press(dialog, "OK");
  });
  window_shell.show_about();
  EXPECT_EQ(seen, QStringLiteral("About"));
  EXPECT_TRUE(version.contains(QRegularExpression(QStringLiteral("^Version \\d+\\.\\d+\\.\\d+$"))))
      << version.toStdString();
}

TEST_F(DialogsTest, CloseOfTheShellClosesTheWindow) {
  user.yes_no = {true};
  window_shell.close_window();
  EXPECT_FALSE(window->isVisible());
}

}  // namespace
}  // namespace trendaro
