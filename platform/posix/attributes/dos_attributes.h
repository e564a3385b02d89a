#pragma once

#include <string>
#include <string_view>

#include "platform/file_system.h"

/// Hidden and system in the extended attribute user.DOSATTRIB, in the forms in which file servers and
/// compatibility layers keep it. The read-only bit in it is not used; the owner's write permission tells
/// that.
namespace platform::posix {

/// The hidden and system bits in a value of user.DOSATTRIB: a hexadecimal number as text ("0x22", whatever
/// follows a zero byte), or the binary form that begins with an empty text and a version of 4 or 5
/// (xattr_DOSATTRIB in librpc/idl/xattr.idl of the SMB server for Linux). Anything else reads as no bits.
Attributes BitsOfDosAttribute(std::string_view value);

/// `value` with its hidden and system bits made what `attributes` says and the rest kept.
std::string WithDosBits(std::string value, Attributes attributes);

}  // namespace platform::posix
