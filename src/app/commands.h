#pragma once

#include <span>
#include <string_view>

namespace trendaro {

struct Model;

// One entry of the menus. Entries stand under their parent in the order of the table; a parent stands ahead
// of its entries. The table is the whole menu bar and both pop-up menus.
struct Command {
  const char* name;     // "mnuTUnit(1)", object name of the entry
  const char* caption;  // German, null for a separator; entries get a mnemonic unless they have a "&"
  const char* parent;   // name of the menu it stands in; null for a menu of the bar
  void (*run)(Model&);  // null for menus, and for entries whose work is not built yet: those are disabled
  bool tickable = false;
  const char* keys = nullptr;  // standard key in portable words: "Ctrl+O"
};

// The whole table.
std::span<const Command> commands();

// Runs an entry by its name, or what is to be done when a menu of that name opens.
void run_command(Model& model, const char* name);
void open_menu(Model& model, const char* name);

// Enables or disables a menu entry or a toolbar button. One whose work is not built stays disabled.
void enable_control(Model& model, std::string_view name, bool enabled);

// Adds a state for every entry, button, box and pane to the model's controls.
void add_controls(Model& model);

}  // namespace trendaro
