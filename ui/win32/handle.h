#pragma once

#include <utility>

namespace ui::win32 {

/// Owns one handle of the system and gives it back by `Close`.
template <typename T, auto Close>
class Handle {
 public:
  Handle() = default;
  explicit Handle(T handle) : handle_(handle) {}
  ~Handle() { Reset(); }
  Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, T{})) {}
  Handle& operator=(Handle&& other) noexcept {
    if (this != &other) {
      Reset();
      handle_ = std::exchange(other.handle_, T{});
    }
    return *this;
  }

  T get() const { return handle_; }
  explicit operator bool() const { return handle_ != T{}; }
  /// Gives the ownership away.
  T Release() { return std::exchange(handle_, T{}); }

 private:
  void Reset() {
    if (handle_ != T{}) Close(std::exchange(handle_, T{}));
  }

  T handle_{};
};

}  // namespace ui::win32
