#include "platform/fingerprint.h"

#define XXH_INLINE_ALL
#include <xxhash.h>

namespace platform {

struct FingerprintTaker::State {
  State() { XXH3_64bits_reset(&hash); }
  XXH3_state_t hash;
};

FingerprintTaker::FingerprintTaker() : state_(std::make_unique<State>()) {}

FingerprintTaker::~FingerprintTaker() = default;

void FingerprintTaker::Add(std::span<const char> bytes) {
  XXH3_64bits_update(&state_->hash, bytes.data(), bytes.size());
  bytes_ += static_cast<std::int64_t>(bytes.size());
}

Fingerprint FingerprintTaker::Taken() const { return {XXH3_64bits_digest(&state_->hash), bytes_}; }

}  // namespace platform
