#pragma once

#include <QToolBar>
#include <map>
#include <string>

class QLineEdit;
class QMenu;

namespace trendaro {

class Controls;
struct ToolButton;

// Toolbar1: the positions of tool_buttons() in their order. Buttons, separators and text fields carry their
// names as object names; a button's action has the same name as the button.
class ToolBar : public QToolBar {
  Q_OBJECT

 public:
  explicit ToolBar(QWidget* parent = nullptr);

  // Gives a button a drop-down beside its picture. The menu stays its owner's.
  void give_menu(const char* key, QMenu& menu);

  // Brings pictures, pressed look, visibility and texts in line with `controls`.
  void mirror(const Controls& controls);

 Q_SIGNALS:
  void tool_clicked(const QByteArray& key);
  // The user changed the text of a field; the user ended it with Enter.
  void box_edited(const QByteArray& name, const QString& text);
  void box_entered(const QByteArray& name);

 private:
  void add_button(const ToolButton& tool);
  void add_box(const ToolButton& tool);
  void mirror_boxes(const Controls& controls);

  std::map<std::string, QAction*> positions_;  // by key
  std::map<std::string, std::string> images_;  // keys of the pictures on show
  std::map<std::string, QLineEdit*> boxes_;
};

}  // namespace trendaro
