#include "platform/posix/listing_ahead.h"

#include <utility>

namespace platform::posix {
namespace {

// Other programs may change a folder between its listing and its use; that is to stay as short as if the
// folder were listed when it is wanted.
constexpr std::chrono::seconds kFresh{1};

// What handing a folder to another thread and back costs, about.
constexpr std::chrono::microseconds kHandOver{40};

}  // namespace

void ListingAhead::Begin(const std::string& path) {
  if (last_took_ < kHandOver) return;
  path_ = path;
  const auto promise = std::make_shared<std::promise<Timed>>();
  next_ = promise->get_future();
  worker_.Post([promise, path] { promise->set_value(List(path)); });
}

ListingAhead::Listing ListingAhead::Take(const std::string& path) {
  Timed timed = next_.valid() && path_ == path ? next_.get() : List(path);
  if (Clock::now() - timed.begun - timed.took > kFresh) timed = List(path);
  last_took_ = timed.took;
  return std::move(timed.listing);
}

ListingAhead::Timed ListingAhead::List(const std::string& path) {
  const auto begun = Clock::now();
  Listing listing = PosixFolder::Open(path);
  return {std::move(listing), begun, Clock::now() - begun};
}

}  // namespace platform::posix
