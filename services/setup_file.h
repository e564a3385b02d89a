#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "app/data/setup.h"
#include "platform/file_system.h"
#include "services/away_parts.h"
#include "text/program_texts.h"
#include "ui/dialogs.h"

/// Setups in files: the user's own (*.qvr) and the one kept for the next run (qvr.usr). The layout is in
/// services/setup_text.h.
namespace services {

/// A larger file is no setup. More than 32,767 names of 255 characters each take in the common alphabets.
inline constexpr std::int64_t kLargestSetupFile = 16 * 1024 * 1024;

/// Writes the setup to a file, whole or not at all: on failure `path` holds what it held before. False when
/// that failed, or when the layout cannot hold the setup.
bool SaveSetupToFile(platform::FileSystem& files, const std::string& path, const app::Setup& setup);

/// What LoadOperationFile() works with; the references must outlive the call.
struct SetupLoader {
  platform::FileSystem& files;
  ui::Dialogs& dialogs;
  ui::Form& owner;  ///< the dialogs are above it
  const text::ProgramTexts& texts;
  bool WindowReady;  ///< false during start-up: folders that are gone are then cleared without a word
};

/// A loaded setup, to be put into the main window's controls whatever `result` says.
struct LoadedSetup {
  /// What was read before an error, the rest at its defaults. The source is empty when it does not exist. Of
  /// the included folders those that exist in it, in the file's order. What is missing is in `away`.
  app::Setup setup;
  bool clear_setup_file = false;  ///< the user had the missing target cleared: txbSetupFile is to be emptied
  /// 0; the number of the input error that stopped the reading (services/setup_text.h); with
  /// blnMultipleBackup minus (200 + that number), or -200 when the target folder does not exist.
  std::int16_t result = 0;
  std::string strErr;  ///< with blnMultipleBackup, why the result is not 0
  AwayParts away;      ///< what of the file is not shown because it does not exist
  /// Why the file was not read to its end, in sentences that name the line; empty when it was, or when only
  /// its last line is missing.
  std::string problem;
  bool extension_missing = false;  ///< nothing but the last line, the file extension, is missing
};

/// Reads a setup file and checks its folders. Once the window is ready, tells the user of a source folder
/// that is missing, and (without blnMultipleBackup) asks whether to clear a target folder that is. A file of
/// more than 16 MiB is not read.
LoadedSetup LoadOperationFile(const SetupLoader& loader, const std::string& strOperationFilePath,
                              bool blnMultipleBackup = false);

/// Asks whether a target folder that does not exist is to be cleared; true for Yes.
bool AskToClearMissingTarget(ui::Dialogs& dialogs, ui::Form& owner, const text::ProgramTexts& texts,
                             const std::string& path);

}  // namespace services
