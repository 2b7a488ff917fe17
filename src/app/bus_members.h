#pragma once

#include <QVariantList>
#include <span>

#include "app/database_kernel.h"
#include "app/host.h"

namespace trendaro {

// One member of the host on the bus.
struct BusMember {
  const char* object;  // kDatabaseObject, kKernelObject; empty for the host itself
  const char* name;
  const char* takes;  // signature of the arguments
  const char* gives;  // signature of the answer
  // Runs it with arguments of that signature. What the host throws passes through.
  QVariantList (*run)(MervanHost& host, DatabaseKernel& kernel, const QVariantList& arguments);
};

// All members.
std::span<const BusMember> bus_members();

}  // namespace trendaro
