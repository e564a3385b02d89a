#include "platform/windows/registry_store.h"

#include <gtest/gtest.h>

#include "platform/file_system.h"
#include "platform/windows/wide_text.h"
#include "platform/windows/windows_api.h"

using platform::SettingsStore;
using platform::windows::Widen;

namespace {

class Registry : public ::testing::Test {
 protected:
  ~Registry() override { ::RegDeleteTreeW(HKEY_CURRENT_USER, Widen(key_).c_str()); }

  const std::string key_ = "Software\\" + platform::MakeTemporaryName();
  platform::windows::RegistryStore store_;
};

TEST_F(Registry, AKeyIsCreatedOnceAndKeepsItsValue) {
  EXPECT_FALSE(store_.HasKey(key_));
  const auto first = store_.Write(key_, "name", "21.11.2026 at 14:05:09 \xE2\x82\xAC");
  EXPECT_EQ(first.create_code, platform::kStoreSuccess);
  EXPECT_EQ(first.disposition, SettingsStore::Disposition::kCreated);
  EXPECT_EQ(first.set_code, platform::kStoreSuccess);
  EXPECT_TRUE(store_.HasKey(key_));
  const auto read = store_.Read(key_, "NAME");
  EXPECT_EQ(read.code, platform::kStoreSuccess);
  EXPECT_TRUE(read.has_value);
  EXPECT_EQ(read.value, "21.11.2026 at 14:05:09 \xE2\x82\xAC");

  EXPECT_EQ(store_.Write(key_, "name", "b").disposition, SettingsStore::Disposition::kOpened);
  EXPECT_EQ(store_.Read(key_, "name").value, "b");
}

TEST_F(Registry, AValueThatIsNotThereIsNotFound) {
  EXPECT_EQ(store_.Read(key_, "name").code, platform::kStoreNotFound);
  store_.Write(key_, "other", "x");
  EXPECT_EQ(store_.Read(key_, "name").code, platform::kStoreNotFound);
  EXPECT_FALSE(store_.Read(key_, "name").has_value);
}

TEST_F(Registry, AZeroThatAnotherProgramStoredIsNoPartOfTheText) {
  ASSERT_EQ(::RegSetKeyValueW(HKEY_CURRENT_USER, Widen(key_).c_str(), L"name", REG_SZ, L"ab", 6), 0);
  EXPECT_EQ(store_.Read(key_, "name").value, "ab");
}

TEST_F(Registry, MessagesHaveNoLineEndAndAreShort) {
  for (int code = 0; code < 2000; ++code) {
    const std::string text = store_.Message(code);
    EXPECT_LE(text.size(), 100U) << code;
    EXPECT_FALSE(text.ends_with('\n') || text.ends_with('\r') || text.ends_with(' ')) << code;
  }
  EXPECT_FALSE(store_.Message(platform::kStoreNotFound).empty());
  EXPECT_TRUE(store_.Message(0x1FFFFFFF).empty());
}

}  // namespace
