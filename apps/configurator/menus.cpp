// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/configurator/main_view.hpp>
#include <zqswiftui/platform/base/text.hpp>

namespace zq::configurator {
namespace {

using Bench = std::shared_ptr<Workbench>;

Menu fileMenu(const Bench& bench, const std::shared_ptr<Document>& document) {
  Menu menu{
      "File",
      {{.title = "New project…",
        .action = [bench] { bench->newProject(); },
        .shortcut = Shortcut::control("n")},
       {.title = "Open…",
        .action = [bench] { bench->chooseProject(); },
        .shortcut = Shortcut::control("o")},
       {.title = "New window",
        .action = bench->window().openWindow,
        .shortcut = Shortcut::controlShift("n")},
       MenuItem::separator(),
       {.title = "Save and broadcast",
        .action = [document] { document->saveNow(); },
        .shortcut = Shortcut::control("s"),
        .enabled = document != nullptr},
       MenuItem::separator(),
       {.title = "Close window",
        .action = [bench] { bench->close(); },
        .shortcut = Shortcut::control("w")},
       {.title = "Quit", .action = bench->window().quit, .shortcut = Shortcut::control("q")}}};
  return menu;
}

// Beside the file menu, for a line of a menu opens no other menu.
Menu recentMenu(const Bench& bench) {
  const auto recent = bench->shelf()->recent();
  const std::vector<Url> files = recent->files();
  const auto titles = recentTitles(
      files, [shelf = bench->shelf()](const Url& file) { return shelf->nameOf(file); });
  Menu menu{"Open recent", {}};
  for (std::size_t i = 0; i < files.size(); ++i) {
    menu.items.push_back({.title = titles[i].empty() ? files[i].path() : titles[i],
                          .action = [bench, file = files[i]] { bench->openRecent(file); }});
  }
  if (files.empty()) menu.items.push_back({.title = "No project yet", .enabled = false});
  menu.items.push_back(MenuItem::separator());
  menu.items.push_back(
      {.title = "Clear list", .action = [recent] { recent->clear(); }, .enabled = !files.empty()});
  return menu;
}

Menu editMenu(const Bench& bench, const std::shared_ptr<Document>& document) {
  const auto undo = document ? document->undoTitle() : std::nullopt;
  const auto redo = document ? document->redoTitle() : std::nullopt;
  const auto item = bench->item();
  const GroupPtr group = bench->group();
  const auto duplicate = [bench, item, group] {
    if (item) {
      bench->duplicateItem(item->id);
    } else if (group) {
      bench->duplicateGroup(group->id);
    }
  };
  return {"Edit",
          {{.title = undo ? "Undo " + lowercased(*undo) : "Undo",
            .action = [document] { document->undo(); },
            .shortcut = Shortcut::control("z"),
            .enabled = undo.has_value()},
           {.title = redo ? "Redo " + lowercased(*redo) : "Redo",
            .action = [document] { document->redo(); },
            .shortcut = Shortcut::controlShift("z"),
            .enabled = redo.has_value()},
           MenuItem::separator(),
           {.title = "Find",
            .action = [bench] { bench->find(); },
            .shortcut = Shortcut::control("f"),
            .enabled = document != nullptr},
           {.title = "Rename",
            .action = [bench] { bench->rename(); },
            .shortcut = Shortcut::control("r"),
            .enabled = item || group},
           {.title = "Duplicate",
            .action = duplicate,
            .shortcut = Shortcut::control("d"),
            .enabled = item || group},
           {.title = "Delete value",
            .action = [bench, item] { bench->removeItem(item->id); },
            .enabled = item.has_value()},
           {.title = "Delete group",
            .action = [bench, group] { bench->removeGroup(group->id); },
            .enabled = group != nullptr}}};
}

Menu addMenu(const Bench& bench, const std::shared_ptr<Document>& document) {
  Menu menu{"Add",
            {{.title = "Group",
              .action = [bench] { bench->addGroup(); },
              .shortcut = Shortcut::control("g"),
              .enabled = document != nullptr},
             MenuItem::separator()}};
  const bool hasGroup = bench->group() != nullptr;
  for (std::size_t i = 0; i < allRecordTypes.size(); ++i) {
    menu.items.push_back({.title = typeNames()[i],
                          .action = [bench, i] { bench->addItem(allRecordTypes[i]); },
                          .shortcut = Shortcut::control(std::to_string(i + 1)),
                          .enabled = hasGroup});
  }
  return menu;
}

Menu copyMenu(const Bench& bench, const std::shared_ptr<Document>& document) {
  const bool hasItem = bench->item().has_value();
  return {"Copy",
          {{.title = "Property of the value",
            .action = [bench] { bench->copyExpression(); },
            .shortcut = Shortcut::controlShift("c"),
            .enabled = hasItem},
           {.title = "Call by key", .action = [bench] { bench->copyCall(); }, .enabled = hasItem},
           {.title = "Environment object",
            .action = [bench] { bench->copyEnvironmentObject(); },
            .enabled = document != nullptr}}};
}

Menu viewMenu(const Bench& bench) {
  const auto entry = [&](const std::string& title, Pane pane) {
    return MenuItem{.title = title,
                    .action = [bench, pane] { bench->pane.set(pane); },
                    .checked = bench->pane.get() == pane};
  };
  return {
      "View",
      {entry("Value", Pane::value), entry("Project", Pane::project), entry("Code", Pane::code)}};
}

}  // namespace

View Menus::body(Context& context) const {
  const auto bench = bench_;
  context.observe(bench);
  context.observe(bench->shelf());
  context.observe(bench->shelf()->recent());
  const auto document = bench->document();
  if (document) context.observe(document);
  return MenuBar({fileMenu(bench, document),
                  recentMenu(bench),
                  editMenu(bench, document),
                  addMenu(bench, document),
                  copyMenu(bench, document),
                  viewMenu(bench),
                  {"Help", {{.title = "About the configurator", .action = [bench] {
                               bench->sheet.set(Sheet::about);
                             }}}}});
}

}  // namespace zq::configurator
