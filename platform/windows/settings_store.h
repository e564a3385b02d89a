#pragma once

#include "platform/settings_store.h"

namespace platform::windows {

/// Text values (REG_SZ) in the registry hive of the current user.
class RegistryStore : public SettingsStore {
 public:
  /// The text is stored without a terminating zero.
  WriteResult Write(const std::string& key, const std::string& name, const std::string& value) override;
  bool HasKey(const std::string& key) override;
  ReadResult Read(const std::string& key, const std::string& name) override;
  std::string Message(int code) override;
};

}  // namespace platform::windows
