#include "platform/windows/registry_store.h"

#include <gtest/gtest.h>

#include "platform/file_system.h"
#include "platform/windows/wide_text.h"
#include "platform/windows/windows_api.h"

using platform::windows::Widen;

namespace {

class Registry : public ::testing::Test {
 protected:
  ~Registry() override { ::RegDeleteTreeW(HKEY_CURRENT_USER, Widen(key_).c_str()); }

  const std::string key_ = "Software\\" + platform::MakeTemporaryName();
  platform::windows::RegistryStore store_;
};

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
}

}  // namespace
