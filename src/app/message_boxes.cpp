#include "app/message_boxes.h"

#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

#include "app/qt_text.h"

namespace trendaro {
namespace {

// Long prompts wrap at this width, in pixels.
constexpr int kPromptWidth = 460;

QMessageBox::Icon box_icon(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::Information:
      return QMessageBox::Information;
    case MessageIcon::Question:
      return QMessageBox::Question;
    case MessageIcon::Stop:
      return QMessageBox::Critical;
    case MessageIcon::None:
      break;
  }
  return QMessageBox::NoIcon;
}

void prepare(QMessageBox& box, const QString& text, const QString& title) {
  box.setObjectName(QStringLiteral("MsgBox"));
  box.setWindowTitle(title);
  box.setTextFormat(Qt::PlainText);
  box.setText(text);
}

// "Text (*.A)", or the pattern alone where it is the text as well.
QString name_filter(const FileFilter& filter) {
  if (filter.caption == filter.pattern) return qt_text(filter.pattern);
  return QStringLiteral("%1 (%2)").arg(qt_text(filter.caption), qt_text(filter.pattern));
}

// The mode comes first, because setting it takes the buttons' texts back.
void prepare(QFileDialog& box, const FileDialog& dialog, const QString& folder,
             QFileDialog::AcceptMode mode) {
  box.setAcceptMode(mode);
  box.setObjectName(QStringLiteral("FileDialog"));
  box.setWindowTitle(qt_text(dialog.title));
  box.setOption(QFileDialog::DontUseNativeDialog);
  box.setDirectory(folder);
  QStringList filters;
  for (const FileFilter& filter : dialog.filters) filters << name_filter(filter);
  if (!filters.empty()) box.setNameFilters(filters);
  if (!dialog.default_name.empty()) box.selectFile(qt_text(dialog.default_name));
  box.setLabelText(QFileDialog::Reject, QStringLiteral("Abbrechen"));
}

QString chosen_file(QFileDialog& box) {
  if (box.exec() != QDialog::Accepted) return {};
  const QStringList files = box.selectedFiles();
  return files.empty() ? QString() : files.first();
}

}  // namespace

void show_message_box(QWidget* parent, const QString& text, const QString& title, MessageIcon icon) {
  QMessageBox box(parent);
  prepare(box, text, title);
  box.setIcon(box_icon(icon));
  box.addButton(QStringLiteral("OK"), QMessageBox::AcceptRole)->setObjectName(QStringLiteral("OK"));
  box.exec();
}

bool ask_yes_no_box(QWidget* parent, const QString& text, const QString& title) {
  QMessageBox box(parent);
  prepare(box, text, title);
  box.setIcon(QMessageBox::Question);
  QPushButton* yes = box.addButton(QStringLiteral("&Ja"), QMessageBox::YesRole);
  QPushButton* no = box.addButton(QStringLiteral("&Nein"), QMessageBox::NoRole);
  yes->setObjectName(QStringLiteral("Ja"));
  no->setObjectName(QStringLiteral("Nein"));
  box.setDefaultButton(yes);
  box.setEscapeButton(no);
  box.exec();
  return box.clickedButton() == yes;
}

QString ask_text_box(QWidget* parent, const QString& prompt, const QString& title, const QString& preset) {
  QInputDialog box(parent);
  box.setObjectName(QStringLiteral("InputBox"));
  box.setWindowTitle(title);
  box.setLabelText(prompt);
  for (QLabel* label : box.findChildren<QLabel*>()) {
    label->setWordWrap(true);
    label->setMinimumWidth(kPromptWidth);
  }
  box.setTextValue(preset);
  box.setOkButtonText(QStringLiteral("OK"));
  box.setCancelButtonText(QStringLiteral("Abbrechen"));
  return box.exec() == QDialog::Accepted ? box.textValue() : QString();
}

QString ask_open_file_box(QWidget* parent, const FileDialog& dialog, const QString& folder) {
  QFileDialog box(parent);
  prepare(box, dialog, folder, QFileDialog::AcceptOpen);
  box.setFileMode(QFileDialog::ExistingFile);
  box.setLabelText(QFileDialog::Accept, QStringLiteral("Öffnen"));
  return chosen_file(box);
}

QString ask_save_file_box(QWidget* parent, const FileDialog& dialog, const QString& folder) {
  QFileDialog box(parent);
  prepare(box, dialog, folder, QFileDialog::AcceptSave);
  box.setFileMode(QFileDialog::AnyFile);
  box.setLabelText(QFileDialog::Accept, QStringLiteral("Speichern"));
  return chosen_file(box);
}

}  // namespace trendaro
