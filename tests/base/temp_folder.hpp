// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <filesystem>
#include <string>
#include <zqswiftui/platform/base/zq_id.hpp>

namespace zq {

// A folder of a test's own, gone with it.
class TempFolder {
 public:
  TempFolder() : path_(std::filesystem::temp_directory_path() / ZQId::newId("zqtest", "", true)) {
    std::filesystem::create_directories(path_);
  }
  ~TempFolder() {
    std::error_code error;
    std::filesystem::remove_all(path_, error);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  std::string path(const std::string& name = "") const { return (path_ / name).string(); }
  std::size_t entries() const {
    std::size_t count = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(path_)) ++count;
    return count;
  }

 private:
  std::filesystem::path path_;
};

}  // namespace zq
