#pragma once

#include <QDBusArgument>
#include <QDBusContext>
#include <QDBusObjectPath>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QSet>

#include "app/bus_host.h"
#include "app/wrapper_class.h"

namespace trendaro {

// An object of another process as an argument: the name of its process on the bus, and its path there. An
// empty name is the caller's own; the path "/" stands for no object.
struct ObjectReference {
  QString service;
  QDBusObjectPath path;
};
QDBusArgument& operator<<(QDBusArgument& argument, const ObjectReference& reference);
const QDBusArgument& operator>>(const QDBusArgument& argument, ObjectReference& reference);

// WrapperClass on the bus. It is held by the processes that called it and by the one whose host it was given;
// when the last of them has left the bus, or the bus itself has gone, it is released.
class WrapperObject : public QObject, protected QDBusContext {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "trendaro.WrapperClass")
  Q_PROPERTY(bool CanUnload READ can_unload WRITE set_can_unload)

 public:
  // Calls `wrapper`, and gives `host` the address of the host that it is handed. All outlive this object.
  WrapperObject(WrapperClass& wrapper, BusHost& host, QDBusConnection bus);

  // Puts the object and its name on the bus. False when another program has the name, or there is no bus.
  bool serve();
  [[nodiscard]] bool is_held() const { return !holders_.isEmpty(); }
  // Whether anybody can still call it.
  [[nodiscard]] bool is_on_bus() const { return bus_.isConnected(); }

  [[nodiscard]] bool can_unload() const { return wrapper_.CanUnload(); }
  void set_can_unload(bool value) { wrapper_.CanUnload(value); }

  // Answers at once: the window asks the host while it loads, and the host may be waiting for this answer.
  Q_SCRIPTABLE Q_INVOKABLE void Run();
  Q_SCRIPTABLE Q_INVOKABLE void AddmrvInterface(const trendaro::ObjectReference& objInterface);

 Q_SIGNALS:
  void released();

 private Q_SLOTS:
  void lose_bus();

 private:
  void hold(const QString& service);

  WrapperClass& wrapper_;
  BusHost& host_;
  QDBusConnection bus_;
  QDBusServiceWatcher watcher_;
  QSet<QString> holders_;
};

}  // namespace trendaro

Q_DECLARE_METATYPE(trendaro::ObjectReference)
