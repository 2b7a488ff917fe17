#include "app/main_window.h"

#include <QBackingStore>
#include <QCloseEvent>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <utility>

#include "app/attempt.h"
#include "app/commands.h"
#include "app/icons.h"
#include "app/menu_bar.h"
#include "app/model.h"
#include "app/pane_area_widget.h"
#include "app/startup.h"
#include "app/status_bar.h"
#include "app/tool_bar.h"
#include "app/tool_boxes.h"
#include "app/toolbar.h"
#include "app/window_shell.h"
#include "app/window_text.h"
#include "datasource/channel_grid.h"
#include "datasource/file_list.h"
#include "datasource/grid_handlers.h"
#include "graph/graph_handlers.h"
#include "graph/graph_widget.h"

namespace trendaro {
namespace {

constexpr QSize kFirstSize(1280, 800);  // pixels

std::vector<std::string> local_files(const QMimeData& data) {
  std::vector<std::string> paths;
  for (const QUrl& url : data.urls())
    if (url.isLocalFile()) paths.push_back(utf8_text(url.toLocalFile()));
  return paths;
}

void tell_failure(Shell& shell, int number) {
  shell.show_message("Laufzeitfehler " + std::to_string(number), kProgramTitle, MessageIcon::Stop);
}

}  // namespace

Kelmira::Kelmira(Model& model, WindowShell& shell)
    : model_(model),
      shell_(shell),
      menu_bar_(new MenuBar(this)),
      tool_bar_(new ToolBar(this)),
      panes_(new PaneArea(model, this)),
      status_bar_(new StatusBar(this)) {
  setObjectName(QStringLiteral("Kelmira"));
  setWindowTitle(qt_text(kProgramTitle));
  setWindowIcon(load_icon("TRENDARO"));
  setMenuBar(menu_bar_);
  addToolBar(tool_bar_);
  setCentralWidget(panes_);
  setStatusBar(status_bar_);
  setAcceptDrops(true);
  setAttribute(Qt::WA_AlwaysShowToolTips);  // also where no window manager makes a window active
  resize(kFirstSize);
  connect_menus();
  connect_tool_bar();
  connect_list();
  connect_graph(panes_->graph(), model_.PESG);
  connect_graph(panes_->survey(), model_.PESGSurvey);
  shell_.attach(this, status_bar_);
  mirror();
}

Kelmira::~Kelmira() {
  shell_.attach(nullptr, nullptr);
}

// Tells a failure that the handler lets out.
void Kelmira::guarded(const std::function<void()>& handler) {
  ++handlers_at_work_;
  try {
    handler();
  } catch (const RunTimeError& failure) {
    tell_failure(model_.shell, failure.number);
  } catch (const std::bad_alloc&) {
    tell_failure(model_.shell, kOutOfMemory);
  } catch (const std::exception&) {
    tell_failure(model_.shell, kInvalidArgument);
  }
  if (--handlers_at_work_ == 0 && std::exchange(host_unseen_, false)) look_for_host();
}

void Kelmira::run(const std::function<void()>& handler) {
  guarded(handler);
  mirror();
}

void Kelmira::mirror() {
  menu_bar_->mirror(model_.controls);
  tool_bar_->mirror(model_.controls);
  panes_->mirror();
  if (model_.NofFiles > files_seen_) panes_->grid().setFocus();
  files_seen_ = model_.NofFiles;
  const bool cursor = model_.PESG.pending.CursorMode != 0;
  if (cursor && !cursor_seen_) panes_->graph().setFocus();  // the arrow keys move it
  cursor_seen_ = cursor;
}

void Kelmira::connect_menus() {
  connect(menu_bar_, &MenuBar::command_chosen, this, [this](const QByteArray& name) {
    wipe_menu_off();
    run([&] { run_command(model_, name.constData()); });
  });
  connect(menu_bar_, &MenuBar::menu_opening, this,
          [this](const QByteArray& name) { run([&] { open_menu(model_, name.constData()); }); });
}

// A closed menu stays on screen until the event loop goes on, and a command may keep that waiting: for an
// import, or for a dialog of a host in another process.
void Kelmira::wipe_menu_off() {
  menu_bar_->repaint();
  if (QBackingStore* painted = backingStore()) painted->flush(rect());
}

void Kelmira::connect_tool_bar() {
  tool_bar_->give_menu("TB_CURSOR", *menu_bar_->menu("mnuCursor"));
  connect(tool_bar_, &ToolBar::tool_clicked, this,
          [this](const QByteArray& key) { run([&] { click_tool(model_, key.toStdString()); }); });
  connect(tool_bar_, &ToolBar::box_edited, this, [this](const QByteArray& name, const QString& text) {
    model_.controls[name.toStdString()].text = utf8_text(text);
  });
  connect(tool_bar_, &ToolBar::box_entered, this,
          [this](const QByteArray& name) { run([&] { enter_tool_box(model_, name.toStdString()); }); });
}

void Kelmira::connect_list() {
  ChannelGrid& grid = panes_->grid();
  connect(&grid, &ChannelGrid::check_cell_clicked, this, [this](int row, int check) {
    run([&] { click_check_cell(model_, row, static_cast<i16>(check)); });
  });
  connect(&grid, &ChannelGrid::row_chosen, this,
          [this](int row) { run([&] { activate_row(model_, row); }); });
  connect(&grid, &ChannelGrid::cell_right_clicked, this, &Kelmira::open_channel_menu);
  connect(&grid, &ChannelGrid::removal_asked, this, &Kelmira::remove_active_file);
  connect(&grid, &ChannelGrid::scroll_asked, this,
          [this](bool right) { run([&] { press_scroll_key(model_, right); }); });
  grid.tip = [this](i32 row, i16 column) {
    QString text;
    attempt([&] { text = qt_text(text_tip(model_, row, column)); });
    return text;
  };
  connect(&panes_->x_source(), &QComboBox::activated, this,
          [this](int entry) { run([&] { click_xSrc(model_, static_cast<i16>(entry)); }); });
}

void Kelmira::connect_graph(GraphWidget& widget, const GraphSurface& graph) {
  connect(&widget, &GraphWidget::happened, this,
          [this, &graph](const GraphEvent& event) { follow_graph(graph, event); });
}

// The graph brings itself in line; with a step of the pointer only the toolbar follows, for the list may be
// long.
void Kelmira::follow_graph(const GraphSurface& graph, const GraphEvent& event) {
  const auto handle = [&] { handle_graph_event(model_, graph, event); };
  if (!is_pointer_step(event)) return run(handle);
  guarded(handle);
  tool_bar_->mirror(model_.controls);
}

void Kelmira::open_channel_menu(int row, int column, const QPoint& global_position) {
  run([&] { right_click_cell(model_, row, static_cast<i16>(column)); });
  menu_bar_->menu("mnuPOP1")->popup(global_position);
}

// The key works where the menu entry would.
void Kelmira::remove_active_file() {
  run([&] {
    open_menu(model_, "mnuFile");
    if (model_.controls["mnuRemoveFile"].enabled) run_command(model_, "mnuRemoveFile");
  });
}

void Kelmira::look_for_host() {
  QMetaObject::invokeMethod(this, &Kelmira::check_host, Qt::QueuedConnection);
}

// A handler may wait in a message of its own, which must not lose the window under it.
void Kelmira::check_host() {
  if (refused_ || !isVisible()) return;
  host_unseen_ = handlers_at_work_ > 0;
  if (host_unseen_) return;
  refused_ = model_.Host == nullptr;
  if (!activate_main_window(model_)) close();
}

bool Kelmira::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate) look_for_host();
  return QMainWindow::event(event);
}

// A window manager need not activate a new window; the host is looked for all the same.
void Kelmira::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  if (focusWidget() == nullptr) panes_->grid().setFocus();
  look_for_host();
}

void Kelmira::keyPressEvent(QKeyEvent* event) {
  const bool right = event->key() == Qt::Key_Right;
  if (!right && event->key() != Qt::Key_Left) return QMainWindow::keyPressEvent(event);
  run([&] { press_scroll_key(model_, right); });
}

// A host that came while the refusal was on screen changes nothing any more.
void Kelmira::closeEvent(QCloseEvent* event) {
  if (!refused_ && !query_close(model_)) {
    event->ignore();
    return;
  }
  unload_main_window(model_);
  event->accept();
  Q_EMIT unloaded();
}

void Kelmira::dragEnterEvent(QDragEnterEvent* event) {
  if (!local_files(*event->mimeData()).empty()) event->acceptProposedAction();
}

// The files are read behind the drop, so that the other program need not wait for it.
void Kelmira::dropEvent(QDropEvent* event) {
  const std::vector<std::string> paths = local_files(*event->mimeData());
  if (paths.empty()) return;
  event->acceptProposedAction();
  QMetaObject::invokeMethod(
      this, [this, paths] { open_dropped(paths); }, Qt::QueuedConnection);
}

void Kelmira::open_dropped(const std::vector<std::string>& paths) {
  for (const std::string& path : paths) run([&] { open_file(model_, path); });
}

}  // namespace trendaro
