#include "platform/posix/system_error.h"

#include <cerrno>
#include <system_error>

namespace platform::posix {
namespace {

ErrorKind KindOf(int number) {
  switch (number) {
    case ENOENT:
      return ErrorKind::kNotFound;
    case EACCES:
    case EPERM:
      return ErrorKind::kAccessDenied;
    case EROFS:
      return ErrorKind::kReadOnlyMedium;
    case ENOSPC:
    case EDQUOT:
      return ErrorKind::kDiskFull;
    case EEXIST:
      return ErrorKind::kAlreadyExists;
    case ENOTDIR:
      return ErrorKind::kNotAFolder;
    case EISDIR:
      return ErrorKind::kIsAFolder;
    case ETXTBSY:
    case EBUSY:
      return ErrorKind::kInUse;
    case ENAMETOOLONG:
    case EILSEQ:
      return ErrorKind::kBadName;
    case EFBIG:
      return ErrorKind::kTooLarge;
    case EUCLEAN:
      return ErrorKind::kDamaged;
    case EMFILE:
    case ENFILE:
      return ErrorKind::kTooManyOpen;
    case ECANCELED:
      return ErrorKind::kCancelled;
    default:
      return ErrorKind::kOther;
  }
}

}  // namespace

Error ErrorOf(int number) { return {KindOf(number), number, std::generic_category().message(number)}; }

Error LastError() { return ErrorOf(errno); }

Error LastNameError() {
  Error error = LastError();
  if (error.code == EINVAL) error.kind = ErrorKind::kBadName;
  return error;
}

}  // namespace platform::posix
