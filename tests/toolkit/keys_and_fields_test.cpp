// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <string>
#include <vector>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

// Who gets a key, where the focus goes, and what a field shows.

namespace zq {
namespace {

using Log = std::shared_ptr<std::string>;

View noting(const Log& log, const std::string& name) {
  return Button([log, name] { *log += name + ' '; }, Text(name));
}

struct WithBubble {
  Log log;
  bool ownKeys = true;
  View body(Context& context) const {
    auto open = context.state(false);
    const auto toggle = [open, l = log] {
      *l += "opener ";
      open.set(!*open);
    };
    View inside = VStack({noting(log, "ok"), noting(log, "cancel")});
    if (ownKeys) {
      inside = VStack({noting(log, "ok").keyboardShortcut(Key::enter),
                       noting(log, "cancel").keyboardShortcut(Key::escape)});
    }
    return VStack({Button(toggle, Text("opener")).popover(open.binding(), inside),
                   noting(log, "default").keyboardShortcut(Key::enter),
                   noting(log, "dismiss").keyboardShortcut(Key::escape),
                   noting(log, "deleting").keyboardShortcut(Key::deleteForward)});
  }
};

TEST(Popover, keysBelongToItWhileItIsOpen) {
  struct Row {
    const char* what;
    bool ownKeys;
    bool tabbedIn;
    Key key;
    const char* told;
    bool closes;
  };
  const Row rows[] = {
      {"its default button", true, false, Key::enter, "ok ", false},
      {"its own escape", true, false, Key::escape, "cancel ", false},
      {"its default button, focus on another", true, true, Key::enter, "cancel ", false},
      {"escape of one without its own", false, false, Key::escape, "", true},
      {"escape with the focus in it", false, true, Key::escape, "", true},
      {"keys of the window", false, false, Key::deleteForward, "", false},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    const Log log = std::make_shared<std::string>();
    Harness h(WithBubble{log, row.ownKeys});
    h.key(Key::enter);
    EXPECT_EQ(std::exchange(*log, {}), "default ");
    h.tab();
    h.key(Key::space);
    EXPECT_EQ(std::exchange(*log, {}), "opener ");
    ASSERT_TRUE(h.button("cancel"));
    if (row.tabbedIn) {
      while (h.focused().name != "cancel") h.tab();
    }
    h.key(row.key);
    EXPECT_EQ(std::exchange(*log, {}), row.told);
    EXPECT_EQ(!h.button("cancel"), row.closes);
    if (!row.closes) return;
    h.key(Key::deleteForward);
    EXPECT_EQ(*log, "deleting ") << "the window has its keys again";
  }
}

TEST(Focus, goesOnFromWhereItWasLost) {
  struct Row {
    const char* what;
    bool backwards;
    const char* next;
  };
  struct Three {
    std::shared_ptr<std::optional<State<int>>> lost;  // 1: b is disabled, 2: gone
    View body(Context& context) const {
      *lost = context.state(0);
      const auto none = [] {};
      const View b = Button(none, Text("b"));
      return VStack({Button(none, Text("a")),
                     VStack({***lost == 2 ? View(Text("-")) : b.disabled(***lost == 1),
                             Button(none, Text("c"))}),
                     Button(none, Text("d"))});
    }
  };
  for (const int how : {1, 2}) {
    for (const Row& row : {Row{"on", false, "c"}, Row{"back", true, "a"}}) {
      SCOPED_TRACE(row.what + std::to_string(how));
      const auto lost = std::make_shared<std::optional<State<int>>>();
      Harness h(Three{lost});
      h.tab();
      h.tab();
      ASSERT_EQ(h.focused().name, "b");
      (*lost)->set(how);
      h.settle();
      EXPECT_FALSE(h.focused());
      h.tab(row.backwards);
      EXPECT_EQ(h.focused().name, row.next);
    }
  }
}

TEST(Focus, comesBackFromABubbleThatClosed) {
  const Log log = std::make_shared<std::string>();
  Harness h(VStack({noting(log, "first"), WithBubble{log, false}}));
  h.click(h.button("opener"));
  while (h.focused().name != "cancel") h.tab();
  h.key(Key::escape);
  EXPECT_EQ(h.focused().name, "opener");
  h.tab();
  EXPECT_EQ(h.focused().name, "default");
}

TEST(Focus, staysInABubbleThatHasPlacesOfItsOwn) {
  Harness h(WithBubble{std::make_shared<std::string>(), false});
  h.tab();
  h.key(Key::space);
  for (const char* name : {"ok", "cancel"}) {
    EXPECT_TRUE(h.tab());
    EXPECT_EQ(h.focused().name, name);
  }
  EXPECT_FALSE(h.tab()) << "the window says what comes after the last";
  EXPECT_TRUE(h.tab());
  EXPECT_EQ(h.focused().name, "ok");
  h.key(Key::escape);
  EXPECT_EQ(h.focused().name, "opener");
}

// --- Fields ---

TEST(TextField, aShortcutGoesToIt) {
  Harness h(
      VStack({Button([] {}, Text("before")), TextField("name", Binding<std::string>::constant(""))
                                                 .keyboardShortcut(Shortcut::control("f"))}));
  EXPECT_TRUE(h.host().key({.text = "f", .modifiers = {.control = true}}));
  h.settle();
  EXPECT_EQ(h.focused().name, "name");
}

struct Field {
  std::function<Binding<std::string>(Context&)> binding;
  View body(Context& context) const { return TextField("name", binding(context)); }
};

TEST(TextField, showsTheBindingsValueAfterEachEdit) {
  const auto limited = [](Context& context) {
    auto text = context.state(std::string("abc"));
    return Binding<std::string>([text] { return *text; },
                                [text](const std::string& v) { text.set(v.substr(0, 3)); });
  };
  const auto refusing = [](Context&) { return Binding<std::string>::constant("abc"); };
  const auto digits = [](Context& context) {
    auto text = context.state(std::string("12"));
    return Binding<std::string>([text] { return *text; },
                                [text](std::string v) {
                                  std::erase_if(v, [](char c) { return c < '0' || c > '9'; });
                                  text.set(v);
                                });
  };
  // Its getter answers what was when the view was made.
  const auto snapshot = [](Context& context) {
    auto text = context.state(std::string("ac"));
    return Binding<std::string>([was = *text] { return was; },
                                [text](const std::string& v) { text.set(v); });
  };
  struct Row {
    const char* what;
    std::function<Binding<std::string>(Context&)> binding;
    std::vector<Key> before;
    const char* typed;
    const char* shown;
  };
  const Row rows[] = {
      {"limited", limited, {}, "d", "abc"},
      {"refusing", refusing, {}, "de", "abc"},
      {"refusing a deletion", refusing, {Key::left, Key::backspace}, "", "abc"},
      {"taking a part of it", digits, {Key::left}, "a3b", "132"},
      {"read from the view", snapshot, {Key::left}, "b", "abc"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    Harness h(Field{row.binding}, {200, 30});
    h.tab();
    for (const Key key : row.before) h.key(key);
    h.type(row.typed);
    EXPECT_EQ(h.find(Role::textField).value, row.shown);
    EXPECT_EQ(h.host().textFields().at(0).text, row.shown);
  }
}

TEST(TextField, anOwnerThatAnswersLateFindsTheCaretWhereItWas) {
  HeadlessPlatform platform;
  const auto late = [&](Context& context) {
    auto text = context.state(std::string());
    return Binding<std::string>([text] { return *text; },
                                [text, &platform](const std::string& v) {
                                  platform.mainQueue().postDelayed(0.1, [=] { text.set(v); });
                                });
  };
  Harness h(Field{late}, {200, 30});
  h.tab();
  h.type("a");
  EXPECT_EQ(h.find(Role::textField).value, "");
  h.advance(0.2);
  h.type("b");
  h.advance(0.2);
  EXPECT_EQ(h.find(Role::textField).value, "ab");
}

}  // namespace
}  // namespace zq
