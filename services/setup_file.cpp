#include "services/setup_file.h"

#include <utility>

#include "base/utf8.h"
#include "services/date_pr2.h"
#include "services/setup_text.h"
#include "text/text_numbers.h"

namespace services {
namespace {

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
  const auto content = files.ReadFile(path, kLargestSetupFile);
  if (!content) return {.setup = {}, .error = InputErrorOf(content.error().kind)};
  return ParseSetup(*content, DatePr2::ModifiedSinceCount());
}

void CheckSource(const SetupLoader& loader, const LoadedSetup& loaded) {
  if (loaded.away.source.empty() || !loader.WindowReady) return;
  loader.dialogs.Show(loader.owner,
                      {DoesNotExist("Source", loaded.away.source), "Error", ui::Icon::kExclamation});
}

/// A target that the user is asked about is either kept in the window or cleared by the user's own choice.
void CheckTarget(const SetupLoader& loader, bool blnMultipleBackup, LoadedSetup& loaded) {
  if (loaded.away.target.empty() || !loader.WindowReady) return;
  std::string& target = loaded.setup.TargetFolder;
  target = std::exchange(loaded.away.target, {});
  if (blnMultipleBackup) {
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
  loaded.extension_missing = parsed.extension_missing;
  if (parsed.error != 0 && !parsed.extension_missing) loaded.problem = ProblemText(parsed);
  loaded.away = TakeApart(loaded.setup);
  TakeBackWhatIsThere(loader.files, loaded.setup, loaded.away);
  CheckSource(loader, loaded);
  CheckTarget(loader, blnMultipleBackup, loaded);
  return loaded;
}

bool AskToClearMissingTarget(ui::Dialogs& dialogs, ui::Form& owner, const text::ProgramTexts& texts,
                             const std::string& path) {
  return dialogs.AskYesNo(
      owner, {texts.GetProgramText(text::kMissingTarget) + "\r\n" + base::utf8::Printable(path) + "\r\n\r\n" +
                  texts.GetProgramText(text::kClearMissingTarget),
              texts.GetProgramText(text::kTitleMissingTarget), ui::Icon::kQuestion, true});
}

}  // namespace services
