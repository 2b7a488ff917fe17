#include "app/tool_bar.h"

#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>
#include <string_view>

#include "app/controls.h"
#include "app/icons.h"
#include "app/toolbar.h"
#include "app/window_text.h"

namespace trendaro {
namespace {

constexpr int kIconSize = 24;  // pixels
constexpr int kBoxDigits = 9;

// A pressed button shows its own picture, so that the frame of the desktop's style would be one too many.
constexpr char kButtonLook[] =
    "QToolButton { border: none; border-radius: 4px; padding: 3px; }"
    "QToolButton[popupMode=\"1\"] { padding-right: 15px; }"
    "QToolButton::menu-button { border: none; width: 12px; }"
    "QToolButton:hover { background: palette(midlight); }"
    "QToolButton:pressed { background: palette(mid); }";

QColor colour_of(i32 blue_green_red) {
  return {blue_green_red & 0xFF, blue_green_red >> 8 & 0xFF, blue_green_red >> 16 & 0xFF};
}

// A coloured field has black text, whatever the desktop's colours are; a white one is an ordinary field.
void set_back_color(QLineEdit& box, i32 back_color) {
  QPalette palette;
  if (back_color != kWhite) {
    palette.setColor(QPalette::Base, colour_of(back_color));
    palette.setColor(QPalette::Text, Qt::black);
  }
  if (box.palette() != palette) box.setPalette(palette);
}

}  // namespace

ToolBar::ToolBar(QWidget* parent) : QToolBar(parent) {
  setObjectName(QStringLiteral("Toolbar1"));
  setWindowTitle(QStringLiteral("Werkzeugleiste"));
  setMovable(false);
  setIconSize({kIconSize, kIconSize});
  setContextMenuPolicy(Qt::PreventContextMenu);
  setStyleSheet(qt_text(kButtonLook));
  for (const ToolButton& tool : tool_buttons()) {
    if (tool.kind == ToolKind::Button) add_button(tool);
    if (tool.kind == ToolKind::Box) add_box(tool);
    if (tool.kind == ToolKind::Separator) {
      QAction* separator = addSeparator();
      if (tool.key == nullptr) continue;
      separator->setObjectName(qt_text(tool.key));
      positions_[tool.key] = separator;
    }
  }
}

void ToolBar::add_button(const ToolButton& tool) {
  QAction* button = addAction(load_icon(tool.image), qt_text(tool.tooltip));
  button->setObjectName(qt_text(tool.key));
  button->setToolTip(qt_text(tool.tooltip));
  button->setCheckable(tool.down_image != nullptr);
  QWidget* widget = widgetForAction(button);
  widget->setObjectName(qt_text(tool.key));
  widget->setAccessibleName(qt_text(tool.tooltip));
  connect(button, &QAction::triggered, this,
          [this, key = QByteArray(tool.key)] { Q_EMIT tool_clicked(key); });
  positions_[tool.key] = button;
  images_[tool.key] = tool.image;
}

void ToolBar::give_menu(const char* key, QMenu& menu) {
  auto* button = qobject_cast<QToolButton*>(widgetForAction(positions_.at(key)));
  button->setMenu(&menu);
  button->setPopupMode(QToolButton::MenuButtonPopup);
}

void ToolBar::add_box(const ToolButton& tool) {
  auto* box = new QLineEdit(this);
  box->setObjectName(qt_text(tool.box));
  box->setToolTip(qt_text(tool.tooltip));
  box->setAccessibleName(qt_text(tool.tooltip));
  box->setAlignment(Qt::AlignRight);
  box->setFixedWidth(box->fontMetrics().averageCharWidth() * (kBoxDigits + 3));
  box->setAcceptDrops(false);
  box->setReadOnly(std::string_view(tool.box) == "ZoomPointsBox");
  const QByteArray name(tool.box);
  connect(box, &QLineEdit::textEdited, this,
          [this, name](const QString& text) { Q_EMIT box_edited(name, text); });
  connect(box, &QLineEdit::returnPressed, this, [this, name] { Q_EMIT box_entered(name); });
  QAction* holder = addWidget(box);
  holder->setObjectName(qt_text(tool.key));
  positions_[tool.key] = holder;
  boxes_[tool.box] = box;
}

void ToolBar::mirror(const Controls& controls) {
  for (const auto& [key, position] : positions_) {
    const ControlState& state = controls[key];
    position->setVisible(state.visible);
    if (position->isSeparator()) continue;
    position->setEnabled(state.enabled);
    if (position->isCheckable()) position->setChecked(!state.tag.empty());
    const auto image = images_.find(key);
    if (image == images_.end() || image->second == state.image) continue;
    image->second = state.image;
    position->setIcon(load_icon(state.image));
  }
  mirror_boxes(controls);
}

void ToolBar::mirror_boxes(const Controls& controls) {
  for (const auto& [name, box] : boxes_) {
    const ControlState& state = controls[name];
    box->setEnabled(state.enabled);
    if (const QString text = qt_text(state.text); box->text() != text) box->setText(text);
    set_back_color(*box, state.back_color);
  }
}

}  // namespace trendaro
