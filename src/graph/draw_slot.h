#pragma once

#include <algorithm>
#include <cstddef>
#include <span>

namespace trendaro {

// The place of one curve in a flat array. What it stands in is raw memory: its first `held` elements hold a
// value, and those behind get one when they are written or when the null value is filled in. So writers ask
// for the elements they are about to write.
template <typename T>
class DrawSlot {
 public:
  // A slot without elements.
  DrawSlot() = default;
  // `held` outlives the slot, and all slots of one place share it.
  DrawSlot(std::span<T> elements, std::size_t& held, T null_value)
      : elements_(elements), held_(&held), null_value_(null_value) {}

  [[nodiscard]] std::size_t size() const { return elements_.size(); }
  // The first `count` elements as a slot, or all of them where there are fewer.
  [[nodiscard]] DrawSlot first(std::size_t count) const {
    DrawSlot shorter = *this;
    shorter.elements_ = elements_.first(std::min(count, size()));
    return shorter;
  }

  // The elements `first` to `end` - 1, as far as the slot goes, for a writer that writes every one of them.
  [[nodiscard]] std::span<T> for_all(std::size_t first, std::size_t end) const {
    end = std::min(end, size());
    if (first >= end) return {};
    hold_up_to(first);
    *held_ = std::max(*held_, end);
    return elements_.subspan(first, end - first);
  }
  // The same for a writer that leaves some of them out: those are null, or as they were written before.
  [[nodiscard]] std::span<T> for_some(std::size_t first, std::size_t end) const {
    end = std::min(end, size());
    if (first >= end) return {};
    hold_up_to(end);
    return elements_.subspan(first, end - first);
  }
  // Fills the null value in up to the end.
  void fill_rest() const {
    if (size() > 0) hold_up_to(size());
  }
  // Takes back whatever was written.
  void clear() const {
    if (size() > 0) *held_ = 0;
  }

 private:
  void hold_up_to(std::size_t end) const {
    if (end <= *held_) return;
    std::ranges::fill(elements_.subspan(*held_, end - *held_), null_value_);
    *held_ = end;
  }

  std::span<T> elements_;
  std::size_t* held_ = nullptr;
  T null_value_ = {};
};

}  // namespace trendaro
