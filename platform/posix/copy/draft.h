#pragma once

#include <sys/types.h>

#include "platform/copy_volume.h"
#include "platform/fingerprint.h"
#include "platform/posix/copy/source_file.h"
#include "platform/posix/copy/temporary_file.h"
#include "platform/posix/listing/folder.h"
#include "platform/posix/volume/volume_kind.h"

namespace platform::posix {

/// What a draft is to know beforehand.
struct DraftSetting {
  VolumeKind target = VolumeKind::kUnordered;
  DosBitsPlace dos_bits = DosBitsPlace::kUserAttribute;  ///< of the target
  DosBitsPlace source_dos_bits = DosBitsPlace::kUserAttribute;
  mode_t mask = 0;  ///< the process's file mode mask
};

class PosixDraft : public Draft {
 public:
  /// `order` must outlive the draft, but for its source folder, which Write() alone needs.
  PosixDraft(const CopyOrder& order, DraftSetting setting) : order_(order), setting_(setting) {}

  void Prefetch() override;
  /// On a served volume the data is on the disk afterwards; on a served disk the copy is still open.
  Result<CopyOutcome> Write(const CopyProgress& watcher) override;
  Status ReadBack(const CopyProgress& watcher) override;
  Status Publish() override;

  /// On a served disk, where it is open after Write().
  TemporaryFile& file() { return file_; }
  const PosixFolder& target() const { return static_cast<const PosixFolder&>(*order_.target); }
  VolumeKind volume_kind() const { return setting_.target; }

 private:
  /// Nothing, with errno set, when it cannot be opened.
  FileDescriptor OpenFile() const;

  const CopyOrder& order_;
  DraftSetting setting_;
  FileDescriptor prefetched_;
  TemporaryFile file_;
  Fingerprint written_;      ///< of an order that wants it read back
  FileDescriptor replaced_;  ///< keeps the space of the file that was replaced
};

}  // namespace platform::posix
