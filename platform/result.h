#pragma once

#include <cassert>
#include <string>
#include <utility>
#include <variant>

namespace platform {

/// What went wrong, in terms that hold on every system. The rules of the program look at the kind only.
enum class ErrorKind {
  kNotFound,        ///< no such file or folder, or it vanished since it was listed; not: its server is away
  kAccessDenied,    ///< the user has no right to do this
  kReadOnlyMedium,  ///< the volume cannot be written
  kDiskFull,        ///< no space (or quota) left on the volume
  kAlreadyExists,
  kNameTaken,     ///< something has the name that the caller took for free
  kNotAFolder,    ///< a folder was expected, something else has the name
  kIsAFolder,     ///< a file was expected, a folder has the name
  kInUse,         ///< locked by another program
  kForeignLink,   ///< a link that is not the user's own, which is not followed
  kBadName,       ///< the name is too long or not allowed on the volume
  kTooLarge,      ///< the file is larger than the volume's format can hold
  kShort,         ///< fewer bytes arrived than the file has, or the disk failed to read them
  kNotAsWritten,  ///< what was read back from the disk is not what was written, or could not be read
  kTooManyOpen,   ///< the program, or all together, may open no more files at a time
  kDamaged,       ///< what the volume's file system says of its files contradicts itself
  kCancelled,     ///< a watcher asked to stop
  kOther,
};

/// A failure as a value: its kind, the system's own number, and the system's text without a line end.
struct Error {
  ErrorKind kind = ErrorKind::kOther;
  int code = 0;
  std::string text;
};

/// Whether an error says that there is no such file or folder (any more).
inline bool IsGone(const Error& error) {
  return error.kind == ErrorKind::kNotFound || error.kind == ErrorKind::kNotAFolder;
}

/// A value, or why there is none.
template <typename T>
class [[nodiscard]] Result {
 public:
  Result(T value) : state_(std::in_place_index<0>, std::move(value)) {}
  Result(Error error) : state_(std::in_place_index<1>, std::move(error)) {}

  bool ok() const { return state_.index() == 0; }
  explicit operator bool() const { return ok(); }

  /// Only when ok().
  T& value() {
    assert(ok());
    return *std::get_if<0>(&state_);
  }
  const T& value() const {
    assert(ok());
    return *std::get_if<0>(&state_);
  }
  T& operator*() { return value(); }
  const T& operator*() const { return value(); }
  T* operator->() { return &value(); }
  const T* operator->() const { return &value(); }

  /// Only when not ok().
  const Error& error() const {
    assert(!ok());
    return *std::get_if<1>(&state_);
  }

 private:
  std::variant<T, Error> state_;
};

struct Done {};

/// Success, or why not.
using Status = Result<Done>;

}  // namespace platform
