#include "platform/posix/settings_store.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "base/ascii_case.h"
#include "platform/path.h"
#include "platform/posix/whole_file.h"

namespace platform::posix {
namespace {

constexpr std::int64_t kLargestFile = std::int64_t{1024} * 1024;
constexpr std::size_t kLongestMessage = 100;
constexpr std::string_view kEscaped = "\\\n\r[=";
constexpr std::string_view kLetters = "\\nr[=";

int CodeOf(const Error& error) {
  if (error.kind == ErrorKind::kNotFound) return kStoreNotFound;
  if (error.kind == ErrorKind::kAccessDenied || error.kind == ErrorKind::kReadOnlyMedium) {
    return kStoreAccessDenied;
  }
  return error.code;
}

std::string Escaped(const std::string& text) {
  std::string result;
  for (const char c : text) {
    const std::size_t at = kEscaped.find(c);
    if (at == std::string_view::npos) {
      result += c;
    } else {
      result += '\\';
      result += kLetters[at];
    }
  }
  return result;
}

/// The text before an unescaped `end` (or the whole), plain, and taken off `line` with its end.
std::string TakeUntil(char end, std::string_view& line) {
  std::string result;
  std::size_t at = 0;
  for (; at < line.size() && line[at] != end; ++at) {
    char c = line[at];
    if (c == '\\' && at + 1 < line.size()) {
      const std::size_t letter = kLetters.find(line[++at]);
      c = letter == std::string_view::npos ? line[at] : kEscaped[letter];
    }
    result += c;
  }
  line.remove_prefix(std::min(at + 1, line.size()));
  return result;
}

template <typename Entry>
Entry* FindByName(std::vector<Entry>& entries, std::string Entry::*member, const std::string& name) {
  for (Entry& entry : entries) {
    if (base::LowerAscii(entry.*member) == base::LowerAscii(name)) return &entry;
  }
  return nullptr;
}

}  // namespace

FileSettingsStore::Keys FileSettingsStore::Parse(const std::string& text) {
  Keys keys;
  std::string_view rest = text;
  while (!rest.empty()) {
    std::string_view line = rest.substr(0, rest.find('\n'));
    rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (line.starts_with('[') && line.ends_with(']')) {
      line.remove_prefix(1);
      line.remove_suffix(1);
      keys.push_back({TakeUntil('\n', line), {}});
    } else if (!keys.empty() && line.find('=') != std::string_view::npos) {
      const std::string name = TakeUntil('=', line);
      keys.back().values.push_back({name, TakeUntil('\n', line)});
    }
  }
  return keys;
}

std::string FileSettingsStore::TextOf(const Keys& keys) {
  std::string text;
  for (const Key& key : keys) {
    text += '[' + Escaped(key.path) + "]\n";
    for (const Value& value : key.values) text += Escaped(value.name) + '=' + Escaped(value.text) + '\n';
  }
  return text;
}

FileSettingsStore::Key* FileSettingsStore::FindKey(Keys& keys, const std::string& path) {
  return FindByName(keys, &Key::path, path);
}

FileSettingsStore::Value* FileSettingsStore::FindValue(Key& key, const std::string& name) {
  return FindByName(key.values, &Value::name, name);
}

Result<FileSettingsStore::Keys> FileSettingsStore::Load() const {
  const auto text = ReadWhole(path_, kLargestFile);
  if (text) return Parse(*text);
  if (text.error().kind == ErrorKind::kNotFound) return Keys();
  return text.error();
}

SettingsStore::WriteResult FileSettingsStore::Write(const std::string& key, const std::string& name,
                                                    const std::string& value) {
  WriteResult result;
  auto keys = Load();
  if (!keys) {
    result.create_code = CodeOf(keys.error());
    return result;
  }
  Key* place = FindKey(*keys, key);
  result.disposition = place ? Disposition::kOpened : Disposition::kCreated;
  if (!place) place = &keys->emplace_back(Key{key, {}});
  Value* old = FindValue(*place, name);
  if (old) {
    old->text = value;
  } else {
    place->values.push_back({name, value});
  }
  std::error_code failure;  // what went wrong shows when the file is written
  std::filesystem::create_directories(ParentOf(path_, PathStyle::kPosix), failure);
  const Status written = ReplaceWhole(path_, TextOf(*keys));
  if (!written) result.set_code = CodeOf(written.error());
  return result;
}

bool FileSettingsStore::HasKey(const std::string& key) {
  auto keys = Load();
  return keys && FindKey(*keys, key) != nullptr;
}

SettingsStore::ReadResult FileSettingsStore::Read(const std::string& key, const std::string& name) {
  auto keys = Load();
  if (!keys) return {CodeOf(keys.error()), false, {}};
  Key* place = FindKey(*keys, key);
  const Value* value = place ? FindValue(*place, name) : nullptr;
  if (!value) return {kStoreNotFound, false, {}};
  return {kStoreSuccess, true, value->text};
}

std::string FileSettingsStore::Message(int code) {
  std::string common = CommonStoreMessage(code);
  if (!common.empty()) return common;
  std::string text = std::generic_category().message(code);
  if (code < 0 || text.starts_with("Unknown error") || text.size() > kLongestMessage) return {};
  return text;
}

}  // namespace platform::posix
