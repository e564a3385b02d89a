#pragma once

#include <filesystem>
#include <string>

#include "base/wide_text.h"
#include "platform/file_system.h"

/// A folder of the test's own, gone again with everything in it.
class TemporaryFolder {
 public:
  TemporaryFolder() { std::filesystem::create_directory(root_); }
  ~TemporaryFolder() {
    // In the long form: some tests make paths that have no other one.
    std::error_code ignored;
    std::filesystem::remove_all(L"\\\\?\\" + root_.wstring(), ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  std::string path() const { return base::Narrow(root_.wstring()); }

 private:
  const std::filesystem::path root_ = std::filesystem::temp_directory_path() / platform::MakeTemporaryName();
};
