// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <apps/gallery/gallery_style.hpp>
#include <cmath>
#include <zqswiftui/controls/list_line.hpp>
#include <zqswiftui/layout/flow_layout.hpp>

namespace zq::gallery {
namespace {

// Those of PushButton, beside which toggles stand.
constexpr double kToggleHeight = 28;
constexpr double kToggleRadius = 6;

View framedPanel(View content, double radius) {
  return content.background(RoundedRectangle(radius).fill(Color::background()))
      .overlay(RoundedRectangle(radius).stroke(Color::separator()));
}

View panel(const std::string& caption, View view) {
  return framedPanel(
      VStack(
          {.alignment = HorizontalAlignment::leading, .spacing = 12},
          {view, Spacer(), Text(caption).font(Font::caption()).foregroundColor(Color::secondary())})
          .padding(12)
          .flexFrame({.maxWidth = kInfinity, .alignment = Alignment::topLeading()}),
      8);
}

// Two views in halves of the width, one below the other where one of them takes more than its half.
class HalvesLayout : public Layout {
 public:
  Size sizeThatFits(const ProposedSize& proposal, const Subviews& subviews) const override {
    const double width = widthFor(proposal, subviews);
    const bool beside = besideEachOther(width, subviews);
    double height = 0;
    for (std::size_t i = 0; i < subviews.size(); ++i) {
      const double one = subviews[i].sizeThatFits({beside ? half(width) : width, {}}).height;
      height = beside ? std::max(height, one) : height + one + (i > 0 ? kBetween : 0);
    }
    return {width, height};
  }
  void placeSubviews(const Rect& bounds, const ProposedSize&,
                     const Subviews& subviews) const override {
    const bool beside = besideEachOther(bounds.width, subviews);
    Point at = bounds.origin();
    for (std::size_t i = 0; i < subviews.size(); ++i) {
      ProposedSize offer{bounds.width, std::nullopt};
      if (beside) offer = {half(bounds.width), bounds.height};
      subviews[i].place(at, UnitPoint::topLeading(), offer);
      if (beside) {
        at.x += half(bounds.width) + kBetween;
      } else {
        at.y += subviews[i].sizeThatFits(offer).height + kBetween;
      }
    }
  }
  bool equals(const Layout&) const override { return true; }

 private:
  static constexpr double kBetween = 12;
  static double half(double width) { return std::max(0.0, (width - kBetween) / 2); }
  static double widthFor(const ProposedSize& proposal, const Subviews& subviews) {
    if (proposal.width && std::isfinite(*proposal.width)) return *proposal.width;
    double widest = 0;
    for (const Size& size : subviews.idealSizes()) widest = std::max(widest, size.width);
    return 2 * widest + kBetween;
  }
  static bool besideEachOther(double width, const Subviews& subviews) {
    for (std::size_t i = 0; i < subviews.size(); ++i) {
      if (subviews[i].sizeThatFits({half(width), {}}).width > half(width) + 0.5) return false;
    }
    return true;
  }
};

View halves(View first, View second) {
  return LayoutView(HalvesLayout(), {std::move(first), std::move(second)});
}

}  // namespace

View card(const std::string& title, View content) {
  return VStack({.alignment = HorizontalAlignment::leading, .spacing = 12},
                {Text(title).font(Font::headline()), std::move(content)})
      .padding(16)
      .flexFrame({.maxWidth = kInfinity, .alignment = Alignment::topLeading()})
      .background(RoundedRectangle(12).fill(Color::primary().opacity(0.04)))
      .overlay(RoundedRectangle(12).stroke(Color::separator().opacity(0.6)));
}

View cards(std::vector<View> all) {
  return VStack({.alignment = HorizontalAlignment::leading, .spacing = 16}, std::move(all));
}

View sample(const std::string& caption, View view) {
  return VStack(
      {.alignment = HorizontalAlignment::leading, .spacing = 8},
      {std::move(view), Text(caption).font(Font::caption()).foregroundColor(Color::secondary())});
}

View samples(std::vector<View> all) {
  return LayoutView(NewFlowLayout({.alignment = Alignment::bottomLeading(), .spacing = 16}),
                    std::move(all));
}

View note(const std::string& text) {
  return Text(text).font(Font::callout()).foregroundColor(Color::secondary());
}

View row(const std::string& name, View value) {
  return HStack(
      {.spacing = 12},
      {Text(name)
           .foregroundColor(Color::secondary())
           .frame({.width = 130, .alignment = Alignment::leading(), .growsWithText = true}),
       std::move(value)});
}

View lightAndDark(View view) {
  return halves(panel("Light", view).environment<ColorSchemeKey>(ColorScheme::light),
                panel("Dark", view).environment<ColorSchemeKey>(ColorScheme::dark));
}

View bothDirections(View view) {
  return halves(
      panel("Left to right", view).environment<LayoutDirectionKey>(LayoutDirection::leftToRight),
      panel("Right to left", view).environment<LayoutDirectionKey>(LayoutDirection::rightToLeft));
}

View onDark(View view) {
  return framedPanel(view.padding(12), 8).environment<ColorSchemeKey>(ColorScheme::dark);
}

View Toggle::body(Context& context) const {
  auto hovered = context.state(false);
  const bool on = isOn.get();
  const double level = *hovered ? 0.14 : 0.07;
  const Color ground = on ? prominentGround(*hovered) : Color::primary().opacity(level);
  return HStack({.spacing = 6}, {Image::symbol(symbol).font(Font::caption()),
                                 Text(title).font(Font::callout()).lineLimit(1)})
      .foregroundColor(on ? Color::white() : Color::primary())
      .padding(EdgeInsets::symmetric(12, 0))
      .frame({.height = kToggleHeight, .growsWithText = true})
      .background(RoundedRectangle(kToggleRadius).fill(ground))
      .onHover([hovered](bool inside) { hovered.set(inside); })
      .onTap([binding = isOn] { binding.set(!binding.get()); })
      .accessibility({.role = Role::toggle, .label = title, .checked = on});
}

}  // namespace zq::gallery
