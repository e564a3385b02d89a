#include "services/last_run_file.h"

#include "platform/path.h"
#include "services/setup_file.h"
#include "services/setup_text.h"

namespace services {

LastRunState LastRunFile::Stat(const std::string& path, std::string& reason) const {
  const auto entry = files_.Stat(path);
  if (entry)
    return entry->kind == platform::EntryKind::kFile ? LastRunState::kFile : LastRunState::kNotReadable;
  if (entry.error().kind == platform::ErrorKind::kNotFound) return LastRunState::kNone;
  reason = entry.error().text;
  return LastRunState::kNotReadable;
}

void LastRunFile::NoteBeforeLoading(const std::string& path) {
  read_in_part_ = false;
  known_.reset();
  if (const auto content = files_.ReadFile(path, kLargestSetupFile)) known_ = *content;
}

LastRunFile::Loss LastRunFile::LossBySaving(const std::string& path, const app::Setup& setup) const {
  const auto content = files_.ReadFile(path, kLargestSetupFile);
  if (!content && content.error().kind == platform::ErrorKind::kNotFound) return Loss::kNone;
  if (content && *content == SetupText(setup)) return Loss::kNone;
  if (read_in_part_) return Loss::kReadInPart;
  return content && known_ && *content == *known_ ? Loss::kNone : Loss::kChangedMeanwhile;
}

bool LastRunFile::Save(const std::string& path, const app::Setup& setup) {
  static_cast<void>(files_.CreateFolder(platform::ParentOf(path)));
  if (!SaveSetupToFile(files_, path, setup)) return false;
  known_ = SetupText(setup);
  read_in_part_ = false;
  return true;
}

}  // namespace services
