// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/configurator/item_pane.hpp>
#include <apps/configurator/lists.hpp>
#include <apps/configurator/main_view.hpp>
#include <apps/configurator/project_pane.hpp>
#include <zqswiftui/platform/base/prefs.hpp>
#include <zqswiftui/platform/base/work.hpp>

namespace zq::configurator {
namespace {

// A width that the next window begins with too.
Binding<double> keptWidth(Context& context, const std::string& key, double initially) {
  const auto width = context.state(prefs_getValueDouble(key, initially));
  return Binding<double>([width] { return *width; },
                         [width, key](const double& now) {
                           width.set(now);
                           prefs_setValueDouble(key, now);
                         });
}

struct Tabs : ViewModifiers<Tabs> {
  explicit Tabs(Binding<Pane> pane) : pane_(std::move(pane)) {}

  View body(Context&) const {
    return HStack({.spacing = 2}, {tab("Value", Pane::value), tab("Project", Pane::project),
                                   tab("Code", Pane::code)});
  }

 private:
  View tab(const std::string& title, Pane pane) const {
    const bool chosen = pane_.get() == pane;
    const Binding<Pane> all = pane_;
    return Button([all, pane] { all.set(pane); },
                  Text(title)
                      .padding(EdgeInsets::symmetric(10, 4))
                      .background(
                          RoundedRectangle(5).fill(Color::primary().opacity(chosen ? 0.12 : 0))))
        .accessibility({.selected = chosen});
  }
  Binding<Pane> pane_;
};

// Lights for a moment when running applications were told.
struct Lamp : ViewModifiers<Lamp> {
  explicit Lamp(std::size_t broadcasts) : broadcasts_(broadcasts) {}

  View body(Context& context) const {
    auto lit = context.state(false);
    const auto timer = context.stateOf([] { return std::make_shared<ZQTimer>(); });
    return HStack(
               {.spacing = 6},
               {Circle().fill(*lit ? Color::green() : Color::primary().opacity(0.25)).frame(8, 8),
                Text(*lit ? "Applications told" : "Live").foregroundColor(Color::secondary())})
        .onChange(broadcasts_, [lit, timer](const std::size_t&) {
          lit.set(true);
          (*timer)->fireOnce(1, false, [lit] { lit.set(false); });
        });
  }

 private:
  std::size_t broadcasts_;
};

std::string saveText(const Document& document) {
  switch (document.saveState()) {
    case SaveState::saved:
      return "Saved";
    case SaveState::waiting:
      return "Saving…";
    case SaveState::failed:
      return "Not saved";
    case SaveState::changedByOthers:
      return "Changed by another program";
  }
  return {};
}

// What is not on the disk, why, and what can be done; nothing where all is.
View notSaved(const std::shared_ptr<Workbench>& bench, const std::shared_ptr<Document>& document) {
  const bool kept = !document->cannotSave();
  if (kept && document->sourceFailure().empty()) return EmptyView();
  const std::string sentence =
      kept ? "The project is saved, but its source is not: " + document->sourceFailure() + "."
           : "What you did is kept in this window but not saved: " + document->saveFailure() + ".";
  std::vector<View> parts{
      Image::symbol("exclamationmark.triangle"),
      Text(sentence).flexFrame({.maxWidth = kInfinity, .alignment = Alignment::leading()}),
      PushButton("Try again", {.action = [document] { document->saveNow(); }})};
  if (!kept) {
    parts.push_back(PushButton("Save elsewhere…", {.action = [bench] { bench->saveElsewhere(); }}));
  }
  return HStack({.spacing = 8}, std::move(parts))
      .padding(EdgeInsets::symmetric(12, 6))
      .background(View(Color::orange()).opacity(0.15));
}

struct StatusLine : ViewModifiers<StatusLine> {
  explicit StatusLine(std::shared_ptr<Workbench> bench) : bench_(std::move(bench)) {}

  View body(Context& context) const {
    const auto document = bench_->document();
    context.observe(document);
    context.observe(bench_->insight());
    const std::size_t problems = bench_->insight()->findings()->count;
    std::vector<View> parts{Text(saveText(*document)).lineLimit(1), Spacer()};
    if (problems > 0) {
      parts.push_back(Text(problems == 1 ? "1 problem" : std::to_string(problems) + " problems"));
    }
    parts.push_back(Lamp(document->broadcasts()));
    const View line = HStack({.spacing = 12}, std::move(parts))
                          .font(Font::caption())
                          .foregroundColor(Color::secondary())
                          .padding(EdgeInsets::symmetric(12, 5));
    return VStack({.spacing = 0}, {notSaved(bench_, document), line});
  }

 private:
  std::shared_ptr<Workbench> bench_;
};

View paneOf(const std::shared_ptr<Workbench>& bench) {
  switch (bench->pane.get()) {
    case Pane::value:
      return ItemPane(bench);
    case Pane::project:
      return ProjectPane(bench);
    case Pane::code:
      return CodePane(bench);
  }
  return EmptyView();
}

View editor(const std::shared_ptr<Workbench>& bench, const Binding<double>& groupsWidth,
            const Binding<double>& itemsWidth) {
  const Binding<Pane> pane([bench] { return bench->pane.get(); },
                           [bench](const Pane& next) { bench->pane.set(next); });
  const Binding<std::string> query([bench] { return bench->query.get(); },
                                   [bench](const std::string& text) { bench->search(text); });
  const View right = VStack(
      {.spacing = 0}, {Tabs(pane).padding(6), hairline(false), paneOf(bench).flexFrame(kFill)});
  const View lists = SplitView({.leading = GroupList(bench),
                                .trailing = ItemList(bench),
                                .leadingWidth = groupsWidth,
                                .label = "Width of the groups"});
  return VStack(
      {.spacing = 0},
      {SplitView({.leading = VStack({.spacing = 0}, {SearchField("Search groups and values", query)
                                                         .takingFocus(bench->finds.get())
                                                         .padding(EdgeInsets::symmetric(8, 6)),
                                                     hairline(false), lists.flexFrame(kFill)}),
                  .trailing = right,
                  .leadingWidth = itemsWidth,
                  .leastLeading = 320,
                  .leastTrailing = 260,
                  .label = "Width of the lists"})
           .flexFrame(kFill),
       hairline(false), StatusLine(bench)});
}

View welcome(const std::shared_ptr<Workbench>& bench) {
  const View buttons = HStack(
      {.spacing = 8}, {PushButton("New project", {.action = [bench] { bench->newProject(); }}),
                       PushButton("Open", {.action = [bench] { bench->chooseProject(); }})});
  return VStack({.spacing = 16},
                {Image::symbol("slider.horizontal.3").font(Font::title()),
                 Text("Settings that reach running applications"), buttons,
                 Text("or drop a project file here").foregroundColor(Color::secondary())})
      .flexFrame({.maxWidth = kInfinity, .maxHeight = kInfinity});
}

// A project file that is dropped anywhere is opened.
DropTarget openDropped(const std::shared_ptr<Workbench>& bench) {
  return {.types = {"public.file-url"}, .onDrop = [bench](const DropInfo& info) {
            for (const auto& item : info.items) {
              Queue::execute(false, [item, bench] {
                item->load("public.file-url", [bench](const std::optional<Bytes>& address) {
                  if (!address) return;
                  const auto file = Url::parse(std::string(address->begin(), address->end()));
                  if (file) XMain::post([bench, file] { bench->openProject(*file); });
                });
              });
            }
            return !info.items.empty();
          }};
}

}  // namespace

View MainView::body(Context& context) const {
  context.observe(bench_);
  const Binding<double> sidebar = keptWidth(context, "sidebarWidth", 200);
  const Binding<double> groups = keptWidth(context, "groupsWidth", 200);
  const Binding<double> items = keptWidth(context, "listsWidth", 620);
  const View content = bench_->document() ? editor(bench_, groups, items) : welcome(bench_);
  return VStack(
             {.spacing = 0},
             {Menus(bench_).flexFrame({.maxWidth = kInfinity, .alignment = Alignment::leading()}),
              hairline(false), SheetView(bench_),
              SplitView({.leading = ProjectList(bench_),
                         .trailing = content,
                         .leadingWidth = sidebar,
                         .leastTrailing = 600})
                  .flexFrame(kFill)})
      .onDrop(openDropped(bench_))
      .background(Color::background());
}

}  // namespace zq::configurator
