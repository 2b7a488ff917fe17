#pragma once

#include <QDBusConnection>
#include <QVariantList>

#include "app/database_kernel.h"
#include "app/host.h"

namespace trendaro {

// Where an object lives on the bus.
struct BusAddress {
  QString service;
  QString path;
};

// A host in another process, and its database kernel, reached through the bus. Each call blocks until the
// answer is there, however long that takes, and runs no event loop. A refused call throws the RunTimeError of
// the other side; a missing member throws kHostMemberMissing, an answer of another type kTypeMismatch, and a
// host that is not there, or dies meanwhile, kHostCallFailed.
class BusHost : public MervanHost, public HostDatabase, public DatabaseKernel {
 public:
  // Asks nothing of the host yet.
  BusHost(QDBusConnection bus, BusAddress address);

  // The host is another one from now on.
  void set_address(BusAddress address);
  [[nodiscard]] const BusAddress& address() const { return address_; }

  // Makes sure that the host is there; the bus may start its program. Throws RunTimeError{kHostNotCreated}.
  void create();

  HostDatabase& DB() override { return *this; }
  void ProgressControl(i16 command) override;

  i16 MaxChannels() override;
  HostValue GetChannelProperty(i16 channel, i16 property) override;
  void SetChannelProperty(i16 channel, i16 property, const HostValue& value) override;
  i32 GetChannelLength(i16 channel) override;
  void ReadData64(i16 channel, std::span<f64> values) override;
  void SetImportProperty(i16 key, const HostValue& value) override;
  i32 GetDataFileInfo(const std::string& path, i16 information, i16 channel) override;
  void ExecuteImport() override;
  void ClearChannel(i16 channel) override;
  void ClearAllChannels() override;
  void ShowDialog(i16 dialog, i16 argument) override;

  i32 KSD_WriteToDatabaseEx(i16 one, i32 channel, std::span<const f64> values, i16 append) override;
  i32 KSD_SetDatabaseChanText(i32 channel, i16 which, const std::string& text) override;
  i32 KSD_SetDatabaseChanModified(i32 channel, f64 date) override;
  i32 KSD_SetDatabaseChanCurrLen(i32 channel, i32 length) override;
  i32 KSD_GetDatabaseChanCurrLen(i32 channel) override;
  i32 KSD_ACQTranslateParID(i16 parameter, std::string& buffer) override;
  i32 DB_QuickMath(i32 target, i32 summand) override;

 private:
  // Calls a member of the host's object of that name, empty for the host itself. `gives` is the signature
  // that the answer must have.
  QVariantList call(const char* object, const char* member, const char* gives, const QVariantList& takes);

  QDBusConnection bus_;
  BusAddress address_;
};

}  // namespace trendaro
