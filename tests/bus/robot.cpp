// The user inside of robot_viewer and robot_host. A line on standard input is one thing that the user does,
// and a line on standard output what came of it:
//   windows        the object names of all visible windows, with blanks between them
//   message        the text of the message box on screen
//   press NAME     presses a button by its object name
//   type NAME TEXT gives a box of numbers that text
//   choose NAME    chooses a menu entry by its object name
//   text NAME      the words of a label by its object name
//   shown NAME     how often a widget of that name has come on screen, and whether it is there
//   close          closes the main window
//   splash         the windows that were visible 400 ms after the splash window had come

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QHash>
#include <QLabel>
#include <QMainWindow>
#include <QMessageBox>
#include <QSocketNotifier>
#include <QSpinBox>
#include <QTimer>
#include <iostream>
#include <string>

#include <unistd.h>

namespace {

QWidget* main_window() {
  for (QWidget* window : QApplication::topLevelWidgets())
    if (qobject_cast<QMainWindow*>(window) != nullptr) return window;
  return nullptr;
}

QString windows() {
  QStringList names;
  for (const QWidget* window : QApplication::topLevelWidgets())
    if (window->isVisible()) names << window->objectName();
  names.sort();
  return names.join(QLatin1Char(' '));
}

// Notes what comes on screen, and what the splash window shares it with shortly before its time is over.
class Watch : public QObject {
 public:
  using QObject::QObject;
  QHash<QString, int> shown;
  QString beside_splash;

  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() != QEvent::Show || !object->isWidgetType()) return false;
    ++shown[object->objectName()];
    if (object->objectName() == QLatin1String("About"))
      QTimer::singleShot(400, Qt::PreciseTimer, this, [this] { beside_splash = windows(); });
    return false;
  }
};

Watch* watch() {
  static auto* watching = new Watch(QCoreApplication::instance());
  return watching;
}

QString message() {
  for (QWidget* window : QApplication::topLevelWidgets())
    if (const auto* box = qobject_cast<QMessageBox*>(window); box != nullptr && box->isVisible())
      return box->text();
  return {};
}

template <typename Widget>
Widget* find(const QString& name) {
  for (const QWidget* window : QApplication::topLevelWidgets())
    if (auto* found = window->findChild<Widget*>(name)) return found;
  return nullptr;
}

QString times_shown(const QString& name) {
  const auto* widget = find<QWidget>(name);
  const bool there = widget != nullptr && widget->isVisible();
  return QString::number(watch()->shown.value(name)) + QLatin1String(there ? " there" : " away");
}

// What opens a box comes back when the box is closed, so that it runs behind the answer.
QString later(QObject* object, std::function<void()> action) {
  if (object == nullptr) return QStringLiteral("none");
  QTimer::singleShot(0, object, std::move(action));
  return QStringLiteral("done");
}

QString obey(const QString& order) {
  const QString name = order.section(QLatin1Char(' '), 1);
  if (order == QLatin1String("windows")) return windows();
  if (order == QLatin1String("message")) return message();
  if (order == QLatin1String("splash")) return watch()->beside_splash;
  if (order.startsWith(QLatin1String("text "))) {
    const auto* label = find<QLabel>(name);
    return label == nullptr ? QStringLiteral("none") : label->text();
  }
  if (order.startsWith(QLatin1String("shown "))) return times_shown(name);
  if (order == QLatin1String("close")) {
    QWidget* window = main_window();
    return later(window, [window] { window->close(); });
  }
  if (order.startsWith(QLatin1String("press "))) {
    auto* button = find<QAbstractButton>(name);
    return later(button, [button] { button->click(); });
  }
  if (order.startsWith(QLatin1String("type "))) {
    auto* box = find<QSpinBox>(order.section(QLatin1Char(' '), 1, 1));
    return later(box, [box, text = order.section(QLatin1Char(' '), 2)] { box->setValue(text.toInt()); });
  }
  auto* action = find<QAction>(name);
  return later(action, [action] { action->trigger(); });
}

void start_robot() {
  QCoreApplication::instance()->installEventFilter(watch());
  auto* input = new QSocketNotifier(STDIN_FILENO, QSocketNotifier::Read, QCoreApplication::instance());
  QObject::connect(input, &QSocketNotifier::activated, input, [input] {
    std::string order;
    char letter = 0;
    while (::read(STDIN_FILENO, &letter, 1) == 1 && letter != '\n') order += letter;
    if (order.empty()) {
      input->setEnabled(false);
      return;
    }
    std::cout << obey(QString::fromStdString(order)).toStdString() << std::endl;
  });
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(start_robot)
