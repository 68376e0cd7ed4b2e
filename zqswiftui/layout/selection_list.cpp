// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>
#include <zqswiftui/controls/list_line.hpp>
#include <zqswiftui/layout/row_list.hpp>
#include <zqswiftui/layout/selection_list_model.hpp>
#include <zqswiftui/platform/toolkit/scroll_view.hpp>
#include <zqswiftui/platform/toolkit/shapes.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>

namespace zq {
namespace {

using ModelPtr = std::shared_ptr<SelectionListModel>;

constexpr double kGroundInset = 4;  // from the edges of the list
constexpr double kContentInset = 12;
constexpr double kGapLine = 2;
constexpr double kDragBegins = 4;
constexpr double kRingInset = 2;  // the ring shows in a list that fills its window, too

// What is drawn behind the rows, or before them, at a place of one.
View atRow(const View& view, double y, double height) {
  return view.frame({.height = height})
      .padding({.top = std::max(0.0, y), .leading = kGroundInset, .trailing = kGroundInset});
}

struct Grounds {
  ModelPtr model;
  std::optional<std::size_t> selected;
  std::size_t count;
  double rowHeight;

  View ground(std::optional<std::size_t> row, LineGround how) const {
    const bool shown = row && *row < count;
    const double y = shown ? static_cast<double>(*row) * rowHeight : 0;
    return atRow(lineGround(shown ? how : LineGround::none), y, rowHeight);
  }
  View body(Context& context) const {
    const auto marks = context.observe(model).marks();
    const bool over = marks.hovered && marks.hovered != selected;
    return ZStack(
               {ground(over ? marks.hovered : std::nullopt, LineGround::hovered),
                ground(selected, marks.focused ? LineGround::chosen : LineGround::chosenElsewhere)},
               Alignment::top())
        .flexFrame({.maxWidth = kInfinity, .maxHeight = kInfinity, .alignment = Alignment::top()})
        .revealing(marks.reveal, marks.turn);
  }
  bool operator==(const Grounds&) const = default;
};

// Where what is dragged would go.
struct GapLine {
  ModelPtr model;
  std::size_t count;
  double rowHeight;

  View body(Context& context) const {
    const auto gap = context.observe(model).marks().gap;
    if (!gap) return {};
    const double all = static_cast<double>(count) * rowHeight;
    const double y = static_cast<double>(*gap) * rowHeight - kGapLine / 2;
    const View line = RoundedRectangle(kGapLine / 2).fill(Color::accent());
    return atRow(line.id("insertion line"), std::min(y, all - kGapLine), kGapLine);
  }
  bool operator==(const GapLine&) const = default;
};

View rowView(const SelectionList::Parameters& list, const ModelPtr& model,
             const SelectionListModel::OpenedState& opened, std::size_t row, bool selected) {
  View view =
      (*list.row)(row)
          .flexFrame(
              {.maxWidth = kInfinity, .maxHeight = kInfinity, .alignment = Alignment::leading()})
          .padding({.leading = kContentInset, .trailing = kContentInset})
          .onPress([model, row](int clicks) { model->pressed(row, clicks); })
          .onTap([model, row] { model->select(row); }, TabStop::no)
          .onHover([model, row](bool inside) { model->hovered(row, inside); });
  if (list.menu) {
    view =
        view.onSecondaryTap([model, row, opened](Point at) { model->openMenu(row, at, opened); });
  }
  Accessibility meaning{.role = Role::listItem, .selected = selected};
  if (list.label) meaning.label = list.label(row);
  return view.accessibility(std::move(meaning));
}

double heightOf(const SelectionList::Parameters& list, double textScale) {
  const double given = std::isfinite(*list.rowHeight) ? std::max(1.0, *list.rowHeight) : 1;
  return given * std::max(1.0, textScale);
}

}  // namespace

SelectionList::SelectionList(Parameters parameters) : parameters_(std::move(parameters)) {}

View SelectionList::body(Context& context) const {
  const SelectionList::Parameters& list = parameters_;
  const double rowHeight = heightOf(list, context.environment<TextScaleKey>());
  const auto model =
      *context.stateOf([&] { return std::make_shared<SelectionListModel>(list, rowHeight); });
  model->follow(list, rowHeight);
  const auto opened = context.state(std::optional<detail::OpenedMenu>());
  const auto selected = model->selected();

  View rows = RowList({.count = list.count,
                       .rowHeight = rowHeight,
                       .key = list.key,
                       .row =
                           [list, model, opened, selected](std::size_t row) {
                             return rowView(list, model, opened, row, row == selected);
                           }})
                  .background(Grounds{model, selected, list.count, rowHeight}, Alignment::top())
                  .overlay(GapLine{model, list.count, rowHeight}, Alignment::top())
                  .onVisiblePart([model](const Rect& part) { model->partSeen(part); });
  if (list.onMove) {
    rows = rows.gesture({.minimumDistance = kDragBegins,
                         .onChanged = [model](const DragValue& drag) { model->dragged(drag); },
                         .onEnded = [model](const DragValue&) { model->dropped(); },
                         .onCancelled = [model] { model->cancelDrag(); }});
  }
  if (list.menu) {
    const auto items = *opened && selected ? list.menu(*selected) : std::vector<MenuItem>();
    rows = detail::withMenu(rows, opened, items, context.environment<LayoutDirectionKey>());
  }
  const std::string spoken = selected && list.label ? list.label(*selected) : "";
  return ScrollView(rows)
      .onKey([model, opened](const KeyEvent& event) { return model->key(event, opened); },
             kRingInset)
      .onFocus([model](bool focused) { model->focused(focused); })
      .accessibility({.role = Role::list, .label = "", .value = spoken});
}

}  // namespace zq
