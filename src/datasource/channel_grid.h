#pragma once

#include <QElapsedTimer>
#include <QTableView>
#include <functional>

#include "app/types.h"
#include "datasource/channel_table.h"

namespace trendaro {

// Grid, the channel list on screen. It holds no state of its own beside what is on screen: the rows, the
// active row and the top row stand in the records, and clicks leave as signals. Rows and columns of the
// signals count from 1.
class ChannelGrid : public QTableView {
  Q_OBJECT

 public:
  ChannelGrid(ChannelRows& rows, const GridState& state, QWidget* parent = nullptr);

  // Brings rows, active row and top row in line with the records.
  void mirror();

  // Width of column 3 for the present width of the list.
  void fit_name_column();

  // Letters typed one soon after the other make up the beginning of a name; the next shown channel whose name
  // begins so becomes active.
  void keyboardSearch(const QString& text) override;

  // Gives the tip of a cell when the pointer rests on it; empty for none.
  std::function<QString(i32 row, i16 column)> tip;

 Q_SIGNALS:
  // The check cell of a row was clicked and is to take the value `check`.
  void check_cell_clicked(int row, int check);
  void row_chosen(int row);
  void cell_right_clicked(int row, int column, const QPoint& global_position);
  // The key that removes the active file.
  void removal_asked();
  // The keys that move a zoomed section to the left or to the right.
  void scroll_asked(bool right);

 protected:
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  // The colour of a row runs on behind its name, to the edge of the list.
  void paintEvent(QPaintEvent* event) override;

 private:
  // The properties that never change. Three columns show; the others stand in the records alone.
  void InitGridLayout();
  void paint_rest_of_row(QPainter& painter, int position) const;
  void toggle(int position);
  void press_space();
  [[nodiscard]] bool typing() const;
  // False when no name begins with `beginning`.
  bool go_to_name(const QString& beginning, i32 from);
  void mirror_active_row();
  void mirror_top_row();
  void note_top_row();

  ChannelRows& rows_;
  ChannelTable* table_;
  QString typed_;  // beginning of a name, as far as it was typed
  QElapsedTimer since_typed_;
  bool mirroring_ = false;  // changes of the view come from the records, not from the user
};

}  // namespace trendaro
