#pragma once

#include <QMainWindow>
#include <functional>
#include <string>
#include <vector>

namespace trendaro {

class GraphWidget;
class MenuBar;
class PaneArea;
class StatusBar;
class ToolBar;
class WindowShell;
struct GraphEvent;
class GraphSurface;
struct Model;

// The main window. Widgets tell it what the user did; it calls the handler of the model and then mirrors the
// model into all widgets.
class Kelmira : public QMainWindow {
  Q_OBJECT

 public:
  // Both must outlive the window. The shell shows its dialogs over this window from now on.
  Kelmira(Model& model, WindowShell& shell);
  ~Kelmira() override;

  // Calls a handler and mirrors what it left. A failure that the handler lets out is told to the user.
  void run(const std::function<void()>& handler);

  // Brings all widgets in line with the model.
  void mirror();

 Q_SIGNALS:
  // The window was closed and all that belongs to it is put away.
  void unloaded();

 protected:
  bool event(QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void connect_menus();
  void connect_tool_bar();
  void connect_list();
  void connect_graph(GraphWidget& widget, const GraphSurface& graph);
  void guarded(const std::function<void()>& handler);
  void follow_graph(const GraphSurface& graph, const GraphEvent& event);
  void wipe_menu_off();
  void open_channel_menu(int row, int column, const QPoint& global_position);
  void remove_active_file();
  void open_dropped(const std::vector<std::string>& paths);
  void look_for_host();
  void check_host();

  Model& model_;
  WindowShell& shell_;
  MenuBar* menu_bar_;
  ToolBar* tool_bar_;
  PaneArea* panes_;
  StatusBar* status_bar_;
  int files_seen_ = 0;        // files of the list when the widgets were last brought in line
  bool cursor_seen_ = false;  // a cursor was on then
  int handlers_at_work_ = 0;
  bool host_unseen_ = false;  // nobody looked for the host, as a handler was at work
  bool refused_ = false;      // the window goes because there is no host
};

}  // namespace trendaro
