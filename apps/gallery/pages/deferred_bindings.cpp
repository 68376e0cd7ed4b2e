// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <zqswiftui/bindings/zq_deferred_binding.hpp>

namespace zq::gallery {
namespace {

// [code]
// A field whose owner hears only the text at which the user came to rest.
struct DeferredField {
  Binding<std::string> owner;
  View body(Context& context) const {
    auto deferred = context.stateOf(
        [&] { return ZQDeferredTextBinding::create(owner); });
    return TextField("Type quickly", context.observe(*deferred).value());
  }
};

struct DeferredCounter {
  Binding<std::int64_t> owner;
  View body(Context& context) const {
    auto deferred = context.stateOf(
        [&] { return ZQDeferredIntBinding::create(owner); });
    const Binding<std::int64_t> count = context.observe(*deferred).value();
    const auto add = [count](int by) {
      return [count, by] { count.set(count.get() + by); };
    };
    return HStack({.spacing = 12},
        {PushButton("−1", add(-1)), PushButton("+1", add(1)),
            Text("control: " + std::to_string(count.get()))});
  }
};

struct DeferredBar {
  Binding<double> owner;
  View body(Context& context) const {
    auto deferred = context.stateOf(
        [&] { return ZQDeferredDoubleBinding::create(owner); });
    const Binding<double> level = context.observe(*deferred).value();
    return GeometryReader([level](Size size) {
      return ProgressView(level.get())
          .frame(size.width, size.height)
          .gesture({.minimumDistance = 0,
              .onChanged = [level, size](const DragValue& drag) {
                level.set(
                    std::clamp(drag.location.x / size.width, 0.0, 1.0));
              }});
    }).frame({.width = 240, .height = 16});
  }
};

struct DeferredBindings {
  View body(Context& context) const {
    auto text = context.state(std::string("hello"));
    auto count = context.state(std::int64_t{5});
    auto level = context.state(0.4);
    const auto pair = [](View control, const std::string& value) {
      return VStack(
          {.alignment = HorizontalAlignment::leading, .spacing = 12},
          {row("Control", std::move(control)),
              row("Owner's value", Text(value))});
    };
    return cards({
        card("ZQDeferredTextBinding: after 0.5 seconds",
            pair(DeferredField{text.binding()}, "“" + *text + "”")),
        card("ZQDeferredIntBinding: after 1 second",
            pair(DeferredCounter{count.binding()}, std::to_string(*count))),
        card("ZQDeferredDoubleBinding: after 0.1 seconds; drag the bar",
            pair(DeferredBar{level.binding()}, std::to_string(*level))),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::deferred_bindings() {
  return page<DeferredBindings>("Values", "Deferred bindings",
      "A control shows every change at once; its owner hears the value "
      "at which it came to "
      "rest.");
}

}  // namespace zq::gallery
