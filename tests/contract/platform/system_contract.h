#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "platform/clock.h"
#include "platform/locale.h"
#include "platform/settings_store.h"

/// The small seams; an implementation takes part by instantiating the suites with a maker of its own.
namespace platform::contract {

template <typename Seam>
using Maker = std::function<std::shared_ptr<Seam>()>;

/// The store is new and empty, and lives as long as what made it.
class SettingsStoreContract : public testing::TestWithParam<Maker<SettingsStore>> {
 protected:
  std::shared_ptr<SettingsStore> store_ = GetParam()();
};

class ClockContract : public testing::TestWithParam<Maker<Clock>> {
 protected:
  std::shared_ptr<Clock> clock_ = GetParam()();
};

class LocaleContract : public testing::TestWithParam<Maker<Locale>> {
 protected:
  std::shared_ptr<Locale> locale_ = GetParam()();
};

}  // namespace platform::contract
