// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <zqswiftui/platform/base/work.hpp>

namespace zq::gallery {
namespace {

// [code]
struct Draggable : ViewModifiers<Draggable> {
  View body(Context& context) const {
    auto rest = context.state(Size{});
    auto moved = context.state(Size{});
    const Size shown{
        rest->width + moved->width, rest->height + moved->height};
    return RoundedRectangle(12)
        .fill(Color::teal().opacity(0.35))
        .frame({.width = 88, .height = 56, .growsWithText = true})
        .overlay(Text("Drag me"))
        .cursor(Cursor::grab)
        .gesture({.minimumDistance = 2,
            .onChanged =
                [moved](const DragValue& drag) {
                  moved.set(drag.translation());
                },
            .onEnded =
                [rest, moved, shown](const DragValue&) {
                  moved.set({});
                  rest.set(shown);
                },
            .onCancelled = [moved] { moved.set({}); }})
        .offset(shown.width, shown.height);
  }
};

struct Gestures {
  View body(Context& context) const {
    auto taps = context.state(0);
    auto inside = context.state(false);
    auto dropped = context.state(std::string("Drop a file or a text here"));
    auto targeted = context.state(false);
    const auto ground = [](View view, Color color) {
      return view.padding(16).background(RoundedRectangle(8).fill(color));
    };
    const DropTarget target{
        .types = {"public.file-url", "public.utf8-plain-text"},
        .onTargeted = [targeted](bool over) { targeted.set(over); },
        .onDrop =
            [dropped](const DropInfo& info) {
              if (info.items.empty()) return false;
              const auto& item = info.items.front();
              item->load(item->types().front(),
                  [dropped](const std::optional<Bytes>& bytes) {
                    XMain::execute([dropped, bytes] {
                      if (!bytes) return;
                      dropped.set({bytes->begin(), bytes->end()});
                    });
                  });
              return true;
            }};
    return cards({
        card("Drag", Draggable().frame({.width = 352, .height = 160})),
        card("Tap", ground(Text(std::to_string(*taps) + " taps"),
                        Color::blue().opacity(0.2))
                        .onTap([taps] { taps.set(*taps + 1); })),
        card("Hover",
            ground(Text(*inside ? "The pointer is here" : "Come here"),
                Color::green().opacity(*inside ? 0.5 : 0.2))
                .onHover([inside](bool now) { inside.set(now); })),
        card("Drop", ground(Text(*dropped),
                         Color::orange().opacity(*targeted ? 0.5 : 0.2))
                         .onDrop(target)),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::gestures() {
  return page<Gestures>(
      "Toolkit", "Gestures", "Tap, hover, drag and drop.");
}

}  // namespace zq::gallery
