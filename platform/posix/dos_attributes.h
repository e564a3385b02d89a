#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/file_system.h"

/// Where hidden and system live on Linux: the extended attribute user.DOSATTRIB, in the forms in which file
/// servers and compatibility layers keep it. The read-only bit in it is not used; the owner's write
/// permission tells that.
namespace platform::posix {

/// The hidden and system bits in a value of user.DOSATTRIB: a hexadecimal number as text ("0x22", whatever
/// follows a zero byte), or the binary form that begins with an empty text and a version of 4 or 5
/// (xattr_DOSATTRIB in librpc/idl/xattr.idl of the SMB server for Linux). Anything else reads as no bits.
Attributes BitsOfDosAttribute(std::string_view value);

/// `value` with its hidden and system bits made what `attributes` says and the rest kept.
std::string WithDosBits(std::string value, Attributes attributes);

/// The value of an open file (not one opened with O_PATH); empty when it has none or the volume keeps none.
std::optional<std::string> ReadDosAttribute(int file);

/// Gives a new, open file these bits of hidden and system. False when the volume keeps no such attributes.
bool MarkNewFile(int file, Attributes attributes);

/// As ReadDosAttribute(), by path; links are followed.
std::optional<std::string> ReadDosAttribute(const std::string& path);

/// Stores a value by path; links are followed.
Status WriteDosAttribute(const std::string& path, const std::string& value);

}  // namespace platform::posix
