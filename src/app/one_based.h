#pragma once

#include <cassert>
#include <concepts>
#include <cstddef>
#include <initializer_list>
#include <utility>
#include <vector>

namespace trendaro {

// An array whose first element has the index 1. Channels, plots, files and grid rows are counted this way
// everywhere a user or a file names them. The index is asserted; there is no element 0.
template <typename T>
class OneBased {
 public:
  OneBased() = default;
  OneBased(std::initializer_list<T> elements) : elements_(elements) {}
  // `count` elements, each equal to `value`.
  explicit OneBased(std::size_t count, const T& value = T()) : elements_(count, value) {}

  // The element number `index`, 1 to size().
  T& operator[](std::integral auto index) { return elements_[slot(index)]; }
  const T& operator[](std::integral auto index) const { return elements_[slot(index)]; }

  // True for an index that names an element.
  [[nodiscard]] bool has(std::integral auto index) const {
    return index >= 1 && static_cast<std::size_t>(index) <= elements_.size();
  }

  [[nodiscard]] std::size_t size() const { return elements_.size(); }
  [[nodiscard]] bool empty() const { return elements_.empty(); }
  // New elements are made from T(), the old ones keep their contents.
  void resize(std::size_t count) { elements_.resize(count); }
  void assign(std::size_t count, const T& value) { elements_.assign(count, value); }
  void clear() { elements_.clear(); }
  void push_back(T value) { elements_.push_back(std::move(value)); }

  // Removes the elements `first` to `first + count - 1`; the later ones move up.
  void erase(std::integral auto first, std::size_t count) {
    assert(slot(first) + count <= elements_.size());
    const auto begin = elements_.begin() + static_cast<std::ptrdiff_t>(slot(first));
    elements_.erase(begin, begin + static_cast<std::ptrdiff_t>(count));
  }

  auto begin() { return elements_.begin(); }
  auto end() { return elements_.end(); }
  auto begin() const { return elements_.begin(); }
  auto end() const { return elements_.end(); }

  friend bool operator==(const OneBased&, const OneBased&) = default;

 private:
  [[nodiscard]] std::size_t slot(std::integral auto index) const {
    assert(has(index) && "index of a 1-based array out of range");
    return static_cast<std::size_t>(index) - 1;
  }

  std::vector<T> elements_;
};

}  // namespace trendaro
