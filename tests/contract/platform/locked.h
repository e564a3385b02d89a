#pragma once

#include <mutex>

namespace platform::test {

/// Something that a test and the program's threads use, one at a time: whoever asks for it has it until the
/// end of the expression, or as long as the object lives.
template <typename T>
class Locked {
 public:
  explicit Locked(T& value) : lock_(Mutex()), value_(value) {}
  T* operator->() const { return &value_; }
  T& operator*() const { return value_; }

 private:
  static std::recursive_mutex& Mutex() {
    static std::recursive_mutex mutex;
    return mutex;
  }
  std::unique_lock<std::recursive_mutex> lock_;
  T& value_;
};

}  // namespace platform::test
