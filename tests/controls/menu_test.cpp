// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <zqswiftui/controls/menu.hpp>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

class MenuTest : public testing::Test {
 protected:
  std::function<void()> note(const char* what) {
    return [this, what] { log += std::string(what) + " "; };
  }
  std::string taken() { return std::exchange(log, ""); }
  View bar() {
    return MenuBar(
        {{"File",
          {{.title = "New", .action = note("new"), .shortcut = Shortcut::control("n")},
           MenuItem::separator(),
           {.title = "Save",
            .action = note("save"),
            .shortcut = Shortcut::control("s"),
            .enabled = false},
           {.title = "Quit", .action = note("quit")}}},
         {"Edit",
          {{.title = "Redo", .action = note("redo"), .shortcut = Shortcut::controlShift("z")},
           {.title = "Wrap", .action = note("wrap"), .checked = true}}}});
  }

  std::string log;
};

TEST_F(MenuTest, aBarIsOpenedGoneThroughAndClosedByThePointer) {
  Harness h(bar());
  h.click(h.button("File"));
  EXPECT_EQ(h.button("File").value, "expanded");
  EXPECT_TRUE(h.findText("Ctrl+N"));
  h.click(h.button("Save"));
  EXPECT_EQ(taken(), "") << "it is disabled";
  h.click(h.button("Quit"));
  EXPECT_EQ(taken(), "quit ");
  EXPECT_FALSE(h.button("Quit"));
  h.click(h.button("Edit"));
  EXPECT_EQ(h.button("Wrap").checked, true);
  h.click(h.button("Edit"));
  EXPECT_FALSE(h.button("Wrap"));
}

TEST_F(MenuTest, aBarIsUsedByKeysAlone) {
  Harness h(bar());
  ASSERT_TRUE(h.tab());
  EXPECT_EQ(h.focused().name, "File");
  for (const Key key : {Key::down, Key::down, Key::down, Key::up, Key::enter}) {
    EXPECT_TRUE(h.key(key));  // New, Quit, and New again: the others are passed over
  }
  EXPECT_EQ(taken(), "quit ");
  for (const Key key : {Key::space, Key::right, Key::down, Key::down, Key::enter}) h.key(key);
  EXPECT_EQ(taken(), "wrap ");
  for (const Key key : {Key::down, Key::left}) h.key(key);
  EXPECT_TRUE(h.button("Wrap")) << "around the end of the bar";
  h.key(Key::escape);
  EXPECT_FALSE(h.button("Wrap"));
  ASSERT_TRUE(h.tab());
  EXPECT_EQ(h.focused().name, "Edit") << "each title is one place of Tab";
}

TEST_F(MenuTest, shortcutsWorkWhileItIsClosed) {
  Harness h(VStack({bar(), TextField("Name", Binding<std::string>::constant(""))}));
  h.click(h.find(Role::textField));
  const Modifiers control{.control = true};
  EXPECT_TRUE(h.host().key({Key::character, "n", control}));
  EXPECT_TRUE(h.host().key({Key::character, "Z", {.shift = true, .control = true}}));
  EXPECT_EQ(taken(), "new redo ");
  EXPECT_FALSE(h.host().key({Key::character, "s", control})) << "it is disabled";
  EXPECT_FALSE(h.host().key({Key::character, "z", control}));
  EXPECT_EQ(taken(), "");
}

TEST_F(MenuTest, aContextMenuOpensUnderThePointerAndByItsKey) {
  Harness h(VStack({.spacing = 0}, {Button(note("row"), Text("Row")).frame(200, 40),
                                    ContextMenu(Button(note("other"), Text("Other")).frame(200, 40),
                                                {{.title = "Rename", .action = note("rename")},
                                                 {.title = "Delete", .action = note("delete")}})}));
  const auto secondary = [&](const Element& on) {
    const bool took = h.host().pointerDown(on.bounds.origin(), PointerButton::secondary);
    h.settle();
    return took;
  };
  EXPECT_FALSE(secondary(h.button("Row")));
  EXPECT_TRUE(secondary(h.button("Other")));
  h.click(h.button("Delete"));
  EXPECT_EQ(taken(), "delete ");
  EXPECT_EQ(h.focused().name, "Other");
  h.leave();
  EXPECT_TRUE(h.key(Key::menu));
  EXPECT_TRUE(h.key(Key::down));
  EXPECT_TRUE(h.key(Key::enter));
  EXPECT_EQ(taken(), "rename ");
  EXPECT_FALSE(h.button("Rename"));
  Harness plain(ContextMenu(Text("no place of Tab"), {{.title = "Copy", .action = note("copy")}}));
  plain.host().pointerDown(plain.findText("no place of Tab").center(), PointerButton::secondary);
  plain.settle();
  for (const Key key : {Key::down, Key::enter}) EXPECT_TRUE(plain.key(key));
  EXPECT_EQ(taken(), "copy ");
}

}  // namespace
}  // namespace zq
