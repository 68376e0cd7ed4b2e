// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <gtest/gtest.h>

#include <apps/configurator/workbench.hpp>
#include <fstream>
#include <tests/base/temp_folder.hpp>
#include <zqswiftui/platform/base/files.hpp>
#include <zqswiftui/platform/headless/headless_platform.hpp>
#include <zqswiftui/settings/project_json.hpp>

namespace zq::configurator {

// A project in a folder of the test's own, on a clock that it moves.
class OpenProject : public testing::Test {
 protected:
  OpenProject() {
    ZQUICProject project;
    project.name = "Sample";
    project.appBundleId = "org.example.sample";
    project.setGroupList(
        {{.id = "canvas",
          .name = "Canvas",
          .itemList = {{.id = "zoom", .key = "Max zoom", .doubleValue = 4},
                       {.id = "title",
                        .key = "Title",
                        .type = ZQUICRecordType::string,
                        .stringValue = "Blue"}}},
         {.id = "paper", .name = "Paper", .itemList = {{.id = "white", .key = "White"}}}});
    writeAsOthers(project);
  }

  std::string text() const { return readTextFile(url.path()).value(); }
  ZQUICProject onDisk() const { return decodeProject(text()).value(); }
  void writeAsOthers(const std::string& content) const {
    EXPECT_TRUE(replaceFile(url.path(), content).ok());
  }
  void writeAsOthers(const ZQUICProject& project) const {
    writeAsOthers(encodeProject(project, JsonStyle::pretty).value());
  }
  void renameAsOthers(const std::string& name) const {
    ZQUICProject project = onDisk();
    project.name = name;
    writeAsOthers(project);
  }
  std::shared_ptr<Document> open() {
    std::shared_ptr<Document> document;
    Document::open(url, [&](const auto& opened) { document = opened.value(); });
    platform.runUntilIdle();
    return document;
  }
  static void rename(Document& document, const std::string& name, const std::string& key = {}) {
    document.edit(
        "Rename project", [&](ProjectContent& content) { content.head.name = name; }, key);
  }

  HeadlessPlatform platform;
  TempFolder folder;
  Url url = Url::file(folder.path("sample.zquic"));
};

}  // namespace zq::configurator
