#include "app/bus_wrapper_object.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <utility>

#include "app/bus_names.h"

namespace trendaro {

QDBusArgument& operator<<(QDBusArgument& argument, const ObjectReference& reference) {
  argument.beginStructure();
  argument << reference.service << reference.path;
  argument.endStructure();
  return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, ObjectReference& reference) {
  argument.beginStructure();
  argument >> reference.service >> reference.path;
  argument.endStructure();
  return argument;
}

WrapperObject::WrapperObject(WrapperClass& wrapper, BusHost& host, QDBusConnection bus)
    : wrapper_(wrapper), host_(host), bus_(std::move(bus)) {
  qDBusRegisterMetaType<ObjectReference>();
  watcher_.setConnection(bus_);
  watcher_.setWatchMode(QDBusServiceWatcher::WatchForUnregistration);
  connect(&watcher_, &QDBusServiceWatcher::serviceUnregistered, this, [this](const QString& service) {
    watcher_.removeWatchedService(service);
    if (holders_.remove(service) && holders_.isEmpty()) Q_EMIT released();
  });
  bus_.connect({}, QStringLiteral("/org/freedesktop/DBus/Local"),
               QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
               SLOT(lose_bus()));
}

bool WrapperObject::serve() {
  return bus_.registerObject(
             QLatin1String(kWrapperPath), this,
             QDBusConnection::ExportScriptableInvokables | QDBusConnection::ExportAllProperties) &&
         bus_.registerService(QLatin1String(kWrapperService));
}

void WrapperObject::Run() {
  hold(message().service());
  QMetaObject::invokeMethod(
      this, [this] { wrapper_.Run(); }, Qt::QueuedConnection);
}

void WrapperObject::AddmrvInterface(const ObjectReference& objInterface) {
  hold(message().service());
  if (objInterface.path.path() == QLatin1String("/")) {
    wrapper_.AddmrvInterface(nullptr);
    return;
  }
  const QString service = objInterface.service.isEmpty() ? message().service() : objInterface.service;
  hold(service);
  host_.set_address({service, objInterface.path.path()});
  wrapper_.AddmrvInterface(&host_);
}

// A bus that has gone tells nothing of those who have left it.
void WrapperObject::lose_bus() {
  holders_.clear();
  Q_EMIT released();
}

// A name that is not on the bus by now would never leave it.
void WrapperObject::hold(const QString& service) {
  if (holders_.contains(service) || !bus_.interface()->isServiceRegistered(service).value()) return;
  holders_.insert(service);
  watcher_.addWatchedService(service);
}

}  // namespace trendaro
