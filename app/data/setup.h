#pragma once

#include <string>
#include <vector>

namespace app {

/// The user's choices: everything that defines a backup. Held in the main window's controls, kept in setup
/// files, and handed to the engine as it is when an operation starts. The defaults are those of a fresh
/// start.
struct Setup {
  std::string SourceFolder;                  ///< full path; empty: not specified
  std::string TargetFolder;                  ///< full path; empty: not specified
  std::vector<std::string> IncludedFolders;  ///< names of first-level subfolders of the source
  bool IncludeSubfolders = false;            ///< with everything below the included folders
  std::string FileExtension;                 ///< without dot, wildcards allowed; empty: all files
  std::string SkipFilepaths;                 ///< patterns separated by commas
  int ModifiedSince = 0;                     ///< index of the list of periods; 0: no limit
  bool ExcludeFilesInSourceFolder = false;
  bool PauseAfterFirstCopy = false;
  bool SuppressDetailedReports = false;
  bool SaveSetupOnQuit = false;

  bool operator==(const Setup&) const = default;
};

}  // namespace app
