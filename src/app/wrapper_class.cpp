#include "app/wrapper_class.h"

#include <utility>

namespace trendaro {

WrapperClass::WrapperClass(DatabaseKernel& kernel, std::function<void()> show_main_window)
    : show_main_window_(std::move(show_main_window)), link_(&own_) {
  own_.Kernel = &kernel;
}

void WrapperClass::Run() {
  show_main_window_();
}

void WrapperClass::AddmrvInterface(MervanHost* objInterface) {
  link_->Host = objInterface;
}

bool WrapperClass::CanUnload() const {
  return link_->CanUnloadFlag.value_or(false);
}

void WrapperClass::CanUnload(bool value) {
  link_->CanUnloadFlag = value;
}

void WrapperClass::hand_link_to(HostLink& link) {
  link = *link_;
  link_ = &link;
}

void WrapperClass::release_link() {
  own_ = *link_;
  link_ = &own_;
}

}  // namespace trendaro
