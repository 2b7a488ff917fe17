#pragma once

#include <QDialog>

#include "app/shell.h"

class QHBoxLayout;
class QPushButton;
class QTableWidget;

namespace trendaro {

// frmChanInfo: InfoGrid with an item and its value in each row, and buttons to copy and to print the rows.
class ChannelInfoDialog : public QDialog {
  Q_OBJECT

 public:
  // `form` must outlive the dialog.
  explicit ChannelInfoDialog(const ChannelInfoForm& form, QWidget* parent = nullptr);

 private:
  void fill(const ChannelInfoForm& form);
  void fit_to_rows();
  QHBoxLayout* make_buttons(const ChannelInfoForm& form);
  QPushButton* add_button(QHBoxLayout* row, const char* name, const QString& text);

  QTableWidget* grid_;
};

}  // namespace trendaro
