#include "app/bus_value.h"

#include <QDBusVariant>
#include <QMetaType>

#include "app/run_time_error.h"

namespace trendaro {

QVariant bus_variant(const HostValue& value) {
  const QVariant inner = std::visit(
      [](const auto& held) {
        if constexpr (std::is_same_v<std::decay_t<decltype(held)>, std::string>)
          return QVariant(QString::fromStdString(held));
        else
          return QVariant::fromValue(held);
      },
      value);
  return QVariant::fromValue(QDBusVariant(inner));
}

HostValue host_value(const QVariant& variant) {
  const QVariant inner = variant.value<QDBusVariant>().variant();
  switch (inner.metaType().id()) {
    case QMetaType::QString:
      return inner.toString().toStdString();
    case QMetaType::Short:
      return inner.value<i16>();
    case QMetaType::Int:
      return inner.value<i32>();
    case QMetaType::Double:
      return inner.value<f64>();
    case QMetaType::Bool:
      return inner.toBool();
    default:
      throw RunTimeError{kTypeMismatch};
  }
}

QString bus_path(const std::string& path) {
  const QString text = QString::fromStdString(path);
  if (text.toStdString() != path) throw RunTimeError{kInvalidArgument};
  return text;
}

}  // namespace trendaro
