// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/configurator/lists.hpp>
#include <zqswiftui/platform/base/number_text.hpp>
#include <zqswiftui/platform/base/text.hpp>

namespace zq::configurator {
namespace {

constexpr std::size_t kShownText = 200;  // characters of a long text

View row(std::vector<View> parts) {
  return HStack({.spacing = 8}, std::move(parts))
      .flexFrame({.maxWidth = kInfinity, .alignment = Alignment::leading()})
      .padding(EdgeInsets::symmetric(8, 0));
}

View problemMark(const Findings& findings, const std::string& id) {
  const auto* sentences = findings.of(id);
  if (sentences == nullptr) return EmptyView();
  return Image::symbol("exclamationmark.triangle")
      .accessibilityLabel("Problem")
      .help(sentences->front());
}

View listWithTitle(const std::string& title, std::vector<View> tools, View list) {
  tools.insert(tools.begin(), {heading(title), Spacer()});
  return VStack({.spacing = 0},
                {HStack({.spacing = 2}, std::move(tools))
                     .padding({.top = 6, .leading = 12, .bottom = 6, .trailing = 6}),
                 std::move(list).flexFrame(kFill)});
}

// Searches, and marks of the user's own.
struct Marks {
  std::shared_ptr<Shelf> shelf;
  ShelfEntry entry;

  MenuItem mark(const std::string& title, bool isSet,
                std::function<void(ShelfEntry&)> change) const {
    MenuItem item{.title = title};
    item.checked = isSet;
    item.action = [self = *this, change = std::move(change)] {
      self.shelf->edit(self.entry.file, change);
    };
    return item;
  }
  std::vector<MenuItem> menu(const std::shared_ptr<Workbench>& bench) const {
    std::vector<MenuItem> items;
    items.push_back(
        {.title = "Open", .action = [bench, file = entry.file] { bench->openProject(file); }});
    items.push_back(MenuItem::separator());
    items.push_back(
        mark("Favorite", entry.favorite, [](ShelfEntry& e) { e.favorite = !e.favorite; }));
    items.push_back(mark("Hidden", entry.hidden, [](ShelfEntry& e) { e.hidden = !e.hidden; }));
    items.push_back(MenuItem::separator());
    for (std::size_t i = 0; i < shelfColors().size(); ++i) {
      items.push_back(
          mark(shelfColors()[i].name, entry.color == i, [i](ShelfEntry& e) { e.color = i; }));
    }
    items.push_back(MenuItem::separator());
    items.push_back({.title = "Remove from this list",
                     .action = [shelf = shelf, file = entry.file] { shelf->remove(file); }});
    return items;
  }
};

View projectRow(const std::shared_ptr<Shelf>& shelf, const ShelfEntry& entry) {
  const Binding<bool> favorite([entry] { return entry.favorite; },
                               [shelf, file = entry.file](const bool& on) {
                                 shelf->edit(file, [on](ShelfEntry& e) { e.favorite = on; });
                               });
  return row({Circle()
                  .fill(shelfColors()[entry.color].color)
                  .frame(10, 10)
                  .accessibilityLabel(shelfColors()[entry.color].name),
              Text(entry.name).lineLimit(1), Spacer(),
              ZQFavoriteButton({.isFavorite = favorite, .color = Color::primary()})})
      .opacity(entry.hidden ? 0.6 : 1);
}

View itemRow(const ZQUICItem& item, const Findings& findings) {
  return row({Image::symbol(systemImage(item.type, false)).foregroundColor(Color::secondary()),
              Text(item.key.empty() ? "Without a key" : item.key).lineLimit(1), Spacer(12),
              problemMark(findings, item.id),
              Text(valueText(item)).foregroundColor(Color::secondary()).lineLimit(1)});
}

}  // namespace

std::string valueText(const ZQUICItem& item) {
  switch (item.type) {
    case ZQUICRecordType::int_:
      return std::to_string(item.intValue);
    case ZQUICRecordType::double_:
      return spokenNumber(item.doubleValue, 12);
    case ZQUICRecordType::string:
      return strUt_getSubString(item.stringValue, 0, kShownText);
    case ZQUICRecordType::bool_:
      return item.boolValue ? "on" : "off";
    case ZQUICRecordType::pointSize:
      return spokenNumber(item.pointValue.x, 12) + ", " + spokenNumber(item.pointValue.y, 12);
  }
  return {};
}

View ProjectList::body(Context& context) const {
  const auto bench = bench_;
  const auto shelf = bench->shelf();
  context.observe(bench);
  context.observe(shelf);
  auto query = context.state(std::string());
  auto withHidden = context.state(false);
  const auto entries =
      std::make_shared<const std::vector<ShelfEntry>>(shelf->shown(*query, *withHidden));
  const Binding<std::optional<std::string>> selection(
      [bench]() -> std::optional<std::string> {
        const auto open = bench->document();
        return open ? std::optional(open->file().text()) : std::nullopt;
      },
      [bench](const std::optional<std::string>& file) {
        const auto url = file ? Url::parse(*file) : std::nullopt;
        if (url) bench->openProject(*url);
      });
  const View list =
      SelectionList(
          {.count = entries->size(),
           .rowHeight = kRowHeight,
           .key = [entries](std::size_t i) { return (*entries)[i].file.text(); },
           .row = [entries, shelf](std::size_t i) { return projectRow(shelf, (*entries)[i]); },
           .selection = selection,
           .label = [entries](std::size_t i) { return (*entries)[i].name; },
           .onMove =
               [entries, shelf](std::size_t from, std::size_t to) {
                 const std::size_t before = to > from ? to + 1 : to;
                 shelf->move((*entries)[from].file, before < entries->size()
                                                        ? std::optional((*entries)[before].file)
                                                        : std::nullopt);
               },
           .menu =
               [entries, bench, shelf](std::size_t i) {
                 return Marks{shelf, (*entries)[i]}.menu(bench);
               }})
          .accessibilityLabel("Projects");
  const bool all = *withHidden;
  std::vector<View> tools;
  if (shelf->hasHidden()) {
    tools.push_back(toolButton("eye", all ? "Leave out hidden projects" : "Show hidden projects",
                               [withHidden, all] { withHidden.set(!all); }));
  }
  tools.push_back(toolButton("folder", "Open project", [bench] { bench->chooseProject(); }));
  tools.push_back(toolButton("plus", "New project", [bench] { bench->newProject(); }));
  return VStack({.spacing = 0}, {listWithTitle("Projects", std::move(tools), list),
                                 SearchField("Search projects", query.binding()).padding(8)})
      .background(Color::primary().opacity(0.03));
}

View GroupList::body(Context& context) const {
  const auto bench = bench_;
  context.observe(bench);
  const auto document = bench->document();
  context.observe(document);
  context.observe(bench->insight());
  const auto findings = bench->insight()->findings();
  const std::string query = bench->query.get();
  const auto groups =
      std::make_shared<const std::vector<GroupPtr>>(shownGroups(*document->content(), query));
  const auto idOf = [groups](std::size_t i) { return (*groups)[i]->id; };
  std::function<void(std::size_t, std::size_t)> onMove;
  if (query.empty()) {
    onMove = [document](std::size_t from, std::size_t to) {
      document->edit("Move group", [&](ProjectContent& c) { moveGroup(c, from, to); });
    };
  }
  const View list =
      SelectionList(
          {.count = groups->size(),
           .rowHeight = kRowHeight,
           .key = idOf,
           .row =
               [groups, findings](std::size_t i) {
                 const ZQUICGroup& group = *(*groups)[i];
                 return row({Image::symbol("square.grid.2x2").foregroundColor(Color::secondary()),
                             Text(group.name).lineLimit(1), Spacer(),
                             problemMark(*findings, group.id)});
               },
           .selection = bench->selectedGroup(),
           .label = [groups](std::size_t i) { return (*groups)[i]->name; },
           .onMove = onMove,
           .onActivate = [bench](std::size_t) { bench->rename(); },
           .onDelete = [bench, idOf](std::size_t i) { bench->removeGroup(idOf(i)); },
           .menu =
               [bench, idOf](std::size_t i) {
                 return std::vector<MenuItem>{
                     {.title = "Duplicate",
                      .action = [bench, id = idOf(i)] { bench->duplicateGroup(id); }},
                     {.title = "Delete",
                      .action = [bench, id = idOf(i)] { bench->removeGroup(id); }}};
               }})
          .accessibilityLabel("Groups");
  return listWithTitle("Groups", {toolButton("plus", "Add group", [bench] { bench->addGroup(); })},
                       list);
}

View ItemList::body(Context& context) const {
  const auto bench = bench_;
  context.observe(bench);
  const auto document = bench->document();
  context.observe(document);
  context.observe(bench->insight());
  const GroupPtr group = bench->group();
  if (!group) return nothingHere("square.grid.2x2", "Select or add a group.");
  const auto findings = bench->insight()->findings();
  const std::string query = bench->query.get();
  // The rows point into the group, which they hold.
  const auto items =
      std::make_shared<const std::vector<const ZQUICItem*>>(shownItems(*group, query));
  const auto idOf = [items, group](std::size_t i) { return (*items)[i]->id; };
  std::function<void(std::size_t, std::size_t)> onMove;
  if (query.empty()) {
    onMove = [document, id = group->id](std::size_t from, std::size_t to) {
      document->edit("Move value", [&](ProjectContent& c) { moveItem(c, id, from, to); });
    };
  }
  const View list =
      SelectionList({.count = items->size(),
                     .rowHeight = kRowHeight,
                     .key = idOf,
                     .row = [items, group,
                             findings](std::size_t i) { return itemRow(*(*items)[i], *findings); },
                     .selection = bench->selectedItem(),
                     .label = [items, group](std::size_t i) { return (*items)[i]->key; },
                     .onMove = onMove,
                     .onActivate = [bench](std::size_t) { bench->rename(); },
                     .onDelete = [bench, idOf](std::size_t i) { bench->removeItem(idOf(i)); },
                     .menu =
                         [bench, idOf](std::size_t i) {
                           return std::vector<MenuItem>{
                               {.title = "Duplicate",
                                .action = [bench, id = idOf(i)] { bench->duplicateItem(id); }},
                               {.title = "Delete",
                                .action = [bench, id = idOf(i)] { bench->removeItem(id); }}};
                         }})
          .accessibilityLabel("Values");
  std::vector<View> tools;
  for (std::size_t i = 0; i < allRecordTypes.size(); ++i) {
    const ZQUICRecordType type = allRecordTypes[i];
    tools.push_back(toolButton(systemImage(type, false), "Add " + lowercased(typeNames()[i]),
                               [bench, type] { bench->addItem(type); }));
  }
  return listWithTitle(group->name, std::move(tools), list);
}

}  // namespace zq::configurator
