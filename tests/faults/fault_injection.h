#pragma once

namespace trendaro {

// What happens to the system call or allocation that is struck.
enum class Fault {
  Error,        // it fails
  Interrupted,  // a read or write fails with EINTR, as after a signal; nothing else is struck
  Partial,      // a read or write moves half of its bytes; nothing else is struck
};

struct FaultPlan {
  Fault fault = Fault::Error;
  int first = 0;              // number of the call that is struck, from 1; 0 strikes none
  bool from_then_on = false;  // so are all calls behind it
  long long bad_place = -1;   // reads by position fail from this byte of a file on; -1: no such place
};

// Lets the plan work for the lifetime of the object. Calls outside of it are not counted.
class FaultsAtWork {
 public:
  explicit FaultsAtWork(FaultPlan plan);
  ~FaultsAtWork();
  FaultsAtWork(const FaultsAtWork&) = delete;
  FaultsAtWork& operator=(const FaultsAtWork&) = delete;
};

// Calls that the last plan has struck.
int struck_calls();

// Descriptors that the process holds open.
int open_descriptors();

}  // namespace trendaro
