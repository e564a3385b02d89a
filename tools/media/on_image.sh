#!/bin/sh
# on_image.sh KIND COMMAND...: runs a command with a folder on a new volume of a kind as its last word; see README.md.
set -eu
kind=$1; shift
place=$(mktemp -d); mount=$place/mount; mkdir "$mount"
trap 'umount "$mount" && rmdir "$mount" && rm -f "$place/image" && rmdir "$place"' EXIT
truncate -s 400M "$place/image"
case $kind in
  vfat) mkfs.vfat -F 32 "$place/image"; mount -o loop,utf8 "$place/image" "$mount";;
  ntfs-3g) mkfs.ntfs -qFf "$place/image"; ntfs-3g "$place/image" "$mount";;
  casefold) mkfs.ext4 -q -O casefold -E encoding=utf8 "$place/image"; mount -o loop "$place/image" "$mount";;
  tmpfs) mount -t tmpfs -o size=400M tmpfs "$mount";;
  *) "mkfs.$kind" "$place/image"; mount -t "$kind" -o loop "$place/image" "$mount";;
esac >/dev/null 2>&1
mkdir "$mount/t"
[ "$kind" != casefold ] || chattr +F "$mount/t"
"$@" "$mount/t"
