#pragma once

/// What a volume promises about the order in which it brings things to the disk.
namespace platform::posix {

enum class VolumeKind {
  /// With a journal, or written in whole states: a new name reaches the disk in one step and takes nothing
  /// away before it. Flushing the volume brings the data of many files to the disk at once.
  kJournaled,
  /// Names, sizes and the list of free space reach the disk in any order. Also what is not known.
  kUnordered,
  /// Somebody else keeps it: a server, or a program (FUSE). Each call may be a round trip, the kernel does
  /// not pass the flush of a volume on, and a file that is held open may not be replaced.
  kServed,
  /// A disk of this computer that a program keeps (FUSE on a block device, such as NTFS by ntfs-3g): as
  /// unordered, but each file has to be flushed, and the first flush brings most of the others along.
  kServedDisk,
};

/// Whether what is done to names reaches the disk in order without being asked for, as far as that is known.
constexpr bool KeepsOrder(VolumeKind kind) {
  return kind == VolumeKind::kJournaled || kind == VolumeKind::kServed;
}

// Numbers of file systems that linux/magic.h does not name; from the kernel's sources of each.
inline constexpr unsigned long kCifs = 0xFF534D42;
inline constexpr unsigned long kSmb2 = 0xFE534D42;
inline constexpr unsigned long kExfat = 0x2011BAB0;
inline constexpr unsigned long kNtfs3 = 0x7366746E;

/// The number of the file system on which an open file or folder lies; 0 when it is not known.
unsigned long MagicOf(int file);

/// The kind of the volume of an open file or folder.
VolumeKind KindOfVolume(int file);

}  // namespace platform::posix
