#pragma once

#include <utility>

#include "platform/windows/windows_api.h"

namespace platform::windows {

/// Owns one handle of the system and closes it. Traits say what type it has, which value stands for none, and
/// how it is closed.
template <typename Traits>
class Handle {
 public:
  using Type = typename Traits::Type;

  Handle() = default;
  explicit Handle(Type value) : value_(value) {}
  ~Handle() { Close(); }
  Handle(Handle&& other) noexcept : value_(std::exchange(other.value_, Traits::None())) {}
  Handle& operator=(Handle&& other) noexcept {
    if (this != &other) {
      Close();
      value_ = std::exchange(other.value_, Traits::None());
    }
    return *this;
  }

  explicit operator bool() const { return value_ != Traits::None(); }
  Type get() const { return value_; }

  void Close() {
    if (*this) Traits::Close(std::exchange(value_, Traits::None()));
  }

 private:
  Type value_ = Traits::None();
};

struct FileTraits {
  using Type = HANDLE;
  static Type None() { return INVALID_HANDLE_VALUE; }
  static void Close(Type value) { ::CloseHandle(value); }
};

struct SearchTraits {
  using Type = HANDLE;
  static Type None() { return INVALID_HANDLE_VALUE; }
  static void Close(Type value) { ::FindClose(value); }
};

struct KeyTraits {
  using Type = HKEY;
  static Type None() { return nullptr; }
  static void Close(Type value) { ::RegCloseKey(value); }
};

using FileHandle = Handle<FileTraits>;
using SearchHandle = Handle<SearchTraits>;
using KeyHandle = Handle<KeyTraits>;

}  // namespace platform::windows
