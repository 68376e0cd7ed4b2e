// ZQSwiftUI, MIT licence; see LICENSE.
// The whole window as users of a screen reader, of the keyboard, of large texts and of other
// directions of writing meet it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <apps/configurator/main_view.hpp>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <tests/configurator/open_project.hpp>
#include <tests/toolkit/contrast.hpp>
#include <tests/toolkit/fitting.hpp>
#include <zqswiftui/platform/headless/harness.hpp>

namespace zq::configurator {
namespace {

class ConfiguratorWindow : public OpenProject {
 protected:
  ConfiguratorWindow() : bench(makeBench()), screen(MainView(bench), {1240, 760}) {}
  std::shared_ptr<Workbench> makeBench() {
    const auto shelf = std::make_shared<Shelf>();
    shelf->note(Url::file(folder.path("other.zquic")), "Other");
    shelf->edit(Url::file(folder.path("other.zquic")), [](ShelfEntry& e) { e.hidden = true; });
    auto made = std::make_shared<Workbench>(
        shelf, std::make_shared<OpenDocuments>(),
        WindowActions{
            .openWindow = [] {}, .closeWindow = [this] { closed = true; }, .quit = [] {}});
    return made;
  }
  void show() {
    bench->openProject(url);
    screen.advance(1);
    ASSERT_TRUE(bench->document());
  }
  // As a screen reader does.
  void press(const std::string& name) {
    const Element found = named(name);
    ASSERT_TRUE(found) << name << "\n" << screen.accessibility();
    screen.host().accessibilityPress(found.id);
    screen.advance(0.5);
  }
  void enter(const std::string& name, const std::string& text) {
    const Element field = screen.find(Role::textField, name);
    ASSERT_TRUE(field) << name << "\n" << screen.accessibility();
    screen.host().accessibilitySetValue(field.id, text);
    screen.advance(0.5);
  }
  // Nothing can be written beside the project until it is mended.
  void breakFolder() const {
    std::filesystem::remove_all(folder.path());
    std::ofstream(place()) << "no folder";
  }
  void mendFolder() const { std::filesystem::remove(place()); }
  std::filesystem::path place() const { return std::filesystem::path(url.path()).parent_path(); }
  void keys(const std::string& character, bool shift = false) {
    EXPECT_TRUE(screen.host().key({Key::character, character, {.shift = shift, .control = true}}))
        << character;
    screen.advance(0.5);
  }
  Element named(const std::string& name) {
    for (const Role role : {Role::button, Role::toggle, Role::listItem}) {
      if (const Element found = screen.find(role, name)) return found;
    }
    return {};
  }
  // Shows each state of the window that has elements of its own.
  void everywhere(const std::function<void()>& look) {
    const auto at = [&](const char* const where, const std::function<void()>& go) {
      SCOPED_TRACE(where);
      go();
      screen.advance(2);
      look();
    };
    at("welcome", [] {});
    at("nothing selected", [&] { show(); });
    bench->query.set("o");
    for (const ZQUICRecordType type : allRecordTypes) {
      at("value", [&] { bench->addItem(type); });
    }
    bench->query.set("zoom");
    at("project", [&] { bench->pane.set(Pane::project); });
    at("code", [&] { bench->pane.set(Pane::code); });
    bench->failure = "There is no such file.";
    for (const Sheet sheet : {Sheet::about, Sheet::notSaved, Sheet::failure}) {
      at("sheet", [&] { bench->sheet.set(sheet); });
    }
    bench->sheet.set(Sheet::none);
    at("not saved", [&] {
      bench->pane.set(Pane::value);
      breakFolder();
      rename(*bench->document(), "kept");
    });
    at("not saved at the end", [&] { bench->close(); });
    bench->sheet.set(Sheet::none);
    mendFolder();
    bench->document()->saveNow();
    screen.advance(1);
    renameAsOthers("theirs");
    rename(*bench->document(), "ours");
    at("changed by others", [] {});
    EXPECT_EQ(bench->sheet.get(), Sheet::changedByOthers);
  }

  bool closed = false;
  std::shared_ptr<Workbench> bench;
  Harness screen;
};

// Calls with each element, and whether a scroll area is around it.
void eachElement(const AccessibilityNode& node, bool scrolled,
                 const std::function<void(const AccessibilityNode&, bool)>& look) {
  look(node, scrolled);
  for (const AccessibilityNode& child : node.children) {
    eachElement(child, scrolled || node.role == Role::scrollArea || node.role == Role::list, look);
  }
}

TEST_F(ConfiguratorWindow, namesAllThatCanBePressedOrFilledIn) {
  everywhere([&] {
    eachElement(screen.host().accessibilityTree(), false, [](const auto& node, bool) {
      const bool control = node.pressable || node.adjustable || node.focusable ||
                           node.role == Role::textField || node.role == Role::list;
      EXPECT_FALSE(control && node.name.empty())
          << static_cast<int>(node.role) << " at " << node.bounds.x << "," << node.bounds.y;
    });
  });
}

TEST_F(ConfiguratorWindow, writesAndDrawsWhatStandsOut) {
  everywhere([&] {
    for (const ColorScheme scheme : {ColorScheme::dark, ColorScheme::light}) {
      screen.setAppearance({.colorScheme = scheme});
      contrasts::expectReadable(screen, scheme);
    }
  });
}

TEST_F(ConfiguratorWindow, hasTargetsThatCanBeHit) {
  everywhere([&] {
    eachElement(screen.host().accessibilityTree(), false, [](const auto& node, bool scrolled) {
      if (!node.pressable || scrolled) return;
      EXPECT_GE(node.bounds.width, 24) << node.name;
      EXPECT_GE(node.bounds.height, 24) << node.name;
    });
    EXPECT_THAT(fitting::targetFaults(screen), testing::IsEmpty());
    EXPECT_THAT(fitting::crowdedTargets(screen), testing::IsEmpty());
  });
}

class ConfiguratorWindowWritten : public ConfiguratorWindow,
                                  public testing::WithParamInterface<LayoutDirection> {};

// Text is cut off where it gets less room than its words need, unless it stands in one line on
// purpose or in a field, which moves it; what is pressed must always be read whole.
TEST_P(ConfiguratorWindowWritten, cutsNothingOffAtLargeTexts) {
  screen.setAppearance({.layoutDirection = GetParam(), .textScale = 2});
  const auto inField = [&](const Rect& at) {
    const auto fields = screen.all(Role::textField);
    return std::any_of(fields.begin(), fields.end(), [&](const Element& field) {
      return field.bounds.contains({at.midX(), at.midY()});
    });
  };
  everywhere([&] {
    for (const fitting::TextFault& fault : fitting::textFaults(screen)) {
      EXPECT_TRUE(fault.shortened) << fault.text << ' ' << fault.what;
    }
    for (const DrawnCommand& drawn : screen.drawn()) {
      const auto* const text = std::get_if<DrawText>(&drawn.command);
      if (!text || text->maxLines != 0 || inField(drawn.bounds)) continue;
      const auto& [words, font, cache] = *text->content;
      const TextSize size = platform.textMeasurer().wrapped(words, font, text->rect.width, 0);
      EXPECT_LE(size.height, text->rect.height + 0.5) << words;
      std::istringstream parts(words);
      for (std::string word; parts >> word;) {
        EXPECT_LE(platform.textMeasurer().lineWidth(word, font), text->rect.width + 0.5) << words;
      }
    }
    eachElement(screen.host().accessibilityTree(), false, [&](const auto& node, bool scrolled) {
      const Rect& at = node.bounds;
      if (!node.pressable || scrolled) return;
      EXPECT_TRUE(at.x >= 0 && at.y >= 0 && at.maxX() <= 1240 && at.maxY() <= 760) << node.name;
      for (const DrawnCommand& drawn : screen.drawn()) {
        const auto* const text = std::get_if<DrawText>(&drawn.command);
        if (!text || !at.contains({drawn.bounds.midX(), drawn.bounds.midY()})) continue;
        EXPECT_LE(platform.textMeasurer().lineWidth(text->content->text, text->content->font),
                  text->rect.width + 0.5)
            << text->content->text;
      }
    });
  });
}

INSTANTIATE_TEST_SUITE_P(All, ConfiguratorWindowWritten,
                         testing::Values(LayoutDirection::leftToRight,
                                         LayoutDirection::rightToLeft));

TEST_F(ConfiguratorWindow, isWorkedWithByPressesAndKeysAlone) {
  show();
  keys("g");
  press("Add group");
  EXPECT_EQ(onDisk().groupList().size(), 4U);
  const std::vector<std::string> names{"integer", "number", "text", "flag", "point or size"};
  for (std::size_t i = 0; i < names.size(); ++i) {
    press("Add " + names[i]);
    enter("Key", "Key of " + std::string(rawValue(allRecordTypes[i])));
  }
  const auto last = [&] { return onDisk().groupList()[2]; };
  const auto stored = [&](ZQUICRecordType type) {
    for (const ZQUICItem& item : last().itemList) {
      if (item.type == type) return item;
    }
    return ZQUICItem();
  };
  const std::string group = bench->group()->id;
  ASSERT_EQ(last().itemList.size(), allRecordTypes.size());
  EXPECT_EQ(last().id, group);

  for (const auto& [type, text] :
       {std::pair{"string", "Grün\nund mehr"}, {"double", "2.5"}, {"int", "42"}}) {
    press("Key of " + std::string(type));
    enter("Value", text);
    screen.key(Key::enter);
    screen.advance(1);
  }
  EXPECT_EQ(stored(ZQUICRecordType::string).stringValue, "Grün\nund mehr");
  EXPECT_EQ(stored(ZQUICRecordType::double_).doubleValue, 2.5);
  EXPECT_EQ(stored(ZQUICRecordType::int_).intValue, 42);

  keys("z");
  EXPECT_NE(stored(ZQUICRecordType::int_).intValue, 42);
  keys("z", true);
  EXPECT_EQ(stored(ZQUICRecordType::int_).intValue, 42);

  keys("d");
  EXPECT_EQ(last().itemList.size(), allRecordTypes.size() + 1);
  const std::string doomed = bench->item()->id;
  ASSERT_TRUE(screen.host().accessibilityFocus(screen.find(Role::list, "Values").id));
  screen.key(Key::deleteForward);
  screen.advance(1);
  EXPECT_EQ(last().itemList.size(), allRecordTypes.size());
  EXPECT_TRUE(bench->item());  // the next one is selected
  keys("z");
  EXPECT_EQ(last().itemList.size(), allRecordTypes.size() + 1);

  press("Key of bool");
  keys("c", true);
  EXPECT_NE(platform.pasteboard().text().value_or("").find("keyOfBool"), std::string::npos);
  enter("Search groups and values", "max zoo");
  EXPECT_TRUE(named("Canvas"));
  EXPECT_FALSE(named("Paper"));
  press("Empty the search");
  EXPECT_TRUE(named("Paper"));
  bench->close();
  screen.advance(1);
  EXPECT_TRUE(closed);
}

TEST_F(ConfiguratorWindow, offersAnotherTryAndAnotherPlaceWhereASaveFails) {
  const TempFolder other;
  const auto failing = [&](const std::string& name) {
    breakFolder();
    rename(*bench->document(), name);
    screen.advance(1);
    EXPECT_TRUE(named("Try again") && named("Save elsewhere…"));
    EXPECT_NE(screen.accessibility().find("kept in this window but not saved: cannot write"),
              std::string::npos);
  };
  show();
  failing("one");
  press("Try again");
  rename(*bench->document(), "two");
  screen.settle();
  EXPECT_TRUE(named("Try again")) << "it stays while the next save waits";
  mendFolder();
  press("Try again");
  EXPECT_EQ(onDisk().name, "two");
  EXPECT_FALSE(named("Try again"));

  failing("three");
  bench->close();
  screen.advance(1);
  EXPECT_EQ(bench->sheet.get(), Sheet::notSaved);
  const auto saveAt = [&](const std::string& place) {
    platform.fileDialogs().answerNext({place});
    press("Save elsewhere…");
    screen.advance(1);
  };
  saveAt((place() / "still not.zquic").string());
  EXPECT_EQ(bench->sheet.get(), Sheet::failure);
  EXPECT_EQ(bench->document()->file(), url);
  bench->sheet.set(Sheet::none);
  saveAt(other.path("safe"));
  EXPECT_EQ(bench->sheet.get(), Sheet::none);
  url = Url::file(other.path("safe.zquic"));
  EXPECT_EQ(bench->document()->file(), url);
  EXPECT_EQ(bench->shelf()->recent()->files().front(), url);
  EXPECT_EQ(onDisk().name, "three");
  keys("z");
  EXPECT_EQ(onDisk().name, "two");
  renameAsOthers("theirs");
  screen.advance(1);
  EXPECT_EQ(bench->document()->content()->head.name, "theirs") << "the new file is followed";
  bench->close();
  screen.advance(1);
  EXPECT_TRUE(closed);
}

TEST_F(ConfiguratorWindow, showsNoEditorOfAGroupThatWasDeletedAgain) {
  show();
  bench->removeGroup("canvas");
  screen.settle();
  keys("z");
  press("Canvas");
  press("Max zoom");
  keys("z", true);
  EXPECT_FALSE(bench->item());
  bench->copyExpression();
  bench->copyCall();
  EXPECT_FALSE(platform.pasteboard().text());
}

TEST_F(ConfiguratorWindow, worksAsMuchAsIsSeenHoweverLongTheProjectIs) {
  std::vector<ZQUICGroup> groups;
  for (int g = 0; g < 200; ++g) {
    ZQUICGroup& group = groups.emplace_back();
    group.name = "Group " + std::to_string(g);
    for (int i = 0; i < 100; ++i) group.itemList.push_back({.key = "Key " + std::to_string(i)});
  }
  const auto bodiesOf = [&](const std::function<void()>& work) {
    const auto before = screen.counts().bodies;
    work();
    screen.settle();
    return screen.counts().bodies - before;
  };
  writeAsOthers(onDisk().withGroups(groups));
  const auto opened = bodiesOf([&] {
    bench->openProject(url);
    platform.runUntilIdle();
  });
  bench->selectedItem().set(bench->group()->itemList[3].id);
  screen.advance(1);
  const auto edited = bodiesOf([&] {
    bench->document()->edit("Change value", [&](ProjectContent& content) {
      editItem(content, *bench->groupId.get(), *bench->itemId.get(),
               [](ZQUICItem& item) { item.doubleValue = 8; });
    });
  });
  RecordProperty("bodies to open", static_cast<int>(opened));
  RecordProperty("bodies of an edit", static_cast<int>(edited));
  EXPECT_LT(opened, 200U);
  EXPECT_LT(edited, 100U);
}

}  // namespace
}  // namespace zq::configurator
