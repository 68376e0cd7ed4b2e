// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>
#include <zqswiftui/platform/base/files.hpp>

namespace zq {

// The projects and texts of tests/data/settings. With ZQ_RENEW in the environment the texts
// are written instead of compared; what has changed is then for git diff to show.

inline std::string keptPath(const std::string& name) {
  return ZQ_TESTS_DIR "/data/settings/" + name;
}

inline std::string keptText(const std::string& name) {
  auto text = readTextFile(keptPath(name));
  return text.ok() ? std::move(text).value() : text.error().sentence;
}

// The names without .zquic.
inline std::vector<std::string> keptProjects() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(keptPath(""))) {
    if (entry.path().extension() == ".zquic") names.push_back(entry.path().stem().string());
  }
  return names;
}

inline void expectKept(const std::string& name, std::string_view text) {
  if (std::getenv("ZQ_RENEW") != nullptr) {
    EXPECT_TRUE(replaceFile(keptPath(name), text).ok()) << name;
  } else {
    EXPECT_EQ(keptText(name), text) << name << "; docs/settings.md says how to renew it";
  }
}

}  // namespace zq
