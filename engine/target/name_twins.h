#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "platform/file_system.h"

namespace engine {

/// Finds what a target folder has for names that its listing does not have: volumes may take a name for
/// another one, ignoring case or the way in which an accent is written, or leave dots at its end away.
/// Each such rule is the volume's own, so it is asked.
class NameTwins {
 public:
  /// Both folders must outlive this.
  NameTwins(platform::FileSystem& files, const platform::Folder& source, const platform::Folder& target);

  /// The entry of the target's listing that stands for a file or folder of the source whose name it does not
  /// have: one whose own name nothing in the source has, and which is given away once. Null when there is
  /// none. Asks the target only while there are such entries.
  const platform::Entry* Find(const platform::Entry& source);

 private:
  const platform::Entry* Match(const platform::Entry& source, const platform::Entry& known);
  const platform::Entry* MatchWithoutNumbers(const platform::Entry& source, const platform::Entry& known);
  bool IsKnownAs(const platform::Entry& target, const platform::Entry& known);
  std::uint64_t NumberOf(const platform::Entry& target);
  bool IsAlone(const platform::Entry& source) const;
  bool IsListedNow(const std::string& name);

  platform::FileSystem& files_;
  const platform::Folder& target_;
  std::vector<const platform::Entry*> free_;   ///< what no name of the source stands for
  std::vector<const platform::Entry*> taken_;  ///< the rest of the target's listing
  std::vector<const platform::Entry*>
      wanted_;  ///< entries of the source whose names the target does not have
  std::unordered_map<const platform::Entry*, std::uint64_t> numbers_;  ///< of folders
};

}  // namespace engine
