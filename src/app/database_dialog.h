#pragma once

#include <QDialog>

#include "app/database_size.h"

class QLabel;
class QSpinBox;

namespace trendaro {

// The form frmDatabase: how many channels the database has and how many samples each of them takes.
class DatabaseDialog : public QDialog {
  Q_OBJECT

 public:
  explicit DatabaseDialog(const DatabaseSize& size, QWidget* parent = nullptr);

  [[nodiscard]] DatabaseSize size_chosen() const;

 private:
  QSpinBox* add_box(const char* name, int smallest, int largest, int value);
  // What the database takes when every channel is full.
  void show_memory();

  QSpinBox* channels_;
  QSpinBox* samples_;
  QLabel* memory_;
};

}  // namespace trendaro
