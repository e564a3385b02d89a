#include "tests/contract/platform/file_system_contract.h"

#include <algorithm>
#include <stdexcept>

namespace platform::contract {

FileSystemContract::FileSystemContract() : scene_(GetParam()()) {
  AddFolder("from");
  AddFolder("to");
}

std::string FileSystemContract::At(const std::string& relative) const {
  std::string path = scene_->root() + '/' + relative;
  std::replace(path.begin(), path.end(), '/', scene_->separator());
  return path;
}

void FileSystemContract::AddFolder(const std::string& relative) {
  ASSERT_TRUE(files().CreateFolder(At(relative)).ok()) << relative;
}

void FileSystemContract::AddFile(const std::string& relative, const std::string& content, FileTime modified) {
  ASSERT_TRUE(files().WriteFile(At(relative), content).ok()) << relative;
  scene_->SetModified(At(relative), modified);
}

std::string FileSystemContract::ContentOf(const std::string& relative) {
  const auto content = files().ReadFile(At(relative), 1 << 30);
  return content.ok() ? *content : "<" + content.error().text + ">";
}

Entry FileSystemContract::EntryAt(const std::string& relative) {
  auto entry = files().Look(At(relative));
  if (!entry.ok()) throw std::runtime_error(relative + ": " + entry.error().text);
  return *entry;
}

std::unique_ptr<Folder> FileSystemContract::Open(const std::string& relative) {
  auto folder = files().OpenFolder(At(relative));
  if (!folder.ok()) throw std::runtime_error(relative + ": " + folder.error().text);
  return std::move(*folder);
}

std::vector<std::string> FileSystemContract::NamesIn(const std::string& relative) {
  std::vector<std::string> names;
  const auto folder = Open(relative);
  for (const Entry& entry : folder->entries()) names.push_back(entry.name);
  std::sort(names.begin(), names.end());
  return names;
}

Result<CopyOutcome> FileSystemContract::Copy(const std::string& name, const CopyWatcher& watcher) {
  const auto from = Open("from");
  const auto to = Open("to");
  return files().CopyFile(*from, Named(*from, name), *to, watcher);
}

const Entry& Named(const Folder& folder, const std::string& name) {
  for (const Entry& entry : folder.entries()) {
    if (entry.name == name) return entry;
  }
  throw std::runtime_error("not listed: " + name);
}

std::string Noise(std::size_t size) {
  std::string bytes(size, '\0');
  unsigned state = 12345;
  for (char& byte : bytes) {
    state = state * 1103515245 + 12345;
    byte = static_cast<char>(state >> 16);
  }
  return bytes;
}

}  // namespace platform::contract
