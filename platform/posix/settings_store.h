#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/result.h"
#include "platform/settings_store.h"

namespace platform::posix {

/// The settings store in a small text file of the user's: a line "[key]" for each key, below it a line
/// "name=value" for each value; "\\", "\n", "\r", "\[" and "\=" stand for what would separate lines. A line
/// that cannot be read is passed over, and gone after the next write. The file is read and written whole by
/// every call and replaced in one step. Outcomes are the numbers of settings_store.h, else errno numbers.
class FileSettingsStore : public SettingsStore {
 public:
  /// The file at `path` and the folders above it are made by the first Write().
  explicit FileSettingsStore(std::string path) : path_(std::move(path)) {}

  WriteResult Write(const std::string& key, const std::string& name, const std::string& value) override;
  bool HasKey(const std::string& key) override;
  ReadResult Read(const std::string& key, const std::string& name) override;
  std::string Message(int code) override;

 private:
  struct Value {
    std::string name;
    std::string text;
  };
  struct Key {
    std::string path;
    std::vector<Value> values;
  };
  using Keys = std::vector<Key>;

  static Keys Parse(const std::string& text);
  static std::string TextOf(const Keys& keys);
  static Key* FindKey(Keys& keys, const std::string& path);
  static Value* FindValue(Key& key, const std::string& name);
  /// An error but for a missing file, which holds no keys.
  Result<Keys> Load() const;

  std::string path_;
};

}  // namespace platform::posix
