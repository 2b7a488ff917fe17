#pragma once

namespace trendaro {

// Raises a flag for the lifetime of the object and gives it its former value back afterwards.
class Raised {
 public:
  explicit Raised(bool& flag) : flag_(flag), before_(flag) { flag_ = true; }
  ~Raised() { flag_ = before_; }
  Raised(const Raised&) = delete;
  Raised& operator=(const Raised&) = delete;

 private:
  bool& flag_;
  bool before_;
};

}  // namespace trendaro
