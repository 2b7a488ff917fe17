#pragma once

#include <functional>

#include "app/host_link.h"

namespace trendaro {

// The public class of the automation server. A host creates it, gives itself with AddmrvInterface, calls Run,
// and later asks CanUnload whether the viewer may be released.
class WrapperClass {
 public:
  // `show_main_window` shows it, non-modal and without an owner, or brings it to the front. `kernel` works on
  // the channels of whatever host is given, and outlives this object.
  WrapperClass(DatabaseKernel& kernel, std::function<void()> show_main_window);

  void Run();
  // Stores the given object as the host; nothing else happens. Null takes the host away.
  void AddmrvInterface(MervanHost* objInterface);
  // False as long as nothing was said, true once the main window has been unloaded, or what the host set.
  [[nodiscard]] bool CanUnload() const;
  void CanUnload(bool value);

  // Whether a host was given and not taken away again.
  [[nodiscard]] bool has_host() const { return link_->Host != nullptr; }

  // Gives what was stored up to now to a new main window, whose link counts until release_link.
  void hand_link_to(HostLink& link);
  // Keeps the link of a main window that goes.
  void release_link();

 private:
  std::function<void()> show_main_window_;
  HostLink own_;
  HostLink* link_;  // own_, or that of the main window
};

}  // namespace trendaro
