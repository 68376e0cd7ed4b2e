// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <apps/configurator/item_pane.hpp>
#include <zqswiftui/platform/base/number_text.hpp>

namespace zq::configurator {
namespace {

// Whole numbers up to here are numbers of the field too; greater ones are texts.
constexpr std::int64_t kExact = std::int64_t{1} << 53;

// A field of the selected value: read and written where it now stands, whoever moved it there.
struct ItemAccess {
  std::shared_ptr<Document> document;
  std::string groupId;
  std::string itemId;

  template <class T>
  Binding<T> operator()(const std::string& title, T ZQUICItem::*field) const {
    return Binding<T>(
        [self = *this, field] {
          const auto item = itemOf(*self.document->content(), self.groupId, self.itemId);
          return item ? (*item).*field : T{};
        },
        [self = *this, title, field](const T& value) {
          self.document->edit(
              title,
              [&](ProjectContent& content) {
                editItem(content, self.groupId, self.itemId,
                         [&](ZQUICItem& item) { item.*field = value; });
              },
              title + " " + self.itemId);
        });
  }
};

// One of 64 bits: what a double cannot hold is typed as a text.
struct IntegerField : ViewModifiers<IntegerField> {
  explicit IntegerField(Binding<std::int64_t> number) : number_(std::move(number)) {}

  View body(Context& context) const {
    const auto deferred = context.stateOf([&] { return ZQDeferredIntBinding::create(number_); });
    context.observe(*deferred);
    const Binding<std::int64_t> value = (*deferred)->value();
    if (value.get() < -kExact || value.get() > kExact) return longInteger(value);
    const auto number =
        value.map<double>([](const std::int64_t& n) { return static_cast<double>(n); },
                          [](const double& n) { return static_cast<std::int64_t>(n); });
    const auto bound = static_cast<double>(kExact);
    return numberWithCaption("Value", number, {.least = -bound, .most = bound, .decimals = 0});
  }

 private:
  static View longInteger(const Binding<std::int64_t>& value) {
    const auto text = value.map<std::string>(
        [](const std::int64_t& n) { return std::to_string(n); },
        [value](const std::string& typed) { return wholeNumber(typed).value_or(value.get()); });
    return field("Value", TextField("Value", text).accessibilityLabel("Value"));
  }
  Binding<std::int64_t> number_;
};

View coordinate(const std::string& name, const Binding<ZQUICPointSize>& point,
                double ZQUICPointSize::*part) {
  return DeferredNumberField(name,
                             point.map<double>([part](const ZQUICPointSize& p) { return p.*part; },
                                               [point, part](const double& number) {
                                                 ZQUICPointSize next = point.get();
                                                 next.*part = number;
                                                 return next;
                                               }));
}

View editorOf(const ZQUICItem& item, const ItemAccess& access) {
  const std::string title = "Change value";
  switch (item.type) {
    case ZQUICRecordType::int_:
      return IntegerField(access(title, &ZQUICItem::intValue));
    case ZQUICRecordType::double_:
      return DeferredNumberField("Value", access(title, &ZQUICItem::doubleValue));
    case ZQUICRecordType::string:
      return field("Value", DeferredTextField("Value", access(title, &ZQUICItem::stringValue)));
    case ZQUICRecordType::bool_:
      return Switch("Value", access(title, &ZQUICItem::boolValue));
    case ZQUICRecordType::pointSize: {
      const auto point = access(title, &ZQUICItem::pointValue);
      return HStack({.spacing = 12}, {coordinate("x", point, &ZQUICPointSize::x),
                                      coordinate("y", point, &ZQUICPointSize::y)});
    }
  }
  return EmptyView();
}

// Without a value the group itself.
View groupForm(const std::shared_ptr<Workbench>& bench, const ZQUICGroup& group) {
  const auto document = bench->document();
  const Binding<std::string> name(
      [document, id = group.id] {
        const GroupPtr now = document->content()->group(id);
        return now ? now->name : std::string();
      },
      [document, id = group.id](const std::string& text) {
        document->edit(
            "Rename group",
            [&](ProjectContent& content) {
              editGroup(content, id, [&](ZQUICGroup& each) { each.name = text; });
            },
            "Rename group " + id);
      });
  const std::size_t count = shownItems(group, "").size();
  return VStack({.alignment = HorizontalAlignment::leading, .spacing = 14},
                {field("Group", DeferredTextField("Group", name).takingFocus(bench->renames.get())),
                 Text(count == 1 ? "1 value" : std::to_string(count) + " values")
                     .foregroundColor(Color::secondary())});
}

View typePicker(const ItemAccess& access) {
  const auto index = access("Change type", &ZQUICItem::type)
                         .map<std::size_t>(
                             [](const ZQUICRecordType& type) {
                               return static_cast<std::size_t>(
                                   std::find(allRecordTypes.begin(), allRecordTypes.end(), type) -
                                   allRecordTypes.begin());
                             },
                             [](const std::size_t& chosen) { return allRecordTypes[chosen]; });
  return Picker({.label = "Type", .choices = typeNames(), .selection = index});
}

View problems(const std::vector<std::string>* sentences) {
  if (sentences == nullptr) return EmptyView();
  std::vector<View> rows;
  for (const std::string& sentence : *sentences) {
    rows.push_back(HStack({.alignment = VerticalAlignment::top, .spacing = 6},
                          {Image::symbol("exclamationmark.triangle"), Text(sentence)}));
  }
  return VStack({.alignment = HorizontalAlignment::leading, .spacing = 6}, std::move(rows))
      .padding(8)
      .flexFrame({.maxWidth = kInfinity, .alignment = Alignment::leading()})
      .background(RoundedRectangle(6).fill(Color::orange().opacity(0.15)));
}

View form(std::vector<View> parts) {
  return ScrollView(
      VStack({.alignment = HorizontalAlignment::leading, .spacing = 20}, std::move(parts))
          .padding(16)
          .flexFrame({.maxWidth = kInfinity, .alignment = Alignment::topLeading()}));
}

View snippets(const std::shared_ptr<Workbench>& bench) {
  const auto copy = [](const std::string& title, std::function<void()> action) {
    return PushButton(title, {.symbol = "doc.on.doc", .action = std::move(action)});
  };
  return VStack(
      {.alignment = HorizontalAlignment::leading, .spacing = 6},
      {heading("Copy for your program"), copy("Property", [bench] { bench->copyExpression(); }),
       copy("Call by key", [bench] { bench->copyCall(); }),
       copy("Environment object", [bench] { bench->copyEnvironmentObject(); })});
}

}  // namespace

View ItemPane::body(Context& context) const {
  const auto document = bench_->document();
  context.observe(bench_);
  context.observe(document);
  context.observe(bench_->insight());
  const auto item = bench_->item();
  const GroupPtr group = bench_->group();
  if (!group) return nothingHere("slider.horizontal.3", "Nothing is selected.");
  const auto findings = bench_->insight()->findings();
  const std::string revision = " " + std::to_string(document->revision()) + " ";
  if (!item) {
    return form(
        {groupForm(bench_, *group).id(group->id + revision), problems(findings->of(group->id))});
  }
  const ItemAccess access{document, group->id, item->id};
  // Another value, and one that was undone, has editors of its own.
  const std::string editors = item->id + revision + std::string(rawValue(item->type));
  const View key = DeferredTextField("Key", access("Rename value", &ZQUICItem::key))
                       .takingFocus(bench_->renames.get());
  const View fields =
      VStack({.alignment = HorizontalAlignment::leading, .spacing = 14},
             {field("Key", key), field("Type", typePicker(access)), editorOf(*item, access)});
  return form({fields.id(editors), problems(findings->of(item->id)), snippets(bench_)});
}

}  // namespace zq::configurator
