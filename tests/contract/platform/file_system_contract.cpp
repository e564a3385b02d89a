#include "tests/contract/platform/file_system_contract.h"

#include <algorithm>
#include <stdexcept>

#include "platform/path.h"

namespace platform::contract {
namespace {

template <typename T>
T Must(Result<T> result, const std::string& relative) {
  if (!result) throw std::runtime_error(relative + ": " + result.error().text);
  return std::move(*result);
}

}  // namespace

SceneTest::SceneTest(std::unique_ptr<Scene> scene) : scene_(std::move(scene)) {
  AddFolder("from");
  AddFolder("to");
}

std::string SceneTest::At(const std::string& relative) const {
  std::string path = scene_->root() + '/' + relative;
  std::replace(path.begin(), path.end(), '/', Separator());
  return path;
}

void SceneTest::AddFolder(const std::string& relative) { Must(files().CreateFolder(At(relative)), relative); }

void SceneTest::AddFile(const std::string& relative, const std::string& content, FileTime modified) {
  Must(files().WriteFile(At(relative), content), relative);
  scene_->SetModified(At(relative), modified);
}

std::string SceneTest::ContentOf(const std::string& relative) {
  return Must(files().ReadFile(At(relative), 1 << 30), relative);
}

Entry SceneTest::EntryAt(const std::string& relative) { return Must(files().Look(At(relative)), relative); }

std::unique_ptr<Folder> SceneTest::Open(const std::string& relative) {
  return Must(files().OpenFolder(At(relative)), relative);
}

std::vector<std::string> SceneTest::NamesIn(const std::string& relative) {
  Names names;
  const auto folder = Open(relative);
  for (const Entry& entry : folder->entries()) names.push_back(entry.name);
  std::sort(names.begin(), names.end());
  return names;
}

Result<CopyOutcome> SceneTest::Copy(const std::string& name, const CopyWatcher& watcher) {
  const auto from = Open("from");
  return files().CopyFile(*from, Named(*from, name), *Open("to"), watcher);
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
