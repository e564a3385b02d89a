#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "platform/clock.h"
#include "platform/locale.h"
#include "platform/settings_store.h"

/// The small seams; an implementation takes part by instantiating the suites with a maker of its own.
namespace platform::contract {

/// The store is new and empty, and lives as long as what made it.
class SettingsStoreContract : public testing::TestWithParam<std::function<std::shared_ptr<SettingsStore>()>> {
 protected:
  std::shared_ptr<SettingsStore> store_ = GetParam()();
};

class ClockContract : public testing::TestWithParam<std::function<std::shared_ptr<Clock>()>> {
 protected:
  std::shared_ptr<Clock> clock_ = GetParam()();
};

class LocaleContract : public testing::TestWithParam<std::function<std::shared_ptr<Locale>()>> {
 protected:
  std::shared_ptr<Locale> locale_ = GetParam()();
};

}  // namespace platform::contract
