#pragma once

#include <string>

namespace platform {

/// The system's numbers of the outcomes that a store shares between systems (winerror.h).
inline constexpr int kStoreSuccess = 0;
inline constexpr int kStoreNotFound = 2;
inline constexpr int kStoreAccessDenied = 5;

/// What Windows says for these three numbers, for the stores of other systems; empty for any other number.
std::string CommonStoreMessage(int code);

/// Small text values of the current user, by key path ("Software\Name") and value name: the registry on
/// Windows, a small file of the user's on Linux. Names are compared without regard to the case of ASCII
/// letters. Every call answers with the system's number; Message() words it.
class SettingsStore {
 public:
  enum class Disposition { kCreated, kOpened, kUnknown };

  struct WriteResult {
    int create_code = 0;  ///< of creating or opening the key; when not 0 nothing else was done
    Disposition disposition = Disposition::kUnknown;
    int set_code = 0;  ///< of storing the value
  };

  struct ReadResult {
    int code = 0;  ///< of reading the value
    bool has_value = false;
    std::string value;  ///< without a terminating zero
  };

  virtual ~SettingsStore() = default;

  /// Stores a value, creating the key where it is missing.
  virtual WriteResult Write(const std::string& key, const std::string& name, const std::string& value) = 0;

  /// Whether the key can be opened for reading.
  virtual bool HasKey(const std::string& key) = 0;

  /// The value of an existing key; kStoreNotFound when it has none of that name.
  virtual ReadResult Read(const std::string& key, const std::string& name) = 0;

  /// The system's text for a number: without a line end, at most 100 bytes, empty for an unknown number.
  virtual std::string Message(int code) = 0;
};

}  // namespace platform
