#include "app/menu_bar.h"

#include <QAction>
#include <QMenu>
#include <algorithm>
#include <string_view>

#include "app/commands.h"
#include "app/controls.h"
#include "app/qt_text.h"

namespace trendaro {
namespace {

bool is_popup(const Command& command) {
  return std::string_view(command.name).starts_with("mnuPOP");
}

bool is_menu(const Command& command) {
  return command.name != nullptr &&
         (command.parent == nullptr || std::ranges::any_of(commands(), [&](const Command& other) {
            return other.parent != nullptr && std::string_view(other.parent) == command.name;
          }));
}

}  // namespace

MenuBar::MenuBar(QWidget* parent) : QMenuBar(parent) {
  for (const Command& command : commands()) {
    QMenu* above = command.parent == nullptr ? nullptr : menu(command.parent);
    if (command.caption == nullptr) {
      above->addSeparator();
      continue;
    }
    if (is_menu(command)) {
      QMenu* added = add_menu(command.name, command.caption, above);
      if (above == nullptr && !is_popup(command)) addMenu(added);
      continue;
    }
    QAction* entry = above->addAction(qt_text(command.caption));
    entry->setObjectName(qt_text(command.name));
    entry->setCheckable(command.tickable);
    if (command.keys != nullptr) entry->setShortcut(QKeySequence(qt_text(command.keys)));
    connect(entry, &QAction::triggered, this,
            [this, name = QByteArray(command.name)] { Q_EMIT command_chosen(name); });
    entries_[command.name] = entry;
  }
}

QMenu* MenuBar::add_menu(const char* name, const char* caption, QMenu* parent) {
  auto* added = new QMenu(qt_text(caption), parent == nullptr ? static_cast<QWidget*>(this) : parent);
  added->setObjectName(qt_text(name));
  added->menuAction()->setObjectName(qt_text(name));
  if (parent != nullptr) parent->addMenu(added);
  connect(added, &QMenu::aboutToShow, this,
          [this, menu_name = QByteArray(name)] { Q_EMIT menu_opening(menu_name); });
  menus_[name] = added;
  entries_[name] = added->menuAction();
  return added;
}

QMenu* MenuBar::menu(const std::string& name) const {
  const auto found = menus_.find(name);
  return found == menus_.end() ? nullptr : found->second;
}

void MenuBar::mirror(const Controls& controls) {
  for (const auto& [name, entry] : entries_) {
    const ControlState& state = controls[name];
    entry->setEnabled(state.enabled);
    entry->setVisible(state.visible);
    if (entry->isCheckable()) entry->setChecked(state.ticked);
  }
}

}  // namespace trendaro
