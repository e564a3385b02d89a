#pragma once

#include <functional>
#include <string>

#include "platform/clock.h"
#include "platform/locale.h"
#include "platform/settings_store.h"

/// Small text values among the current user's settings. Failures are told in the status texts only.
namespace Registry3 {

/// The system's text for a number, without a line end: SettingsStore::Message() of the store in use.
using SystemText = std::function<std::string(int code)>;

/// The store (which stands for the current user's hive) and its texts; both must outlive the calls.
struct Hive {
  platform::SettingsStore& store;
  SystemText text;
};

/// Stores a value, creating the key where it is missing. The status: the system's message for the last
/// outcome (CR LF and the text), two spaces, and "0 New key created.", "0 Key already exists.",
/// "0 Key anomaly." or "Unable to create (or find) key." with the number.
std::string RegistryWriteString(const Hive& hive, const std::string& key, const std::string& name,
                                const std::string& value);

/// Reads a value into `value` (empty when there is none). The status begins with "0" on success; else it is
/// "1 Key not found or is empty.", "2 Name not specified.", "3 Name not found." or "4 " and the system's
/// message.
std::string RegistryReadString(const Hive& hive, const std::string& key, const std::string& name,
                               std::string& value);

/// Replaces the date and time of the previous run by now (short date, " at ", time of day) and gives back
/// the one before, or nothing when there was none of at least 10 characters. Ignores all failures.
std::string ExchangePreviousRun(const Hive& hive, platform::Clock& clock, platform::Locale& locale,
                                const std::string& key, const std::string& name);

}  // namespace Registry3
