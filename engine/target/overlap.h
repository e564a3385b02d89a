#pragma once

#include <optional>
#include <string>

#include "platform/file_system.h"

namespace engine {

/// How the source and the target of a setup lie to each other, whatever links, mounts, drive letters and
/// names of shares lead to them: folders are known by their identity and, where a volume tells none, by their
/// paths. Where one of the two cannot be resolved, or no target is given, they count as lying apart. So they
/// do where what shows the target shows no folder above it that belongs to the source, such as a share for
/// the target alone; the open folders of the source tell then.
class Overlap {
 public:
  Overlap(platform::FileSystem& files, const std::string& source, const std::string& target);

  bool IsOneFolder() const;
  bool TargetIsInSource() const;
  bool SourceIsInTarget() const;

  /// Whether a folder of the source, its path as it is below the source's, is the target.
  bool IsTarget(const std::string& source_folder) const;
  /// The same of an open folder, which may be the target by another path: one volume can be mounted in two
  /// places.
  bool IsTarget(const platform::Folder& source_folder) const;

  /// Whether an open folder of the target is the source, by whatever path.
  bool IsSource(const platform::Folder& target_folder) const;

  /// Whether what is copied into a folder of the target would land in the source: it is the source, or a link
  /// that leads into it, or above it, from where the copies could come upon the source further down.
  bool LandsInSource(const std::string& target_folder, bool is_link) const;

 private:
  /// A folder with its links resolved, and the key of that path.
  struct Root {
    std::string path;
    std::string real;
    std::string key;
  };
  bool known() const { return !source_.real.empty(); }
  bool LiesIn(const Root& inner, const Root& outer, const std::optional<platform::Identity>& identity) const;
  std::string KeyBelow(const Root& root, const std::string& path) const;

  platform::FileSystem& files_;
  Root source_;
  Root target_;
  std::optional<platform::Identity> source_identity_;
  std::optional<platform::Identity> target_identity_;
};

}  // namespace engine
