#include "app/pane_area_widget.h"

#include <QComboBox>
#include <QLabel>

#include "app/model.h"
#include "app/pane_separator_widget.h"
#include "app/panes.h"
#include "app/window_text.h"
#include "datasource/channel_grid.h"
#include "graph/graph_widget.h"

namespace trendaro {
namespace {

// An empty place hides the pane, so that it takes no focus either.
void place(QWidget& pane, const PaneRect& where) {
  pane.setGeometry(where.left, where.top, where.width, where.height);
  pane.setVisible(where.width > 0 && where.height > 0);
}

}  // namespace

PaneArea::PaneArea(Model& model, QWidget* parent)
    : QWidget(parent),
      model_(model),
      label_(new QLabel(QStringLiteral("x-Daten der Kurven"), this)),
      x_source_(new QComboBox(this)),
      grid_(new ChannelGrid(model.Grid, model, this)),
      separator_(new PaneSeparator(Qt::Vertical, this)),
      graph_(new GraphWidget(model.PESG, GraphRole::Detail, this)),
      separator_graph_(new PaneSeparator(Qt::Horizontal, this)),
      survey_(new GraphWidget(model.PESGSurvey, GraphRole::Survey, this)) {
  label_->setObjectName(QStringLiteral("Label1"));
  label_->setBuddy(x_source_);
  x_source_->setObjectName(QStringLiteral("xSrc"));
  x_source_->setAccessibleName(QStringLiteral("x-Daten der Kurven"));
  separator_->setObjectName(QStringLiteral("Separator"));
  separator_graph_->setObjectName(QStringLiteral("SeparatorGraph"));
  graph_->setObjectName(QStringLiteral("PESG"));
  graph_->setAccessibleName(QStringLiteral("Ausschnittsgraphik"));
  survey_->setObjectName(QStringLiteral("PESGSurvey"));
  survey_->setAccessibleName(QStringLiteral("Übersichtsgraphik"));
  connect(separator_, &PaneSeparator::dragged, this, [this](int x) {
    drag_separator(split_, with_visible_panes(model_, frame()), x);
    place_panes();
  });
  connect(separator_graph_, &PaneSeparator::dragged, this, [this](int y) {
    drag_separator_graph(split_, with_visible_panes(model_, frame()), y);
    place_panes();
  });
}

// Toolbar and status bar stand outside of this area.
WindowFrame PaneArea::frame() const {
  return {.width = width(), .height = height()};
}

void PaneArea::place_panes() {
  const PaneLayout layout = pane_layout(model_, frame(), split_);
  place(*label_, layout.Label1);
  place(*x_source_, layout.xSrc);
  place(*grid_, layout.Grid);
  place(*separator_, layout.Separator);
  place(*graph_, layout.PESG);
  place(*separator_graph_, layout.SeparatorGraph);
  place(*survey_, layout.PESGSurvey);
  grid_->fit_name_column();
}

void PaneArea::resizeEvent(QResizeEvent*) {
  place_panes();
}

void PaneArea::mirror() {
  place_panes();
  mirror_x_source();
  grid_->mirror();
  graph_->mirror();
  survey_->mirror();
}

void PaneArea::mirror_x_source() {
  const XSourceBox& box = model_.xSrc;
  for (int entry = 0; entry < static_cast<int>(box.entries.size()); ++entry) {
    const QString text = qt_text(box.entries[static_cast<std::size_t>(entry)].text);
    if (entry >= x_source_->count())
      x_source_->addItem(text);
    else if (x_source_->itemText(entry) != text)
      x_source_->setItemText(entry, text);
  }
  x_source_->setCurrentIndex(box.ListIndex);
  x_source_->setEnabled(model_.controls["xSrc"].enabled);
}

}  // namespace trendaro
