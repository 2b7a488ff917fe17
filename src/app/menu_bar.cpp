#include "app/menu_bar.h"

#include <QAction>
#include <QMenu>
#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "app/commands.h"
#include "app/controls.h"
#include "app/mnemonics.h"
#include "app/window_text.h"

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

// Captions with their mnemonics, in the order of the table; empty for separators. The menus of the bar have
// theirs in the table.
std::vector<std::string> captions_with_mnemonics() {
  std::map<std::string_view, std::vector<std::size_t>> places;  // of a menu's entries in the table
  std::vector<std::string> captions;
  for (const Command& command : commands()) {
    if (command.parent != nullptr && command.caption != nullptr)
      places[command.parent].push_back(captions.size());
    captions.emplace_back(command.caption == nullptr ? "" : command.caption);
  }
  for (const auto& [menu, entries] : places) {
    std::vector<std::string> of_menu;
    for (std::size_t place : entries) of_menu.push_back(captions[place]);
    of_menu = with_mnemonics(std::move(of_menu));
    for (std::size_t i = 0; i < entries.size(); ++i) captions[entries[i]] = of_menu[i];
  }
  return captions;
}

bool has_enabled_entry(const QMenu& menu) {
  return std::ranges::any_of(menu.actions(), [](const QAction* entry) {
    if (entry->isSeparator() || !entry->isVisible()) return false;
    return entry->menu() == nullptr ? entry->isEnabled() : has_enabled_entry(*entry->menu());
  });
}

}  // namespace

MenuBar::MenuBar(QWidget* parent) : QMenuBar(parent) {
  const std::vector<std::string> captions = captions_with_mnemonics();
  for (std::size_t i = 0; i < captions.size(); ++i) {
    const Command& command = commands()[i];
    QMenu* above = command.parent == nullptr ? nullptr : menu(command.parent);
    if (command.caption == nullptr) {
      above->addSeparator();
      continue;
    }
    if (is_menu(command)) {
      QMenu* added = add_menu(command.name, captions[i].c_str(), above);
      if (above == nullptr && !is_popup(command)) addMenu(added);
      continue;
    }
    QAction* entry = above->addAction(qt_text(captions[i]));
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
  // A menu within a menu that offers nothing is not opened.
  for (const auto& [name, menu] : menus_) {
    QAction* head = menu->menuAction();
    if (qobject_cast<QMenu*>(menu->parentWidget()) != nullptr && head->isEnabled())
      head->setEnabled(has_enabled_entry(*menu));
  }
}

}  // namespace trendaro
