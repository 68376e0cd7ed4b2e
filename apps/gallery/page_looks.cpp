// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <apps/gallery/gallery_style.hpp>
#include <apps/gallery/page_looks.hpp>
#include <array>
#include <zqswiftui/controls/picker.hpp>
#include <zqswiftui/controls/switch.hpp>

namespace zq::gallery {
namespace {

constexpr std::array kTextScales{0.8, 1.0, 1.25, 1.5, 2.0};
constexpr std::array kZooms{0.5, 0.75, 1.0, 1.5, 2.0};

template <std::size_t N>
std::vector<std::string> percents(const std::array<double, N>& factors) {
  std::vector<std::string> texts;
  texts.reserve(N);
  for (const double f : factors) texts.push_back(std::to_string(static_cast<int>(100 * f)) + " %");
  return texts;
}

// Its child as it would be on a screen of other pixels: laid out in the room that is there then,
// and drawn larger or smaller. It must be drawn with `scale` of the same factor.
class ZoomLayout : public Layout {
 public:
  explicit ZoomLayout(double factor) : factor_(factor) {}
  Size sizeThatFits(const ProposedSize& proposal, const Subviews& subviews) const override {
    const Size size = subviews.empty() ? Size{} : subviews[0].sizeThatFits(inside(proposal));
    return {size.width * factor_, size.height * factor_};
  }
  void placeSubviews(const Rect& bounds, const ProposedSize& proposal,
                     const Subviews& subviews) const override {
    if (subviews.empty()) return;
    subviews[0].place({bounds.midX(), bounds.midY()}, UnitPoint::center(), inside(proposal));
  }
  bool equals(const Layout& other) const override {
    return factor_ == static_cast<const ZoomLayout&>(other).factor_;
  }

 private:
  ProposedSize inside(const ProposedSize& proposal) const {
    const auto divided = [this](std::optional<double> length) {
      return length ? std::optional(*length / factor_) : length;
    };
    return {divided(proposal.width), divided(proposal.height)};
  }
  double factor_;
};

bool isDark(Context& context) {
  return context.environment<ColorSchemeKey>() == ColorScheme::dark;
}

bool isMirrored(Context& context) {
  return context.environment<LayoutDirectionKey>() == LayoutDirection::rightToLeft;
}

template <class Field>
Binding<bool> switchOf(const Binding<PageLooks>& looks, Field field, bool inForce) {
  return Binding<bool>([looks, field, inForce] { return (looks.get().*field).value_or(inForce); },
                       [looks, field](const bool& on) {
                         PageLooks next = looks.get();
                         next.*field = on;
                         looks.set(next);
                       });
}

Binding<std::size_t> choiceOf(const Binding<PageLooks>& looks, std::size_t PageLooks::*field) {
  return Binding<std::size_t>([looks, field] { return looks.get().*field; },
                              [looks, field](const std::size_t& choice) {
                                PageLooks next = looks.get();
                                next.*field = choice;
                                looks.set(next);
                              });
}

View looksRow(const std::string& name, View control) {
  return HStack({.spacing = 12}, {Text(name), Spacer(), std::move(control)});
}

View looksPanel(const Binding<PageLooks>& looks, Context& context) {
  const auto flip = [&](const std::string& name, std::optional<bool> PageLooks::*field,
                        bool inForce) {
    return looksRow(name, Switch("", switchOf(looks, field, inForce)).accessibilityLabel(name));
  };
  const auto pick = [&](const std::string& name, std::vector<std::string> choices,
                        std::size_t PageLooks::*field) {
    return looksRow(name, Picker({.label = name,
                                  .choices = std::move(choices),
                                  .selection = choiceOf(looks, field)}));
  };
  return VStack({.alignment = HorizontalAlignment::leading, .spacing = 8},
                {flip("Dark", &PageLooks::dark, isDark(context)),
                 flip("Mirrored", &PageLooks::mirrored, isMirrored(context)),
                 flip("Reduced motion", &PageLooks::still, context.environment<ReducedMotionKey>()),
                 pick("Text size of the page", percents(kTextScales), &PageLooks::textScale),
                 pick("Zoom of the page", percents(kZooms), &PageLooks::zoom),
                 PushButton("As the desktop", [looks] { looks.set(PageLooks{}); })})
      .padding(12)
      .frame({.width = 300, .growsWithText = true});
}

}  // namespace

View LooksButton::body(Context& context) const {
  auto open = context.state(false);
  return PushButton("Appearance", [open] { open.set(!*open); })
      .fixedSize()
      .help("Dark, mirrored, text size and zoom")
      .popover(open.binding(), looksPanel(looks, context), HorizontalAlignment::trailing);
}

// Whatever the looks are, the same views stand in the same places: the page keeps its state.
View StagedPage::body(Context& context) const {
  const double zoom = kZooms[std::min(looks.zoom, kZooms.size() - 1)];
  const double texts = kTextScales[std::min(looks.textScale, kTextScales.size() - 1)];
  const View shown = page.environment<TextScaleKey>(texts * context.environment<TextScaleKey>())
                         .environment<ReducedMotionKey>(
                             looks.still.value_or(context.environment<ReducedMotionKey>()));
  return LayoutView(ZoomLayout(zoom), {shown.scale(zoom)});
}

View withWindowLooks(View window, const PageLooks& looks, Context& context) {
  const bool dark = looks.dark.value_or(isDark(context));
  const bool mirrored = looks.mirrored.value_or(isMirrored(context));
  return window.environment<ColorSchemeKey>(dark ? ColorScheme::dark : ColorScheme::light)
      .environment<LayoutDirectionKey>(mirrored ? LayoutDirection::rightToLeft
                                                : LayoutDirection::leftToRight);
}

}  // namespace zq::gallery
