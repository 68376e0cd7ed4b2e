// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/configurator/pieces.hpp>

namespace zq::configurator {

const std::vector<std::string>& typeNames() {
  static const std::vector<std::string> names{"Integer", "Number", "Text", "Flag", "Point or size"};
  return names;
}

View hairline(bool vertical) {
  return Rectangle()
      .fill(Color::separator())
      .frame(vertical ? Frame{.width = 1} : Frame{.height = 1});
}

View heading(const std::string& text) {
  return Text(text).font(Font::headline()).lineLimit(1);
}

View field(const std::string& caption, View editor) {
  return VStack(
      {.alignment = HorizontalAlignment::leading, .spacing = 4},
      {Text(caption).font(Font::caption()).foregroundColor(Color::secondary()), std::move(editor)});
}

View nothingHere(const std::string& symbol, const std::string& sentence) {
  return VStack({.spacing = 8}, {Image::symbol(symbol).font(Font::title()),
                                 Text(sentence).multilineTextAlignment(TextAlignment::center)})
      .foregroundColor(Color::secondary())
      .padding(16)
      .flexFrame({.maxWidth = kInfinity, .maxHeight = kInfinity});
}

View toolButton(const std::string& symbol, const std::string& name, std::function<void()> action,
                bool enabled) {
  return Button(std::move(action), Image::symbol(symbol).frame(24, 24))
      .accessibilityLabel(name)
      .help(name)
      .disabled(!enabled)
      .opacity(enabled ? 1 : 0.35);
}

View numberWithCaption(const std::string& name, const Binding<double>& number, NumberRange range) {
  const View caption = View(NumberLabel(name, {.value = number, .range = range}))
                           .font(Font::caption())
                           .foregroundColor(Color::secondary());
  return VStack({.alignment = HorizontalAlignment::leading, .spacing = 4},
                {caption, NumberField({.label = name, .value = number, .range = range})});
}

View SearchField::body(Context&) const {
  const Binding<std::string> text = text_;
  std::vector<View> parts{Image::symbol("magnifyingglass").foregroundColor(Color::secondary()),
                          TextField(name_, text).accessibilityLabel(name_)};
  if (!text.get().empty()) {
    parts.push_back(toolButton("xmark.circle.fill", "Empty the search", [text] { text.set(""); }));
  }
  return HStack({.spacing = 6}, std::move(parts));
}

View DeferredTextField::body(Context& context) const {
  const auto deferred = context.stateOf([&] { return ZQDeferredTextBinding::create(text_); });
  context.observe(*deferred);
  return TextField(name_, (*deferred)->value()).accessibilityLabel(name_);
}

View DeferredNumberField::body(Context& context) const {
  const auto deferred = context.stateOf([&] { return ZQDeferredDoubleBinding::create(number_); });
  context.observe(*deferred);
  return numberWithCaption(name_, (*deferred)->value(), {.decimals = 12});
}

}  // namespace zq::configurator
