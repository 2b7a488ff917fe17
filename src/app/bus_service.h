#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>

#include "app/database_kernel.h"
#include "app/host.h"

namespace trendaro {

// Serves a host and its database kernel on the bus, as docs/host-interface.md describes it. A call with other
// argument types is answered by InvalidArgs, a member that is none by UnknownMethod, and whatever the host
// throws by kHostError.
class BusService : public QDBusVirtualObject {
 public:
  // Both must outlive the service.
  BusService(MervanHost& host, DatabaseKernel& kernel);

  // Puts the objects on the bus, the host at `path`, while this service lives. False where the path is taken.
  bool serve(QDBusConnection bus, const QString& path);

  bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override;
  [[nodiscard]] QString introspect(const QString& path) const override;

 private:
  MervanHost& host_;
  DatabaseKernel& kernel_;
  QString path_;
};

}  // namespace trendaro
