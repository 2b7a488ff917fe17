#include "app/bus_host.h"

#include <QDBusConnectionInterface>
#include <QDBusError>
#include <QDBusMessage>
#include <algorithm>
#include <limits>
#include <utility>

#include "app/bus_names.h"
#include "app/bus_samples.h"
#include "app/bus_value.h"
#include "app/run_time_error.h"

namespace trendaro {
namespace {

// Imports and dialogs take as long as they take.
constexpr int kNoTimeLimit = std::numeric_limits<int>::max();

// The run-time error that an error message stands for.
i16 error_number(const QDBusMessage& error) {
  if (error.errorName() == QLatin1String(kHostError)) {
    bool is_number = false;
    const i16 number = error.errorMessage().toShort(&is_number);
    return is_number && number > 0 ? number : kHostCallFailed;
  }
  switch (QDBusError(error).type()) {
    case QDBusError::UnknownMethod:
    case QDBusError::UnknownInterface:
    case QDBusError::UnknownObject:
      return kHostMemberMissing;
    case QDBusError::InvalidArgs:
    case QDBusError::InvalidSignature:
      return kTypeMismatch;
    default:
      return kHostCallFailed;
  }
}

QVariant number(i16 value) {
  return QVariant::fromValue(value);
}

}  // namespace

BusHost::BusHost(QDBusConnection bus, BusAddress address)
    : bus_(std::move(bus)), address_(std::move(address)) {}

void BusHost::set_address(BusAddress address) {
  address_ = std::move(address);
}

void BusHost::create() {
  QDBusConnectionInterface* names = bus_.interface();
  if (names == nullptr) throw RunTimeError{kHostNotCreated};
  if (names->isServiceRegistered(address_.service).value()) return;
  if (!names->startService(address_.service).isValid()) throw RunTimeError{kHostNotCreated};
}

QVariantList BusHost::call(const char* object, const char* member, const char* gives,
                           const QVariantList& takes) {
  QString path = address_.path;
  QString interface = QLatin1String(kHostInterface);
  if (*object != '\0') {
    path += QLatin1Char('/') + QLatin1String(object);
    interface += QLatin1Char('.') + QLatin1String(object);
  }
  QDBusMessage message =
      QDBusMessage::createMethodCall(address_.service, path, interface, QLatin1String(member));
  message.setArguments(takes);
  const QDBusMessage answer = bus_.call(message, QDBus::Block, kNoTimeLimit);
  if (answer.type() != QDBusMessage::ReplyMessage) throw RunTimeError{error_number(answer)};
  if (answer.signature() != QLatin1String(gives)) throw RunTimeError{kTypeMismatch};
  return answer.arguments();
}

void BusHost::ProgressControl(i16 command) {
  call("", "ProgressControl", "", {number(command)});
}

i16 BusHost::MaxChannels() {
  return call(kDatabaseObject, "MaxChannels", "n", {}).first().value<i16>();
}

HostValue BusHost::GetChannelProperty(i16 channel, i16 property) {
  return host_value(
      call(kDatabaseObject, "GetChannelProperty", "v", {number(channel), number(property)}).first());
}

void BusHost::SetChannelProperty(i16 channel, i16 property, const HostValue& value) {
  call(kDatabaseObject, "SetChannelProperty", "", {number(channel), number(property), bus_variant(value)});
}

i32 BusHost::GetChannelLength(i16 channel) {
  return call(kDatabaseObject, "GetChannelLength", "i", {number(channel)}).first().toInt();
}

void BusHost::ReadData64(i16 channel, std::span<f64> values) {
  const auto most = static_cast<i32>(std::min<std::size_t>(values.size(), std::numeric_limits<i32>::max()));
  const QVariantList answer = call(kDatabaseObject, "ReadData64", "h", {number(channel), most});
  receive_samples(answer.first().value<QDBusUnixFileDescriptor>(), 0, values);
}

void BusHost::SetImportProperty(i16 key, const HostValue& value) {
  if (const auto* path = std::get_if<std::string>(&value)) static_cast<void>(bus_path(*path));
  call(kDatabaseObject, "SetImportProperty", "", {number(key), bus_variant(value)});
}

i32 BusHost::GetDataFileInfo(const std::string& path, i16 information, i16 channel) {
  return call(kDatabaseObject, "GetDataFileInfo", "i", {bus_path(path), number(information), number(channel)})
      .first()
      .toInt();
}

void BusHost::ExecuteImport() {
  call(kDatabaseObject, "ExecuteImport", "", {});
}

void BusHost::ClearChannel(i16 channel) {
  call(kDatabaseObject, "ClearChannel", "", {number(channel)});
}

void BusHost::ClearAllChannels() {
  call(kDatabaseObject, "ClearAllChannels", "", {});
}

void BusHost::ShowDialog(i16 dialog, i16 argument) {
  call(kDatabaseObject, "ShowDialog", "", {number(dialog), number(argument)});
}

i32 BusHost::KSD_WriteToDatabaseEx(i16 one, i32 channel, std::span<const f64> values, i16 append) {
  return call(kKernelObject, "KSD_WriteToDatabaseEx", "i",
              {number(one), channel, QVariant::fromValue(samples_to_send(values)), number(append)})
      .first()
      .toInt();
}

i32 BusHost::KSD_SetDatabaseChanText(i32 channel, i16 which, const std::string& text) {
  return call(kKernelObject, "KSD_SetDatabaseChanText", "i",
              {channel, number(which), QString::fromStdString(text)})
      .first()
      .toInt();
}

i32 BusHost::KSD_SetDatabaseChanModified(i32 channel, f64 date) {
  return call(kKernelObject, "KSD_SetDatabaseChanModified", "i", {channel, date}).first().toInt();
}

i32 BusHost::KSD_SetDatabaseChanCurrLen(i32 channel, i32 length) {
  return call(kKernelObject, "KSD_SetDatabaseChanCurrLen", "i", {channel, length}).first().toInt();
}

i32 BusHost::KSD_GetDatabaseChanCurrLen(i32 channel) {
  return call(kKernelObject, "KSD_GetDatabaseChanCurrLen", "i", {channel}).first().toInt();
}

// The zero byte that ends the word does not travel.
i32 BusHost::KSD_ACQTranslateParID(i16 parameter, std::string& buffer) {
  const QVariantList answer = call(kKernelObject, "KSD_ACQTranslateParID", "is", {number(parameter)});
  const std::string word = answer.at(1).toString().toStdString();
  if (buffer.size() <= word.size()) buffer.resize(word.size() + 1);
  std::copy(word.begin(), word.end(), buffer.begin());
  buffer[word.size()] = '\0';
  return answer.first().toInt();
}

i32 BusHost::DB_QuickMath(i32 target, i32 summand) {
  return call(kKernelObject, "DB_QuickMath", "i", {target, summand}).first().toInt();
}

}  // namespace trendaro
