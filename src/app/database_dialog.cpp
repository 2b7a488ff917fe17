#include "app/database_dialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QSpinBox>

namespace trendaro {
namespace {

constexpr qint64 kSampleBytes = 8;
constexpr int kLeastWidth = 420;  // pixels; the title is not cut

QDialogButtonBox* make_buttons(QDialog& dialog) {
  auto* buttons = new QDialogButtonBox(&dialog);
  QPushButton* ok = buttons->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole);
  QPushButton* cancel = buttons->addButton(QStringLiteral("Abbrechen"), QDialogButtonBox::RejectRole);
  ok->setObjectName(QStringLiteral("OKButton"));
  cancel->setObjectName(QStringLiteral("CancelButton"));
  ok->setDefault(true);
  QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  return buttons;
}

}  // namespace

DatabaseDialog::DatabaseDialog(const DatabaseSize& size, QWidget* parent)
    : QDialog(parent),
      channels_(add_box("ChannelsBox", kSmallestDatabase.channels, kLargestDatabase.channels, size.channels)),
      samples_(add_box("SamplesBox", kSmallestDatabase.samples, kLargestDatabase.samples, size.samples)),
      memory_(new QLabel(this)) {
  setObjectName(QStringLiteral("frmDatabase"));
  setWindowTitle(QStringLiteral("Datenbasis einrichten"));
  setMinimumWidth(kLeastWidth);
  auto* form = new QFormLayout(this);
  form->addRow(QStringLiteral("Anzahl der &Kanäle:"), channels_);
  form->addRow(QStringLiteral("&Werte je Kanal:"), samples_);
  form->addRow(QStringLiteral("Speicherbedarf, voll belegt:"), memory_);
  form->addRow(make_buttons(*this));
  connect(channels_, &QSpinBox::valueChanged, this, &DatabaseDialog::show_memory);
  connect(samples_, &QSpinBox::valueChanged, this, &DatabaseDialog::show_memory);
  show_memory();
  channels_->selectAll();
}

QSpinBox* DatabaseDialog::add_box(const char* name, int smallest, int largest, int value) {
  auto* box = new QSpinBox(this);
  box->setObjectName(QString::fromLatin1(name));
  box->setRange(smallest, largest);
  box->setValue(value);
  box->setGroupSeparatorShown(true);
  box->setAlignment(Qt::AlignRight);
  return box;
}

DatabaseSize DatabaseDialog::size_chosen() const {
  return {static_cast<i16>(channels_->value()), samples_->value()};
}

void DatabaseDialog::show_memory() {
  memory_->setText(QLocale().formattedDataSize(kSampleBytes * channels_->value() * samples_->value(), 1,
                                               QLocale::DataSizeTraditionalFormat));
}

}  // namespace trendaro
