#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "platform/clock.h"
#include "platform/locale.h"
#include "platform/settings_store.h"
#include "platform/shell.h"

/// The small seams; an implementation takes part by instantiating the suites with a maker of its own.
namespace platform::contract {

template <typename Seam>
using Maker = std::function<std::shared_ptr<Seam>()>;

template <typename Seam>
class SeamTest : public testing::TestWithParam<Maker<Seam>> {
 protected:
  std::shared_ptr<Seam> seam_ = this->GetParam()();
};

/// The store is new and empty, and lives as long as what made it.
class SettingsStoreContract : public SeamTest<SettingsStore> {};
class ClockContract : public SeamTest<Clock> {};
class LocaleContract : public SeamTest<Locale> {};
class ShellContract : public SeamTest<Shell> {};

}  // namespace platform::contract
