#include "app/bus_service.h"

#include <QDBusMessage>
#include <exception>
#include <string_view>

#include "app/bus_members.h"
#include "app/bus_names.h"
#include "app/run_time_error.h"

namespace trendaro {
namespace {

// "DB" for the object at PATH/DB, empty for the one at PATH; nothing below stands anywhere else.
QString object_name(const QString& path, const QString& host_path) {
  return path == host_path ? QString() : path.mid(host_path.size() + 1);
}

QString interface_name(const QString& object) {
  return object.isEmpty() ? QLatin1String(kHostInterface)
                          : QLatin1String(kHostInterface) + QLatin1Char('.') + object;
}

const BusMember* find_member(const QString& object, const QString& name) {
  for (const BusMember& member : bus_members())
    if (object == QLatin1String(member.object) && name == QLatin1String(member.name)) return &member;
  return nullptr;
}

QDBusMessage refusal(const QDBusMessage& call, i16 number) {
  return call.createErrorReply(QLatin1String(kHostError), QString::number(number));
}

// The arguments of one direction in the words of an interface description; every type here is one letter.
QString described(std::string_view signature, const char* direction) {
  QString text;
  for (const char type : signature)
    text += QStringLiteral("      <arg type=\"%1\" direction=\"%2\"/>\n")
                .arg(QChar::fromLatin1(type), QLatin1String(direction));
  return text;
}

}  // namespace

BusService::BusService(MervanHost& host, DatabaseKernel& kernel) : host_(host), kernel_(kernel) {}

bool BusService::serve(QDBusConnection bus, const QString& path) {
  path_ = path;
  return bus.registerVirtualObject(path, this, QDBusConnection::SubPath);
}

bool BusService::handleMessage(const QDBusMessage& message, const QDBusConnection& bus) {
  const QString object = object_name(message.path(), path_);
  const bool known_interface = message.interface().isEmpty() || message.interface() == interface_name(object);
  if (!known_interface) return false;
  const BusMember* member = find_member(object, message.member());
  if (member == nullptr) {
    bus.send(message.createErrorReply(QDBusError::UnknownMethod, message.member()));
    return true;
  }
  if (message.signature() != QLatin1String(member->takes)) {
    bus.send(message.createErrorReply(QDBusError::InvalidArgs, QLatin1String(member->takes)));
    return true;
  }
  QDBusMessage answer;
  try {
    answer = message.createReply(member->run(host_, kernel_, message.arguments()));
  } catch (const RunTimeError& failure) {
    answer = refusal(message, failure.number);
  } catch (const std::bad_alloc&) {
    answer = refusal(message, kOutOfMemory);
  } catch (const std::exception&) {
    answer = refusal(message, kHostCallFailed);
  }
  bus.send(answer);
  return true;
}

QString BusService::introspect(const QString& path) const {
  const QString object = object_name(path, path_);
  QString text = QStringLiteral("  <interface name=\"%1\">\n").arg(interface_name(object));
  for (const BusMember& member : bus_members()) {
    if (object != QLatin1String(member.object)) continue;
    text += QStringLiteral("    <method name=\"%1\">\n").arg(QLatin1String(member.name));
    text += described(member.takes, "in") + described(member.gives, "out");
    text += QStringLiteral("    </method>\n");
  }
  text += QStringLiteral("  </interface>\n");
  if (object.isEmpty())
    for (const char* child : {kDatabaseObject, kKernelObject})
      text += QStringLiteral("  <node name=\"%1\"/>\n").arg(QLatin1String(child));
  return text;
}

}  // namespace trendaro
