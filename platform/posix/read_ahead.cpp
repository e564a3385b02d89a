#include "platform/posix/read_ahead.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <utility>

namespace platform::posix {
namespace {

using Clock = std::chrono::steady_clock;

// Below this number handing files to another thread and back costs more than it saves.
constexpr std::size_t kFewest = 3;

constexpr std::size_t kLargestFile = std::size_t{256} * 1024;

// How far the reader runs ahead, in bytes and in files; below half of it the reader is woken again.
constexpr std::size_t kWindowBytes = std::size_t{4} * 1024 * 1024;
constexpr std::size_t kWindowFiles = 64;

// A file may be changed after it was read; what was read longer ago is read anew.
constexpr std::chrono::seconds kFresh{1};

}  // namespace

/// Files of one folder: read by the worker, taken by the program. Both hold it.
class ReadAhead::Batch {
 public:
  Batch(std::weak_ptr<const FileDescriptor> folder, const std::vector<const Entry*>& files)
      : folder_(std::move(folder)), files_(files.size()) {
    for (std::size_t i = 0; i < files.size(); ++i) {
      files_[i].name = files[i]->name;
      files_[i].size = files[i]->size;
    }
  }

  /// Reads until the end or until the batch is ended.
  void ReadAll() {
    std::unique_lock lock(mutex_);
    while (!ended_ && next_to_read_ < files_.size()) {
      if (IsFull()) {
        reader_waits_ = true;
        room_.wait(lock, [this] { return ended_ || !reader_waits_; });
        continue;
      }
      const std::size_t at = next_to_read_++;
      lock.unlock();
      std::optional<SourceFile> read = Read(files_[at]);
      lock.lock();
      Put(at, std::move(read));
    }
  }

  std::optional<SourceFile> Take(const std::shared_ptr<const FileDescriptor>& folder,
                                 const std::string& name) {
    if (folder_.lock() != folder) return std::nullopt;
    const std::lock_guard lock(mutex_);
    const std::size_t at = Find(name);
    if (at == files_.size()) return std::nullopt;
    while (next_to_take_ < at) Remove(next_to_take_++);
    next_to_take_ = at + 1;
    next_to_read_ = std::max(next_to_read_, next_to_take_);
    std::optional<SourceFile> taken = Remove(at);
    if (taken && Clock::now() - files_[at].read_at > kFresh) taken.reset();
    WakeReader();
    return taken;
  }

  void End() {
    {
      const std::lock_guard lock(mutex_);
      ended_ = true;
    }
    room_.notify_one();
  }

 private:
  struct File {
    std::string name;
    std::int64_t size = 0;
    std::optional<SourceFile> read;
    Clock::time_point read_at;
  };

  /// Uses what never changes of `file`, so it runs without the lock.
  std::optional<SourceFile> Read(const File& file) const {
    if (file.size > static_cast<std::int64_t>(kLargestFile)) return std::nullopt;
    const auto folder = folder_.lock();
    if (!folder) return std::nullopt;
    auto source = OpenSource(folder->get(), file.name);
    if (!source || !ReadContent(*source, kLargestFile)) return std::nullopt;
    return std::move(*source);
  }

  void Put(std::size_t at, std::optional<SourceFile> read) {
    if (!read || at < next_to_take_) return;
    held_bytes_ += static_cast<std::size_t>(read->facts.st_size);
    ++held_files_;
    files_[at].read = std::move(read);
    files_[at].read_at = Clock::now();
  }

  std::optional<SourceFile> Remove(std::size_t at) {
    std::optional<SourceFile> read = std::exchange(files_[at].read, std::nullopt);
    if (read) {
      held_bytes_ -= static_cast<std::size_t>(read->facts.st_size);
      --held_files_;
    }
    return read;
  }

  std::size_t Find(const std::string& name) const {
    std::size_t at = next_to_take_;
    while (at < files_.size() && files_[at].name != name) ++at;
    return at;
  }

  bool IsFull() const { return held_bytes_ >= kWindowBytes || held_files_ >= kWindowFiles; }

  void WakeReader() {
    if (!reader_waits_ || held_bytes_ > kWindowBytes / 2 || held_files_ > kWindowFiles / 2) return;
    reader_waits_ = false;
    room_.notify_one();
  }

  const std::weak_ptr<const FileDescriptor> folder_;
  std::mutex mutex_;
  std::condition_variable room_;
  std::vector<File> files_;
  std::size_t next_to_read_ = 0;
  std::size_t next_to_take_ = 0;
  std::size_t held_bytes_ = 0;
  std::size_t held_files_ = 0;
  bool reader_waits_ = false;
  bool ended_ = false;
};

ReadAhead::~ReadAhead() {
  if (batch_) batch_->End();
}

void ReadAhead::Expect(const PosixFolder& folder, const std::vector<const Entry*>& files) {
  if (batch_) batch_->End();
  batch_.reset();
  if (files.size() < kFewest) return;
  batch_ = std::make_shared<Batch>(folder.shared_handle(), files);
  worker_.Post([batch = batch_] { batch->ReadAll(); });
}

std::optional<SourceFile> ReadAhead::Take(const PosixFolder& folder, const std::string& name) {
  return batch_ ? batch_->Take(folder.shared_handle(), name) : std::nullopt;
}

}  // namespace platform::posix
