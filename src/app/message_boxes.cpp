#include "app/message_boxes.h"

#include <QFileDialog>
#include <QGridLayout>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <algorithm>

#include "app/file_dialog.h"
#include "app/window_text.h"

namespace trendaro {
namespace {

// Long prompts wrap at this width, in pixels.
constexpr int kPromptWidth = 460;
// What the frame of a window needs beside its title: picture, buttons and gaps, in pixels.
constexpr int kFrameButtons = 200;

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

// Width of a box whose title is not cut. The desktop's titles may be bold and somewhat larger than texts.
int width_for_title(const QWidget& box) {
  QFont font = box.font();
  font.setBold(true);
  return QFontMetrics(font).horizontalAdvance(box.windowTitle()) * 5 / 4 + kFrameButtons;
}

// A message box lays itself out for its text and buttons alone; a row of that width makes it as wide as its
// title. It stands last, as every change of the box makes a new layout.
void widen_for_title(QMessageBox& box) {
  auto* grid = qobject_cast<QGridLayout*>(box.layout());
  if (grid == nullptr) return;
  auto* width = new QSpacerItem(width_for_title(box), 0, QSizePolicy::Minimum, QSizePolicy::Fixed);
  grid->addItem(width, grid->rowCount(), 0, 1, grid->columnCount());
}

// Shows the box until it is answered. Without a window manager nobody else gives it the keyboard.
int answer(QDialog& box) {
  QTimer::singleShot(0, &box, &QWidget::activateWindow);
  return box.exec();
}

QString chosen_file(QFileDialog& box) {
  if (answer(box) != QDialog::Accepted) return {};
  const QStringList files = box.selectedFiles();
  return files.empty() ? QString() : files.first();
}

}  // namespace

void show_message_box(QWidget* parent, const QString& text, const QString& title, MessageIcon icon) {
  QMessageBox box(parent);
  prepare(box, text, title);
  box.setIcon(box_icon(icon));
  box.addButton(QStringLiteral("OK"), QMessageBox::AcceptRole)->setObjectName(QStringLiteral("OK"));
  widen_for_title(box);
  answer(box);
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
  widen_for_title(box);
  answer(box);
  return box.clickedButton() == yes;
}

QString ask_text_box(QWidget* parent, const QString& prompt, const QString& title, const QString& preset) {
  QInputDialog box(parent);
  box.setObjectName(QStringLiteral("InputBox"));
  box.setWindowTitle(title);
  box.setLabelText(prompt);
  for (QLabel* label : box.findChildren<QLabel*>()) {
    label->setWordWrap(true);
    label->setMinimumWidth(std::max(kPromptWidth, width_for_title(box)));
  }
  box.setTextValue(preset);
  box.setOkButtonText(QStringLiteral("OK"));
  box.setCancelButtonText(QStringLiteral("Abbrechen"));
  return answer(box) == QDialog::Accepted ? box.textValue() : QString();
}

QString ask_open_file_box(QWidget* parent, const FileDialog& dialog, const QString& folder) {
  QFileDialog box(parent);
  prepare_open_dialog(box, dialog, folder);
  return chosen_file(box);
}

QString ask_save_file_box(QWidget* parent, const FileDialog& dialog, const QString& folder) {
  QFileDialog box(parent);
  prepare_save_dialog(box, dialog, folder);
  return chosen_file(box);
}

}  // namespace trendaro
