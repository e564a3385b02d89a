#pragma once

#include <optional>
#include <string>

#include "platform/copy_volume.h"
#include "platform/fingerprint.h"
#include "platform/windows/copy/source_file.h"
#include "platform/windows/copy/temporary_file.h"
#include "platform/windows/listing/folder.h"

namespace platform::windows {

class WindowsCopyVolume;

/// A copy on its way. Most files go block by block through one handle, from the temporary file's creation to
/// its final name. Big files, and those that have more than their bytes, are left to the system's own copy,
/// which knows shortcuts (copying inside a server, sharing blocks on one volume). Big files that are to be
/// read back are not: what is written must have passed through here.
class WindowsDraft : public Draft {
 public:
  /// `order` must outlive the draft, but for its source folder, which Write() alone needs.
  WindowsDraft(const CopyOrder& order, WindowsCopyVolume& volume) : order_(order), volume_(volume) {}

  /// The data goes to the disk as WindowsCopyVolume says.
  Result<CopyOutcome> Write(const CopyProgress& watcher) override;
  Status ReadBack(const CopyProgress& watcher) override;
  Status Publish() override;

  /// Whether the copy is on another volume than the target folder itself, behind a link. Known from Write()
  /// on.
  bool is_elsewhere() const { return is_elsewhere_; }

  /// Whether the disk has all of the data, though perhaps in its own cache.
  bool is_written_out() const { return is_written_out_; }

  /// The written copy, open under the name that it has. From Publish() on only while its name is not on the
  /// disk for sure.
  const FileHandle& file() const { return file_->file(); }

 private:
  Result<CopyOutcome> CopyFrom(SourceFile& source, const std::wstring& path, const CopyProgress& watcher);
  Status Fill(SourceFile& source, const std::wstring& path, const CopyProgress& watcher, std::int64_t& bytes);
  Status TakeFingerprint(SourceFile& source, const CopyProgress& watcher, std::int64_t bytes);
  Status Flush();
  /// In the long form, with a separator at its end.
  const std::wstring& target() const { return static_cast<const WindowsFolder&>(*order_.target).long_path(); }

  const CopyOrder& order_;
  WindowsCopyVolume& volume_;
  std::optional<TemporaryFile> file_;
  std::optional<Fingerprint> written_;  ///< of an order that wants it read back; none where it says nothing
  bool is_elsewhere_ = false;
  bool is_written_out_ = false;
};

}  // namespace platform::windows
