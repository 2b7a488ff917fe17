#pragma once

#include <QMenuBar>
#include <map>
#include <string>

class QMenu;

namespace trendaro {

class Controls;

// The menus of the table of commands; entries and menus carry their names as object names. The pop-up menus
// of the table are made as well and stand outside of the bar.
class MenuBar : public QMenuBar {
  Q_OBJECT

 public:
  explicit MenuBar(QWidget* parent = nullptr);

  // Brings enabled, visible and ticked of all entries in line with `controls`. The head of a menu within a
  // menu is enabled only while one of its entries is.
  void mirror(const Controls& controls);

  // The menu of that name; null for a name that is no menu.
  [[nodiscard]] QMenu* menu(const std::string& name) const;

 Q_SIGNALS:
  void command_chosen(const QByteArray& name);
  void menu_opening(const QByteArray& name);

 private:
  QMenu* add_menu(const char* name, const char* caption, QMenu* parent);

  std::map<std::string, QAction*> entries_;
  std::map<std::string, QMenu*> menus_;
};

}  // namespace trendaro
