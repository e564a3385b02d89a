#pragma once

#include <utility>

namespace base {

/// Owns one handle of the system and gives it back when it goes. Traits name the handle's type (`Value`), the
/// value that stands for none (`None()`) and the call that gives it back (`Close(value)`).
template <typename Traits>
class Handle {
 public:
  using Value = typename Traits::Value;

  Handle() = default;
  explicit Handle(Value value) : value_(value) {}
  Handle(Handle&& other) noexcept : value_(other.Release()) {}
  Handle& operator=(Handle&& other) noexcept {
    if (this != &other) Reset(other.Release());
    return *this;
  }
  ~Handle() { Reset(); }

  explicit operator bool() const { return value_ != Traits::None(); }
  Value get() const { return value_; }

  /// Gives up the handle without closing it; the caller owns it from now on.
  Value Release() { return std::exchange(value_, Traits::None()); }

  /// Closes the handle and takes another one, or none.
  void Reset(Value value = Traits::None()) {
    if (value_ != Traits::None()) Traits::Close(value_);
    value_ = value;
  }

 private:
  Value value_ = Traits::None();
};

/// Traits of a handle of which T{} is none and which `close` gives back.
template <typename T, auto close>
struct ClosedBy {
  using Value = T;
  static T None() { return T{}; }
  static void Close(T value) { close(value); }
};

}  // namespace base
