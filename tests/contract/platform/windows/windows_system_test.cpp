#include "platform/file_system.h"
#include "platform/windows/handle.h"
#include "platform/windows/registry_store.h"
#include "platform/windows/wide_text.h"
#include "platform/windows/windows_clock.h"
#include "platform/windows/windows_locale.h"
#include "tests/contract/platform/system_contract.h"

namespace platform::contract {
namespace {

/// A store in a key of its own, which plays the user's hive while it lives.
class ScratchRegistry : public windows::RegistryStore {
 public:
  ScratchRegistry() {
    HKEY key = nullptr;
    ::RegCreateKeyW(HKEY_CURRENT_USER, name_.c_str(), &key);
    key_ = windows::KeyHandle(key);
    ::RegOverridePredefKey(HKEY_CURRENT_USER, key);
  }
  ~ScratchRegistry() override {
    ::RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    ::RegDeleteTreeW(HKEY_CURRENT_USER, name_.c_str());
  }

 private:
  const std::wstring name_ = L"Software\\" + windows::Widen(MakeTemporaryName());
  windows::KeyHandle key_;
};

TEST(Registry, AZeroThatAnotherProgramStoredIsNoPartOfTheText) {
  ScratchRegistry store;
  ASSERT_EQ(::RegSetKeyValueW(HKEY_CURRENT_USER, L"Key", L"name", REG_SZ, L"ab", 6), 0);
  EXPECT_EQ(store.Read("Key", "name").value, "ab");
}

INSTANTIATE_TEST_SUITE_P(Windows, SettingsStoreContract, testing::Values(std::make_shared<ScratchRegistry>));
INSTANTIATE_TEST_SUITE_P(Windows, ClockContract, testing::Values(std::make_shared<windows::WindowsClock>));
INSTANTIATE_TEST_SUITE_P(Windows, LocaleContract, testing::Values(std::make_shared<windows::WindowsLocale>));

}  // namespace
}  // namespace platform::contract
