#include "platform/memory/memory_system.h"

#include "base/ascii_case.h"
#include "base/digits.h"

namespace platform::memory {
namespace {

constexpr std::int64_t kNanosecondsInSecond = 1'000'000'000;

FileTime Later(FileTime time, std::chrono::milliseconds duration) {
  const std::int64_t nanoseconds = time.nanoseconds + duration.count() % 1000 * 1'000'000;
  return {time.seconds + duration.count() / 1000 + nanoseconds / kNanosecondsInSecond,
          static_cast<std::int32_t>(nanoseconds % kNanosecondsInSecond)};
}

class CountingGuard : public AwakeGuard {
 public:
  explicit CountingGuard(int& count) : count_(count) { ++count_; }
  ~CountingGuard() override { --count_; }
  CountingGuard(const CountingGuard&) = delete;
  CountingGuard& operator=(const CountingGuard&) = delete;

 private:
  int& count_;
};

}  // namespace

CalendarTime MemoryClock::ToLocal(FileTime time) {
  time.seconds += std::int64_t{offset_minutes} * 60;
  return ToUtc(time);
}

void MemoryClock::Sleep(std::chrono::milliseconds duration) {
  sleeps_.push_back(duration);
  Advance(duration);
}

void MemoryClock::Advance(std::chrono::milliseconds duration) {
  now_ = Later(now_, duration);
  run_ += duration;
}

std::string MemoryLocale::ShortDate(const CalendarTime& time) {
  return base::Digits(time.year, 4) + '-' + base::Digits(time.month, 2) + '-' + base::Digits(time.day, 2);
}

std::string MemoryLocale::TimeOfDay(const CalendarTime& time) {
  return base::Digits(time.hour, 2) + ':' + base::Digits(time.minute, 2) + ':' + base::Digits(time.second, 2);
}

SettingsStore::WriteResult MemorySettingsStore::Write(const std::string& key, const std::string& name,
                                                      const std::string& value) {
  WriteResult result;
  result.create_code = create_code_;
  if (create_code_ != kStoreSuccess) return result;
  const auto [place, is_new] = keys_.try_emplace(base::LowerAscii(key));
  result.disposition = is_new ? Disposition::kCreated : Disposition::kOpened;
  result.set_code = set_code_;
  if (set_code_ == kStoreSuccess) place->second[base::LowerAscii(name)] = value;
  return result;
}

bool MemorySettingsStore::HasKey(const std::string& key) { return keys_.contains(base::LowerAscii(key)); }

SettingsStore::ReadResult MemorySettingsStore::Read(const std::string& key, const std::string& name) {
  if (read_code_ != kStoreSuccess) return {read_code_, false, {}};
  const auto values = keys_.find(base::LowerAscii(key));
  if (values == keys_.end()) return {kStoreNotFound, false, {}};
  const auto value = values->second.find(base::LowerAscii(name));
  if (value == values->second.end()) return {kStoreNotFound, false, {}};
  return {kStoreSuccess, true, value->second};
}

std::string MemorySettingsStore::Message(int code) { return CommonStoreMessage(code); }

void MemorySettingsStore::FailWith(int create_code, int set_code, int read_code) {
  create_code_ = create_code;
  set_code_ = set_code;
  read_code_ = read_code;
}

Status MemoryShell::ScheduleShutDown(const std::string& comment) {
  shut_downs.push_back(comment);
  return Done{};
}

Status MemoryShell::CallOffShutDown() {
  shut_downs.emplace_back("called off");
  return Done{};
}

std::unique_ptr<AwakeGuard> MemoryShell::KeepAwake() { return std::make_unique<CountingGuard>(awake); }

}  // namespace platform::memory
