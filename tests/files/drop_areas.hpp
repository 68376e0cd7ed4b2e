// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <tests/base/temp_folder.hpp>
#include <vector>
#include <zqswiftui/platform/base/files.hpp>
#include <zqswiftui/platform/headless/harness.hpp>

namespace zq {

// A folder with files, a folder and a bundle in it, and a log of what a host hears, in words.
class DropAreas : public testing::Test {
 protected:
  DropAreas() {
    for (const char* name : {"plain", "Tool.app"}) {
      std::filesystem::create_directory(folder.path(name));
    }
    for (const char* name : {"a.png", "b.PNG", "c.txt"}) {
      EXPECT_TRUE(fu_writeTextToFile(Url::file(folder.path(name)), "x"));
    }
  }

  Url url(const std::string& name) { return Url::file(folder.path(name)); }
  DragItems files(const std::vector<std::string>& names) {
    std::vector<std::string> urls;
    for (const std::string& name : names) urls.push_back(url(name).text());
    return draggedUrls(urls);
  }
  // A callback that notes the name of what it is told, and where it is told.
  std::function<void(const Url&)> note(const std::string& word) {
    return [this, word](const Url& told) {
      EXPECT_TRUE(platform.mainQueue().isMainThread());
      log += word + ' ' + told.name() + ' ';
    };
  }
  std::string taken() { return std::exchange(log, {}); }
  // What can be read, and the symbols, from top to bottom.
  static std::string shown(Harness& h) {
    std::string all;
    for (const Element& e : h.symbols()) all += '<' + e.symbol + "> ";
    for (const Element& e : h.texts()) all += e.text + ' ';
    return all;
  }

  TempFolder folder;
  HeadlessPlatform platform;
  std::string log;
};

}  // namespace zq
