#include "graph/graph_widget.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <optional>

#include "graph/painters/overlay_painter.h"
#include "graph/zoom_scroll.h"

namespace trendaro {
namespace {

constexpr QSize kPreferredSize(640, 360);
constexpr QSize kSmallestSize(120, 80);

PixelPoint place_of(const QMouseEvent& event) {
  return {event.position().x(), event.position().y()};
}

PointerButton button_of(const QMouseEvent& event) {
  if (event.button() == Qt::LeftButton) return PointerButton::Left;
  return event.button() == Qt::RightButton ? PointerButton::Right : PointerButton::None;
}

std::optional<GraphKey> key_of(const QKeyEvent& event) {
  if (event.matches(QKeySequence::Undo)) return GraphKey::Undo;
  if ((event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return std::nullopt;
  switch (event.key()) {
    case Qt::Key_Left:
      return GraphKey::Left;
    case Qt::Key_Right:
      return GraphKey::Right;
    case Qt::Key_Up:
      return GraphKey::Up;
    case Qt::Key_Down:
      return GraphKey::Down;
    case Qt::Key_PageUp:
      return GraphKey::PageUp;
    case Qt::Key_PageDown:
      return GraphKey::PageDown;
    case Qt::Key_Home:
      return GraphKey::Home;
    case Qt::Key_End:
      return GraphKey::End;
    case Qt::Key_Backspace:
      return GraphKey::Undo;
    default:
      return std::nullopt;
  }
}

Qt::CursorShape qt_shape(PointerShape shape) {
  switch (shape) {
    case PointerShape::Cross:
      return Qt::CrossCursor;
    case PointerShape::Grip:
      return Qt::SplitHCursor;
    default:
      return Qt::ArrowCursor;
  }
}

// A small part of a long recording still gets steps finer than itself.
void mirror_scroll_bar(QScrollBar& bar, const ScrollSpan& span) {
  const QSignalBlocker quiet(bar);
  const f64 total = std::clamp(1000 / std::max(span.part, 1e-9), 1e4, 2e9);
  const int page = std::max(1, static_cast<int>(std::lround(total * span.part)));
  const int last = std::max(1, static_cast<int>(total) - page);
  bar.setRange(0, last);
  bar.setPageStep(page);
  bar.setSingleStep(std::max(1, page / 10));
  bar.setValue(static_cast<int>(std::lround(span.position * last)));
}

f64 position_of(const QScrollBar& bar) {
  return static_cast<f64>(bar.value()) / std::max(1, bar.maximum());
}

}  // namespace

GraphWidget::GraphWidget(GraphSurface& graph, GraphRole role, QWidget* parent)
    : QWidget(parent),
      graph_(graph),
      horizontal_(new QScrollBar(Qt::Horizontal, this)),
      vertical_(new QScrollBar(Qt::Vertical, this)) {
  interaction_.has_limit_lines = role == GraphRole::Survey;
  setAttribute(Qt::WA_OpaquePaintEvent);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setAccessibleName(QStringLiteral("Graphik"));
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  horizontal_->setAccessibleName(QStringLiteral("Ausschnitt in x verschieben"));
  vertical_->setAccessibleName(QStringLiteral("Ausschnitt in y verschieben"));
  for (QScrollBar* bar : {horizontal_, vertical_}) {
    bar->setCursor(Qt::ArrowCursor);
    bar->hide();
  }
  connect(horizontal_, &QScrollBar::valueChanged, this, [this] {
    scroll_horizontally(graph_, position_of(*horizontal_));
    mirror();
  });
  connect(vertical_, &QScrollBar::valueChanged, this, [this] {
    scroll_vertically(graph_, position_of(*vertical_));
    mirror();
  });
}

void GraphWidget::mirror() {
  refresh();
  update();
}

const GraphLayout& GraphWidget::layout_on_show() {
  refresh();
  interaction_.measure = &sheet_->fonts;
  return sheet_->layout;
}

QSize GraphWidget::sizeHint() const {
  return kPreferredSize;
}

QSize GraphWidget::minimumSizeHint() const {
  return kSmallestSize;
}

QSize GraphWidget::graph_size() const {
  return {width() - (vertical_->isHidden() ? 0 : vertical_->width()),
          height() - (horizontal_->isHidden() ? 0 : horizontal_->height())};
}

void GraphWidget::place_scroll_bars() {
  const ScrollSpan across = horizontal_scroll(graph_);
  const ScrollSpan down = vertical_scroll(graph_);
  const int thickness = horizontal_->sizeHint().height();
  const int right = down.needed ? thickness : 0;
  const int below = across.needed ? thickness : 0;
  horizontal_->setGeometry(0, height() - thickness, width() - right, thickness);
  vertical_->setGeometry(width() - thickness, 0, thickness, height() - below);
  horizontal_->setVisible(across.needed);
  vertical_->setVisible(down.needed);
  if (across.needed) mirror_scroll_bar(*horizontal_, across);
  if (down.needed) mirror_scroll_bar(*vertical_, down);
}

// Whatever has come on show since, layout and picture follow only where something of theirs has changed.
void GraphWidget::refresh() {
  if (!stale_ && seen_revision_ == graph_.revision() && laid_out_size_ == graph_size()) return;
  place_scroll_bars();
  if (stale_ || laid_out_size_ != graph_size() || !same_picture(painted_, graph_.shown())) {
    sheet_.emplace(graph_.shown(), QSizeF(graph_size()));
    painted_ = picture_state(graph_.shown());
    laid_out_size_ = graph_size();
    picture_stale_ = true;
  }
  seen_revision_ = graph_.revision();
  stale_ = false;
}

void GraphWidget::paint_picture() {
  const f64 ratio = devicePixelRatioF();
  const QSize pixels(static_cast<int>(std::ceil(graph_size().width() * ratio)),
                     static_cast<int>(std::ceil(graph_size().height() * ratio)));
  const bool fits = picture_.size() == pixels && picture_.devicePixelRatio() == ratio;
  if (!picture_stale_ && fits) return;
  if (!fits) {
    picture_ = QPixmap(pixels);
    picture_.setDevicePixelRatio(ratio);
  }
  QPainter painter(&picture_);
  paint_graph_base(painter, *sheet_);
  picture_stale_ = false;
  ++pictures_painted_;
}

void GraphWidget::paint_overlay(QPainter& painter) {
  paint_graph_overlay(painter, *sheet_);
  paint_cursor(painter, graph_.shown(), cursor_mark(graph_, sheet_->layout));
  paint_rubber_band(painter, drawn_band(interaction_, sheet_->layout));
}

void GraphWidget::paintEvent(QPaintEvent* event) {
  refresh();
  paint_picture();
  const f64 ratio = devicePixelRatioF();
  QPainter painter(this);
  if (!horizontal_->isHidden() && !vertical_->isHidden())
    painter.fillRect(QRect(QPoint(graph_size().width(), graph_size().height()), size()), palette().window());
  const QRectF exposed = QRectF(event->rect()).intersected(QRectF(QPointF(), QSizeF(graph_size())));
  painter.drawPixmap(
      exposed, picture_,
      QRectF(exposed.topLeft() * ratio, QSizeF(exposed.width() * ratio, exposed.height() * ratio)));
  paint_overlay(painter);
}

void GraphWidget::resizeEvent(QResizeEvent*) {
  place_scroll_bars();
}

void GraphWidget::changeEvent(QEvent* event) {
  // System colours of the graph follow the desktop.
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) {
    stale_ = true;
    update();
  }
  QWidget::changeEvent(event);
}

void GraphWidget::tell(const GraphEvents& events) {
  for (const GraphEvent& event : events) Q_EMIT happened(event);
  mirror();
}

void GraphWidget::give_up() {
  if (interaction_.drag == PointerDrag::None) return;
  tell(give_up_pointer(interaction_, layout_on_show()));
}

bool GraphWidget::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::UngrabMouse:
    case QEvent::WindowDeactivate:
    case QEvent::Hide:
    case QEvent::FocusOut:
      give_up();
      break;
    default:
      break;
  }
  return QWidget::event(event);
}

void GraphWidget::shape_pointer(PixelPoint place) {
  const PointerShape shape = pointer_shape(interaction_, graph_, layout_on_show(), place);
  if (shape == shape_) return;
  shape_ = shape;
  setCursor(qt_shape(shape));
}

void GraphWidget::mousePressEvent(QMouseEvent* event) {
  const PointerButton button = button_of(*event);
  if (button == PointerButton::None) return QWidget::mousePressEvent(event);
  tell(press_pointer(interaction_, graph_, layout_on_show(), place_of(*event), button));
}

void GraphWidget::mouseMoveEvent(QMouseEvent* event) {
  // The release may have gone to somebody else.
  if ((event->buttons() & Qt::LeftButton) == 0) give_up();
  const bool dragging = interaction_.drag == PointerDrag::Band;
  const GraphEvents events = move_pointer(interaction_, graph_, layout_on_show(), place_of(*event));
  if (!events.empty())
    tell(events);
  else if (dragging)
    update();
  shape_pointer(place_of(*event));
}

void GraphWidget::mouseReleaseEvent(QMouseEvent* event) {
  tell(release_pointer(interaction_, graph_, layout_on_show(), place_of(*event), button_of(*event)));
}

void GraphWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return mousePressEvent(event);
  tell(double_click_pointer(interaction_, graph_, layout_on_show(), place_of(*event)));
}

void GraphWidget::wheelEvent(QWheelEvent* event) {
  const bool across = vertical_->isHidden() || (event->modifiers() & Qt::ShiftModifier) != 0;
  QScrollBar* bar = across ? horizontal_ : vertical_;
  if (bar->isHidden()) return event->ignore();
  QApplication::sendEvent(bar, event);
}

void GraphWidget::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && interaction_.drag != PointerDrag::None) return give_up();
  const auto key = key_of(*event);
  bool taken = false;
  const GraphEvents events =
      key ? press_graph_key(interaction_, graph_, layout_on_show(), *key, taken) : GraphEvents{};
  if (!taken) return QWidget::keyPressEvent(event);
  tell(events);
}

}  // namespace trendaro
