#pragma once

namespace trendaro {

// Gives a value back as it was, whatever happens to it during the lifetime of the object.
template <typename Value>
class Kept {
 public:
  explicit Kept(Value& value) : value_(value), before_(value) {}
  ~Kept() { value_ = before_; }
  Kept(const Kept&) = delete;
  Kept& operator=(const Kept&) = delete;

 private:
  Value& value_;
  Value before_;
};

}  // namespace trendaro
