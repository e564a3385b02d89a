#include <gtest/gtest.h>

#include <set>
#include <string>

#include "platform/file_system.h"

namespace platform {

TEST(TemporaryName, IsFreshAndKnownAsOne) {
  std::set<std::string> names;
  for (int i = 0; i < 1000; ++i) names.insert(MakeTemporaryName());
  EXPECT_EQ(names.size(), 1000u);
  for (const std::string& name : names) EXPECT_TRUE(IsTemporaryName(name)) << name;
}

TEST(TemporaryName, NoNameOfAUsersFileIsTakenForOne) {
  for (const char* name : {"", ".quorvane-.partial", ".quorvane-0123456789abcde.partial",
                           ".quorvane-0123456789ABCDEF.partial", ".quorvane-0123456789abcdef0.partial",
                           ".quorvane-0123456789abcdeg.partial", "x.quorvane-0123456789abcdef.partial",
                           ".quorvane-0123456789abcdef.partial.txt", ".Quorvane-0123456789abcdef.partial"}) {
    EXPECT_FALSE(IsTemporaryName(name)) << name;
  }
}

}  // namespace platform
