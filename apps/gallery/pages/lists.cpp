// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <zqswiftui/layout/row_list.hpp>
#include <zqswiftui/layout/selection_list.hpp>

namespace zq::gallery {
namespace {

// [code]
using Names = std::vector<std::string>;

const Names kPlanets{"Mercury", "Venus", "Earth", "Mars", "Jupiter",
    "Saturn", "Uranus", "Neptune"};

void move(Names& names, std::size_t from, std::size_t to) {
  const std::string moved = names[from];
  names.erase(names.begin() + static_cast<std::ptrdiff_t>(from));
  names.insert(names.begin() + static_cast<std::ptrdiff_t>(to), moved);
}

View planetRow(const std::string& name) {
  return HStack(
      {Image::symbol("circle.fill").foregroundColor(Color::secondary()),
          Text(name)});
}

// The host owns the rows and the selection: what the list calls, it does.
struct Planets {
  View body(Context& context) const {
    auto all = context.state(kPlanets);
    auto selected = context.state(std::optional<std::string>("Earth"));
    auto opened = context.state(std::string("none yet"));
    const Names& names = *all;
    const auto name = [names](std::size_t i) { return names[i]; };
    const auto without = [all, names](std::size_t i) {
      Names rest = names;
      rest.erase(rest.begin() + static_cast<std::ptrdiff_t>(i));
      all.set(rest);
    };
    const auto open = [opened, names](
                          std::size_t i) { opened.set(names[i]); };
    const View list = SelectionList(
        {.count = names.size(),
            .rowHeight = 26,
            .key = name,
            .row = [names](std::size_t i) { return planetRow(names[i]); },
            .selection = selected.binding(),
            .label = name,
            .onMove =
                [all, names](std::size_t from, std::size_t to) {
                  Names moved = names;
                  move(moved, from, to);
                  all.set(moved);
                },
            .onActivate = open,
            .onDelete = without,
            .menu =
                [open, without](std::size_t i) {
                  return std::vector<MenuItem>{
                      {.title = "Open", .action = [=] { open(i); }},
                      {.title = "Delete", .action = [=] { without(i); }}};
                }}).accessibilityLabel("Planets");
    return VStack({.alignment = HorizontalAlignment::leading},
        {list.frame({.height = 216, .growsWithText = true}),
            HStack({Text("Opened:"), Text(*opened)})});
  }
};

struct NumberRow {
  std::size_t number = 0;
  bool operator==(const NumberRow&) const = default;
  View body(Context&) const {
    return HStack({.spacing = 12},
        {Text(std::to_string(number))
                .frame({.width = 64, .growsWithText = true}),
            RoundedRectangle(4)
                .fill(Color::indigo().opacity(
                    0.2 + 0.05 * static_cast<double>(number % 12)))
                .frame({.height = 18})})
        .padding(EdgeInsets::symmetric(8, 3));
  }
};

View millionRows() {
  return ScrollView(RowList({.count = std::size_t{1'000'000},
      .rowHeight = 24,
      .key = [](std::size_t i) { return std::to_string(i); },
      .row = [](std::size_t i) { return NumberRow{i + 1}; }}));
}

struct Lists {
  View body(Context&) const {
    return cards({
        card("Press, drag or type", Planets{}),
        card("Right to left",
            View(Planets{}).environment<LayoutDirectionKey>(
                LayoutDirection::rightToLeft)),
        card(
            "A million in a RowList", millionRows().frame({.height = 160})),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::lists() {
  return page<Lists>("Layout", "Lists",
      "Rows of one height, of which those in sight are made, and of which "
      "one "
      "may be selected.");
}

}  // namespace zq::gallery
