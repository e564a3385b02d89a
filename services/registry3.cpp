#include "services/registry3.h"

#include "base/utf8.h"

namespace Registry3 {
namespace {

using Disposition = platform::SettingsStore::Disposition;

/// Shorter values are no date and time.
constexpr std::size_t kShortestStamp = 10;

std::string MessageOf(const Hive& hive, int code) { return "\r\n" + hive.text(code); }

std::string DispositionStatus(Disposition disposition) {
  switch (disposition) {
    case Disposition::kCreated:
      return "0 New key created.";
    case Disposition::kOpened:
      return "0 Key already exists.";
    case Disposition::kUnknown:
      break;
  }
  return "0 Key anomaly.";
}

/// In other languages than English the system words success differently: then a value is proof enough.
std::string ReadStatus(const std::string& message, bool has_value) {
  if (message == "\r\nThe system cannot find the file specified.") return "3 Name not found.";
  if (message == "\r\nThe operation completed successfully.") return "0 OK";
  return has_value ? "0 OK probably" : "4 " + message;
}

}  // namespace

std::string RegistryWriteString(const Hive& hive, const std::string& key, const std::string& name,
                                const std::string& value) {
  const auto written = hive.store.Write(key, name, value);
  if (written.create_code != platform::kStoreSuccess) {
    return MessageOf(hive, written.create_code) + "  Unable to create (or find) key. " +
           std::to_string(written.create_code);
  }
  return MessageOf(hive, written.set_code) + "  " + DispositionStatus(written.disposition);
}

std::string RegistryReadString(const Hive& hive, const std::string& key, const std::string& name,
                               std::string& value) {
  value.clear();
  if (key.empty() || !hive.store.HasKey(key)) return "1 Key not found or is empty.";
  if (name.empty()) return "2 Name not specified.";
  const auto read = hive.store.Read(key, name);
  const bool has_no_bytes = read.code == platform::kStoreSuccess && read.value.empty();
  if (read.code == platform::kStoreNotFound || has_no_bytes) return "3 Name not found.";
  value = read.value;
  return ReadStatus(MessageOf(hive, read.code), read.has_value);
}

std::string ExchangePreviousRun(const Hive& hive, platform::Clock& clock, platform::Locale& locale,
                                const std::string& key, const std::string& name) {
  std::string previous;
  const std::string status = RegistryReadString(hive, key, name, previous);
  if (!status.starts_with('0') || base::utf8::Length(previous) < kShortestStamp) previous.clear();
  const platform::CalendarTime now = clock.ToLocal(clock.Now());
  static_cast<void>(
      RegistryWriteString(hive, key, name, locale.ShortDate(now) + " at " + locale.TimeOfDay(now)));
  return previous;
}

}  // namespace Registry3
