#pragma once

#include <charconv>
#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace trendaro {

// Values of a template file as text: numbers in their shortest form, true and false, texts in quotes, lists
// in brackets.

// "a\"b\n": quotes, backslashes and control characters are escaped, other bytes stay.
void append_quoted(std::string& out, std::string_view text);

// Reads what append_quoted wrote from the start of `rest` and takes it off. False leaves `text` undefined.
bool take_quoted(std::string_view& rest, std::string& text);

void skip_blanks(std::string_view& rest);

// Takes `token` off the start of `rest`, if it stands there.
bool take_token(std::string_view& rest, std::string_view token);

template <typename T>
void append_value(std::string& out, const T& value) {
  if constexpr (std::is_same_v<T, std::string>) {
    append_quoted(out, value);
  } else if constexpr (std::is_same_v<T, bool>) {
    out += value ? "true" : "false";
  } else {
    char digits[32];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    out.append(digits, end);
  }
}

template <typename T>
void append_value(std::string& out, const std::vector<T>& list) {
  out += '[';
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (i != 0) out += ", ";
    append_value(out, list[i]);
  }
  out += ']';
}

// Reads a value of the type of `value` from the start of `rest` and takes it off. False: it is none of that
// type, or a number that is not finite; `value` is then undefined.
template <typename T>
bool take_value(std::string_view& rest, T& value) {
  if constexpr (std::is_same_v<T, std::string>) {
    return take_quoted(rest, value);
  } else if constexpr (std::is_same_v<T, bool>) {
    value = take_token(rest, "true");
    return value || take_token(rest, "false");
  } else {
    const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), value);
    if (error != std::errc()) return false;
    rest.remove_prefix(static_cast<std::size_t>(end - rest.data()));
    if constexpr (std::is_floating_point_v<T>) return std::isfinite(value);
    return true;
  }
}

template <typename T>
bool take_value(std::string_view& rest, std::vector<T>& list) {
  list.clear();
  if (!take_token(rest, "[")) return false;
  skip_blanks(rest);
  if (take_token(rest, "]")) return true;
  for (;;) {
    T element{};
    if (!take_value(rest, element)) return false;
    list.push_back(std::move(element));
    skip_blanks(rest);
    if (take_token(rest, "]")) return true;
    if (!take_token(rest, ",")) return false;
    skip_blanks(rest);
  }
}

}  // namespace trendaro
