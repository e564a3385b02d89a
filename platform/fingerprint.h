#pragma once

#include <cstdint>
#include <memory>
#include <span>

namespace platform {

/// What the bytes of a file come down to. Two contents have the same by chance only, once in 2^64.
struct Fingerprint {
  std::uint64_t hash = 0;
  std::int64_t bytes = 0;  ///< how many they are

  bool operator==(const Fingerprint&) const = default;
};

/// Takes the fingerprint of bytes as they pass, some gigabytes a second.
class FingerprintTaker {
 public:
  FingerprintTaker();
  ~FingerprintTaker();

  void Add(std::span<const char> bytes);

  /// Of all bytes so far.
  Fingerprint Taken() const;

 private:
  struct State;

  std::unique_ptr<State> state_;
  std::int64_t bytes_ = 0;
};

}  // namespace platform
