#include "app/file_dialog.h"

#include <QFileDialog>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QLocale>
#include <QScreen>
#include <QStyledItemDelegate>
#include <QTreeView>

#include "app/window_text.h"

namespace trendaro {
namespace {

constexpr QSize kWishedSize(900, 560);  // pixels
constexpr int kColumnMargin = 12;
constexpr int kNameColumn = 0;
constexpr int kSizeColumn = 1;
constexpr int kDateColumn = 3;

// Sizes and dates in German; the toolkit writes those in the language of the system.
class GermanFiles : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const QSize size = QStyledItemDelegate::sizeHint(option, index);
    return {size.width() + kColumnMargin, size.height()};
  }

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    const auto* files = qobject_cast<const QFileSystemModel*>(index.model());
    if (files == nullptr) return;
    if (index.column() == kDateColumn)
      option->text = files->lastModified(index).toString(QStringLiteral("dd.MM.yyyy hh:mm"));
    if (index.column() == kSizeColumn && !files->isDir(index))
      option->text = QLocale().formattedDataSize(files->size(index), 1, QLocale::DataSizeTraditionalFormat);
  }
};

void fit_columns(QFileDialog& box) {
  const auto* list = box.findChild<QTreeView*>(QStringLiteral("treeView"));
  if (list == nullptr) return;
  QHeaderView* header = list->header();
  header->setStretchLastSection(false);
  header->setSectionResizeMode(QHeaderView::ResizeToContents);
  header->setSectionResizeMode(kNameColumn, QHeaderView::Stretch);
}

// "Text (*.A)", or the text alone where it is the pattern or names it in brackets already.
QString name_filter(const FileFilter& filter) {
  if (filter.caption == filter.pattern || filter.caption.ends_with("(" + filter.pattern + ")"))
    return qt_text(filter.caption);
  return QStringLiteral("%1 (%2)").arg(qt_text(filter.caption), qt_text(filter.pattern));
}

// The mode comes first, because setting it takes the buttons' texts back.
void prepare(QFileDialog& box, const FileDialog& dialog, const QString& folder,
             QFileDialog::AcceptMode mode) {
  box.setAcceptMode(mode);
  box.setObjectName(QStringLiteral("FileDialog"));
  box.setWindowTitle(qt_text(dialog.title));
  box.setOption(QFileDialog::DontUseNativeDialog);
  box.setItemDelegate(new GermanFiles(&box));
  fit_columns(box);
  box.resize(kWishedSize.boundedTo(box.screen()->availableSize() * 0.9));
  box.setDirectory(folder);
  QStringList filters;
  for (const FileFilter& filter : dialog.filters) filters << name_filter(filter);
  if (!filters.empty()) box.setNameFilters(filters);
  box.setDefaultSuffix(qt_text(dialog.default_ending));
  if (!dialog.default_name.empty()) box.selectFile(qt_text(dialog.default_name));
  box.setLabelText(QFileDialog::Reject, QStringLiteral("Abbrechen"));
}

}  // namespace

void prepare_open_dialog(QFileDialog& box, const FileDialog& dialog, const QString& folder) {
  prepare(box, dialog, folder, QFileDialog::AcceptOpen);
  box.setFileMode(QFileDialog::ExistingFile);
  box.setLabelText(QFileDialog::Accept, QStringLiteral("Öffnen"));
}

void prepare_save_dialog(QFileDialog& box, const FileDialog& dialog, const QString& folder) {
  prepare(box, dialog, folder, QFileDialog::AcceptSave);
  box.setFileMode(QFileDialog::AnyFile);
  box.setLabelText(QFileDialog::Accept, QStringLiteral("Speichern"));
}

}  // namespace trendaro
