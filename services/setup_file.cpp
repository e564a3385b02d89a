#include "services/setup_file.h"

#include "base/utf8.h"
#include "platform/path.h"
#include "services/date_pr2.h"
#include "services/setup_text.h"
#include "text/text_numbers.h"

namespace services {
namespace {

/// More than 32,767 names of 255 characters each take in the common alphabets.
constexpr std::int64_t kLargestFile = 16 * 1024 * 1024;
constexpr std::int16_t kMultipleBackupError = -200;

std::int16_t InputErrorOf(platform::ErrorKind kind) {
  switch (kind) {
    case platform::ErrorKind::kNotFound:
      return kInputFileNotFound;
    case platform::ErrorKind::kAccessDenied:
    case platform::ErrorKind::kInUse:
      return kInputNoPermission;
    default:
      return kInputFileAccess;
  }
}

ParsedSetup ReadSetup(platform::FileSystem& files, const std::string& path) {
  const auto content = files.ReadFile(path, kLargestFile);
  if (!content) return {{}, InputErrorOf(content.error().kind)};
  return ParseSetup(*content, DatePr2::ModifiedSinceCount());
}

bool FolderExists(platform::FileSystem& files, const std::string& path) {
  const auto entry = files.Look(path);
  return entry && platform::IsFolder(entry->kind);
}

std::string DoesNotExist(const std::string& which, const std::string& folder) {
  return which + " folder " + base::utf8::Printable(folder) + " does not exist.";
}

/// A file from elsewhere could otherwise lead out of the source folder by a name.
void KeepExistingFolders(platform::FileSystem& files, LoadedSetup& loaded) {
  const std::string& source = loaded.setup.SourceFolder;
  if (source.empty()) return loaded.setup.IncludedFolders.clear();
  std::erase_if(loaded.setup.IncludedFolders, [&](const std::string& name) {
    const bool exists = platform::IsPlainName(name) && FolderExists(files, platform::JoinPath(source, name));
    if (!exists) loaded.gone.push_back(DoesNotExist("Included", name));
    return !exists;
  });
}

void CheckSource(const SetupLoader& loader, LoadedSetup& loaded) {
  std::string& source = loaded.setup.SourceFolder;
  if (source.empty() || FolderExists(loader.files, source)) return;
  loaded.gone.push_back(DoesNotExist("Source", source));
  if (loader.WindowReady)
    loader.dialogs.Show(loader.owner, {loaded.gone.back(), "Error", ui::Icon::kExclamation});
  source.clear();
}

void CheckTarget(const SetupLoader& loader, bool blnMultipleBackup, LoadedSetup& loaded) {
  std::string& target = loaded.setup.TargetFolder;
  if (target.empty() || FolderExists(loader.files, target)) return;
  loaded.gone.push_back(DoesNotExist("Target", target));
  if (!loader.WindowReady) {
    target.clear();
  } else if (blnMultipleBackup) {
    loaded.result = kMultipleBackupError;
    loaded.strErr = "Target folder does not exist";
  } else if (AskToClearMissingTarget(loader.dialogs, loader.owner, loader.texts, target)) {
    target.clear();
    loaded.clear_setup_file = true;
  }
}

}  // namespace

bool SaveSetupToFile(platform::FileSystem& files, const std::string& path, const app::Setup& setup) {
  return CanBeWritten(setup) && files.ReplaceFile(path, SetupText(setup)).ok();
}

LoadedSetup LoadOperationFile(const SetupLoader& loader, const std::string& strOperationFilePath,
                              bool blnMultipleBackup) {
  const ParsedSetup parsed = ReadSetup(loader.files, strOperationFilePath);
  LoadedSetup loaded;
  loaded.setup = parsed.setup;
  loaded.result = parsed.error;
  if (parsed.error != 0 && blnMultipleBackup) {
    loaded.result = static_cast<std::int16_t>(kMultipleBackupError - parsed.error);
    loaded.strErr = InputErrorText(parsed.error);
  }
  CheckSource(loader, loaded);
  KeepExistingFolders(loader.files, loaded);
  CheckTarget(loader, blnMultipleBackup, loaded);
  return loaded;
}

bool AskToClearMissingTarget(ui::Dialogs& dialogs, ui::Form& owner, const text::ProgramTexts& texts,
                             const std::string& path) {
  return dialogs.AskYesNo(owner, {texts.GetProgramText(text::kMissingTarget) + "\r\n" + path + "\r\n\r\n" +
                                      texts.GetProgramText(text::kClearMissingTarget),
                                  texts.GetProgramText(text::kTitleMissingTarget), ui::Icon::kQuestion});
}

}  // namespace services
