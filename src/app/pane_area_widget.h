#pragma once

#include <QWidget>

#include "app/pane_layout.h"

class QComboBox;
class QLabel;

namespace trendaro {

class ChannelGrid;
class GraphWidget;
class PaneSeparator;
struct Model;

// What stands between toolbar and status bar: the list column, the two graphs and the separators.
class PaneArea : public QWidget {
  Q_OBJECT

 public:
  explicit PaneArea(Model& model, QWidget* parent = nullptr);

  // Brings all panes in line with the model.
  void mirror();

  [[nodiscard]] ChannelGrid& grid() { return *grid_; }
  [[nodiscard]] QComboBox& x_source() { return *x_source_; }
  [[nodiscard]] GraphWidget& graph() { return *graph_; }
  [[nodiscard]] GraphWidget& survey() { return *survey_; }

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  [[nodiscard]] WindowFrame frame() const;
  void place_panes();
  void mirror_x_source();

  Model& model_;
  PaneSplit split_;
  QLabel* label_;
  QComboBox* x_source_;
  ChannelGrid* grid_;
  PaneSeparator* separator_;
  GraphWidget* graph_;
  PaneSeparator* separator_graph_;
  GraphWidget* survey_;
};

}  // namespace trendaro
