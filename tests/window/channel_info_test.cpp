#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QTableWidget>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>
#include <QTimer>
#include <functional>

#include "datasource/grid_handlers.h"
#include "files/channel_info_handlers.h"
#include "files/channel_info_print.h"
#include "window/window_fixture.h"

namespace trendaro {
namespace {

// Forms and dialogs go to the real window, what they say in the status bar to the recording user.
class FormShell : public RecordingShell {
 public:
  explicit FormShell(WindowShell& shell) : window_shell(shell) {}
  void show_channel_info(const ChannelInfoForm& form) override { window_shell.show_channel_info(form); }
  void copy_text(const std::string& text) override { window_shell.copy_text(text); }
  void print_channel_info(const std::string& headline, const std::vector<ChannelInfoRow>& rows) override {
    window_shell.print_channel_info(headline, rows);
  }

 private:
  WindowShell& window_shell;
};

class ChannelInfoWindowTest : public WindowTest {
 protected:
  ChannelInfoWindowTest() {
    form_model.Host = &host;
    form_model.TemplateFolder = folder.path();
    load_main_window(form_model);
    form_window = std::make_unique<Kelmira>(form_model, window_shell);
    form_window->show();
    QApplication::processEvents();
    StandardFile file;
    for (const char* name : {"Kraft", "Weg"}) file.channels.push_back({.name = name, .samples = {1, 2}});
    write_file(folder.file("run.BIN"), file.build().bytes());
    form_window->run([&] { open_file(form_model, folder.file("run.BIN")); });
  }

  // Opens the form by `open` and does `action` with it; the form closes by its button.
  void in_form(const std::function<void()>& open, std::function<void(QDialog&)> action) {
    QTimer::singleShot(0, form_window.get(), [this, action = std::move(action)] {
      auto* form = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(form, nullptr);
      ASSERT_EQ(form->objectName(), QStringLiteral("frmChanInfo"));
      ++forms;
      action(*form);
      QTest::mouseClick(form->findChild<QWidget*>(QStringLiteral("OKButton")), Qt::LeftButton);
    });
    form_window->run(open);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  }
  static void click(QDialog& form, const char* button) {
    QTest::mouseClick(form.findChild<QWidget*>(QString::fromUtf8(button)), Qt::LeftButton);
  }
  static QString text(QDialog& form, int row, int column) {
    return form.findChild<QTableWidget*>(QStringLiteral("InfoGrid"))->item(row, column)->text();
  }
  void mark(i32 row) {
    form_window->run([&] { click_check_cell(form_model, row, 1); });
  }

  FormShell form_user{window_shell};
  Model form_model{form_user};
  std::unique_ptr<Kelmira> form_window;
  int forms = 0;
};

TEST_F(ChannelInfoWindowTest, FormShowsItemsAndValues) {
  activate_row(form_model, 3);
  in_form([&] { mnuShowChanInfo(form_model); },
          [](QDialog& form) {
            EXPECT_EQ(form.windowTitle(), QStringLiteral("Kanalinformationen"));
            const auto* rows = form.findChild<QTableWidget*>(QStringLiteral("InfoGrid"));
            ASSERT_EQ(rows->rowCount(), 28);
            EXPECT_EQ(rows->columnCount(), 2);
            EXPECT_EQ(text(form, 0, 0), QStringLiteral("Weg"));
            EXPECT_TRUE(rows->item(0, 0)->font().bold());
            EXPECT_FALSE(rows->item(1, 0)->font().bold());
            EXPECT_EQ(text(form, 1, 0), QStringLiteral("Werte"));
            EXPECT_EQ(text(form, 1, 1), QStringLiteral("2"));
            EXPECT_EQ(text(form, 27, 0), QStringLiteral("Brückenfaktor"));
          });
  EXPECT_EQ(forms, 1);
}

TEST_F(ChannelInfoWindowTest, SecondColumnTakesTheLongestText) {
  form_model.InfoGrid = {{"Kommentar", std::string(128, 'W')}};
  form_model.Grid.active_row = 0;
  in_form([&] { mnuShowChanInfo(form_model); },
          [](QDialog& form) {
            const auto* rows = form.findChild<QTableWidget*>(QStringLiteral("InfoGrid"));
            EXPECT_GE(rows->columnWidth(1), rows->fontMetrics().horizontalAdvance(QString(128, u'W')));
          });
  EXPECT_EQ(forms, 1);
}

TEST_F(ChannelInfoWindowTest, FormIsAsHighAsItsRows) {
  form_model.InfoGrid.assign(10, {"Name", "Wert"});
  form_model.Grid.active_row = 0;
  in_form([&] { mnuShowChanInfo(form_model); },
          [](QDialog& form) {
            const auto* rows = form.findChild<QTableWidget*>(QStringLiteral("InfoGrid"));
            EXPECT_EQ(rows->viewport()->height(), 10 * rows->rowHeight(0));
          });
  EXPECT_EQ(forms, 1);
}

TEST_F(ChannelInfoWindowTest, ToolShowsAllPlots) {
  mark(2);
  mark(3);
  auto* button = form_window->findChild<QWidget*>(QStringLiteral("TB_INFO"));
  in_form([&] { QTest::mouseClick(button, Qt::LeftButton); },
          [](QDialog& form) {
            EXPECT_EQ(form.windowTitle(), QStringLiteral("Informationen aller dargestellten Kanäle"));
            ASSERT_EQ(form.findChild<QTableWidget*>(QStringLiteral("InfoGrid"))->rowCount(), 56);
            EXPECT_EQ(text(form, 28, 0), QStringLiteral("Weg"));
          });
  EXPECT_EQ(forms, 1);
}

TEST_F(ChannelInfoWindowTest, ButtonCopiesTheRows) {
  activate_row(form_model, 2);
  in_form([&] { mnuShowChanInfo(form_model); }, [](QDialog& form) { click(form, "ClipBoardButton"); });
  const QString copied = QGuiApplication::clipboard()->text();
  EXPECT_TRUE(copied.startsWith(QStringLiteral("Kraft\t\r\nWerte\t2\r\n"))) << copied.toStdString();
  EXPECT_EQ(copied.count(QStringLiteral("\r\n")), 28);
}

TEST_F(ChannelInfoWindowTest, ButtonAsksForThePrinterAndSaysSo) {
  activate_row(form_model, 2);
  bool asked = false;
  in_form([&] { mnuShowChanInfo(form_model); },
          [&](QDialog& form) {
            QTimer::singleShot(0, &form, [&asked] {
              auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
              ASSERT_NE(dialog, nullptr);
              asked = dialog->objectName() == QStringLiteral("PrintDialog");
              dialog->reject();
            });
            click(form, "PrintButton");
          });
  EXPECT_TRUE(asked);
  EXPECT_EQ(form_user.calls.back(), "status 1: Kanalinformationen werden gedruckt");
}

TEST_F(ChannelInfoWindowTest, PrintGoesWhereTheDialogSays) {
  activate_row(form_model, 2);
  const std::string target = folder.file("gedruckt.pdf");
  in_form([&] { mnuShowChanInfo(form_model); },
          [&](QDialog& form) {
            QTimer::singleShot(0, &form, [&target] {
              auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
              ASSERT_NE(dialog, nullptr);
              auto* printers = dialog->findChild<QComboBox*>(QStringLiteral("printers"));
              auto* file = dialog->findChild<QLineEdit*>(QStringLiteral("filename"));
              ASSERT_TRUE(printers != nullptr && file != nullptr);
              printers->setCurrentIndex(printers->count() - 1);  // the file stands behind all printers
              file->setText(QString::fromStdString(target));
              dialog->accept();
            });
            click(form, "PrintButton");
          });
  EXPECT_EQ(forms, 1);
  EXPECT_TRUE(read_file(target).starts_with("%PDF-"));
}

TEST_F(ChannelInfoWindowTest, PageHasACentredBoldLineAndBoldHeadings) {
  const auto page = channel_info_page(QStringLiteral("Überschrift"),
                                      {{"Kraft", "", true}, {"Werte", "3"}, {"Kommentar", "a < b"}});
  const QTextBlock first = page->begin();
  EXPECT_EQ(first.text(), QStringLiteral("Überschrift"));
  EXPECT_EQ(first.blockFormat().alignment(), Qt::AlignHCenter);
  EXPECT_EQ(first.begin().fragment().charFormat().fontWeight(), QFont::Bold);
  const QList<QTextFrame*> frames = page->rootFrame()->childFrames();
  ASSERT_EQ(frames.size(), 1);
  auto* table = qobject_cast<QTextTable*>(frames.front());
  ASSERT_NE(table, nullptr);
  ASSERT_EQ(table->rows(), 3);
  const auto block = [&](int row, int column) {
    return table->cellAt(row, column).firstCursorPosition().block();
  };
  EXPECT_EQ(block(0, 0).begin().fragment().charFormat().fontWeight(), QFont::Bold);
  EXPECT_EQ(block(1, 0).begin().fragment().charFormat().fontWeight(), QFont::Normal);
  EXPECT_EQ(block(2, 1).text(), QStringLiteral("a < b"));
}

TEST_F(ChannelInfoWindowTest, PrintedPagesGoIntoAFile) {
  QPrinter printer;
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(QString::fromStdString(folder.file("info.pdf")));
  channel_info_page(QStringLiteral("Kanalinformationen"), {{"Kraft", "", true}})->print(&printer);
  EXPECT_TRUE(read_file(folder.file("info.pdf")).starts_with("%PDF-"));
}

}  // namespace
}  // namespace trendaro
