#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/file_system.h"
#include "text/grouped_number.h"

namespace app {

/// A first-level subfolder of the source, and what a look into it has told.
struct Subfolder {
  enum class State { kNotLookedInto, kRead, kDenied };

  std::string name;
  bool selected = false;
  State state = State::kNotLookedInto;
  std::int64_t files = 0;       ///< directly in it
  std::int64_t subfolders = 0;  ///< directly in it, links not counted
  std::int64_t bytes = 0;       ///< the sizes of its files, as far as they are known
};

/// A larger count is only told as being over this one.
inline constexpr std::int64_t kMostCounted = 9'999;

/// What a subfolder holds, such as "1 file and 3 subfolders" or "permission denied". Empty while it is not
/// known.
std::string ContentText(const Subfolder& subfolder);

/// What keeping so many included subfolders means that are not there for now: their number and names.
std::string AwayText(const std::vector<std::string>& names);

/// The subfolders of the source among which the user selects those to be backed up.
class SubfolderList {
 public:
  SubfolderList(platform::FileSystem& files, std::string source)
      : files_(files), source_(std::move(source)) {}

  /// Lists the source once: every folder in it by name, but for links and the recycle bin, in the order
  /// of app/select_subfolders/natural_order.h. Those named in `selected` start selected. On failure the list
  /// is empty.
  platform::Status ReadNames(const std::vector<std::string>& selected);

  /// Looks into one subfolder: one listing. A folder that cannot be listed counts as denied.
  void LookInto(std::size_t index);

  std::size_t size() const { return subfolders_.size(); }
  const Subfolder& operator[](std::size_t index) const { return subfolders_[index]; }
  void Select(std::size_t index, bool selected) { subfolders_[index].selected = selected; }
  void SelectAll(bool selected);
  bool AllSelected() const;  ///< false for an empty list
  /// Their names in list order.
  std::vector<std::string> Selected() const;

  /// How many are selected and, on a second line, what they hold. Says "so far" while not all is known.
  std::string SelectionSummary(const text::NumberMarks& marks) const;

 private:
  platform::FileSystem& files_;
  std::string source_;
  std::vector<Subfolder> subfolders_;
};

}  // namespace app
