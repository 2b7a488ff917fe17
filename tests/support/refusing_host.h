#pragma once

#include "app/memory_host.h"
#include "app/run_time_error.h"

namespace trendaro {

// A host whose imports fail, behind the first `imports`.
class RefusingHost : public MemoryHost {
 public:
  using MemoryHost::MemoryHost;
  int imports = 0;

  void ExecuteImport() override {
    if (imports == 0) throw RunTimeError{kHostCallFailed};
    --imports;
    MemoryHost::ExecuteImport();
  }
};

}  // namespace trendaro
