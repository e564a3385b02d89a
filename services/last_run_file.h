#pragma once

#include <optional>
#include <string>

#include "app/data/setup.h"
#include "platform/file_system.h"

namespace services {

/// What is at the path of the last-run setup.
enum class LastRunState {
  kNone,        ///< nothing has been saved yet
  kFile,        ///< a file, to be loaded
  kNotReadable  ///< something else (a folder, a pipe), or the system does not let it be looked at
};

/// The file of the last-run setup as one window knows it, so that saving does not destroy what the user could
/// not see in that window.
class LastRunFile {
 public:
  explicit LastRunFile(platform::FileSystem& files) : files_(files) {}

  /// What the file says. `reason` receives the system's text for kNotReadable, or nothing.
  LastRunState Stat(const std::string& path, std::string& reason) const;

  /// To be called just before the file is loaded: what it holds now is what the window knows.
  void NoteBeforeLoading(const std::string& path);
  /// The window shows only a part of the file.
  void NoteReadInPart() { read_in_part_ = true; }

  enum class Loss {
    kNone,              ///< the file holds what the window knows, or what is to be saved, or is not there
    kReadInPart,        ///< it holds more than could be loaded
    kChangedMeanwhile,  ///< another window has saved since
  };
  /// What saving `setup` would destroy.
  Loss LossBySaving(const std::string& path, const app::Setup& setup) const;

  /// SaveSetupToFile(), into a folder that is made anew where it is gone; after a success the file is known.
  bool Save(const std::string& path, const app::Setup& setup);

 private:
  platform::FileSystem& files_;
  std::optional<std::string> known_;  ///< the content; empty: there was none, or it could not be read
  bool read_in_part_ = false;
};

}  // namespace services
