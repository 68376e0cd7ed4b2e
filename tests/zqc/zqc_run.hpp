// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <tests/base/temp_folder.hpp>
#include <tools/zqc/command.hpp>
#include <zqswiftui/platform/base/files.hpp>

namespace zq::zqc {

// Runs commands of zqc in this process, on files of a folder of the test's own.
struct Ended {
  int status;
  std::string out;
  std::string err;
};

class Zqc : public testing::Test {
 protected:
  Ended run(const std::vector<std::string>& arguments) {
    std::ostringstream out;
    std::ostringstream err;
    const int status =
        zqc::run({.out = out, .err = err, .colour = colour, .width = width}, arguments);
    return {status, out.str(), err.str()};
  }
  // One that goes well and says nothing about it.
  void done(const std::vector<std::string>& arguments) {
    const Ended ended = run(arguments);
    EXPECT_EQ(ended.status, exitOk) << ended.err;
    EXPECT_EQ(ended.out + ended.err, "");
  }
  std::string printed(const std::vector<std::string>& arguments) {
    const Ended ended = run(arguments);
    EXPECT_EQ(ended.status, exitOk) << ended.err;
    EXPECT_EQ(ended.err, "");
    return ended.out;
  }
  // A command that must fail, print nothing, and leave nothing behind; its sentence.
  std::string refused(int status, const std::vector<std::string>& arguments) {
    const std::size_t entries = folder.entries();
    const Ended ended = run(arguments);
    EXPECT_EQ(ended.status, status) << ended.err;
    EXPECT_EQ(ended.out, "");
    EXPECT_EQ(std::ranges::count(ended.err, '\n'), 1) << ended.err;
    EXPECT_EQ(folder.entries(), entries);
    return ended.err;
  }

  std::string write(const std::string& name, const std::string& text) {
    EXPECT_TRUE(replaceFile(folder.path(name), text).ok());
    return folder.path(name);
  }
  std::string read(const std::string& path) {
    const auto text = readTextFile(path);
    return text.ok() ? text.value() : text.error().sentence;
  }
  std::string project() {
    return write("p.zquic", R"({"id": "p", "name": "P", "appBundleId": "com.example.P",
      "defaultIntValue": 7, "defaultBoolValue": false, "groupList": [
      {"id": "c", "name": "Canvas", "expanded": false, "itemList": [
        {"id": "1", "key": "Max zoom", "doubleValue": 4, "intValue": 3},
        {"id": "2", "key": "title", "type": "string", "stringValue": "Ünter \u001b[31m\nzeile"},
        {"id": "3", "key": "gone", "shouldBeDeleted": true},
        {"id": "4", "key": "origin", "type": "pointSize", "pointValue": {"x": 1.5, "y": -2}}]},
      {"id": "e", "name": "Export dialog", "itemList": [{"id": "5", "key": "Strip", "type": "bool"}]}]})");
  }

  TempFolder folder;
  bool colour = false;
  std::optional<std::size_t> width;
};

}  // namespace zq::zqc
