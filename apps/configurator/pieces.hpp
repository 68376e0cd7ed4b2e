// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <vector>
#include <zqswiftui/zqswiftui.hpp>

// What the panes of the window share.
namespace zq::configurator {

inline constexpr FlexFrame kFill{
    .maxWidth = kInfinity, .maxHeight = kInfinity, .alignment = Alignment::topLeading()};
inline constexpr double kRowHeight = 28;

// The kinds of values as people call them, in the order of allRecordTypes.
const std::vector<std::string>& typeNames();

View hairline(bool vertical);
// A heading over a part of a pane.
View heading(const std::string& text);
// A caption and, below it, what is edited.
View field(const std::string& caption, View editor);
View numberWithCaption(const std::string& name, const Binding<double>& number, NumberRange range);
// In the middle of a pane that has nothing to show.
View nothingHere(const std::string& symbol, const std::string& sentence);

// A small button of a symbol, with a help text that is its name.
View toolButton(const std::string& symbol, const std::string& name, std::function<void()> action,
                bool enabled = true);

// A field over a list that narrows it; the cross empties it.
struct SearchField : ViewModifiers<SearchField> {
  SearchField(std::string name, Binding<std::string> text)
      : name_(std::move(name)), text_(std::move(text)) {}
  View body(Context& context) const;

 private:
  std::string name_;
  Binding<std::string> text_;
};

// A text field whose owner hears at rest.
struct DeferredTextField : ViewModifiers<DeferredTextField> {
  DeferredTextField(std::string name, Binding<std::string> text)
      : name_(std::move(name)), text_(std::move(text)) {}
  View body(Context& context) const;

 private:
  std::string name_;
  Binding<std::string> text_;
};

// A number field whose owner hears at rest, and its caption, which is dragged.
struct DeferredNumberField : ViewModifiers<DeferredNumberField> {
  DeferredNumberField(std::string name, Binding<double> number)
      : name_(std::move(name)), number_(std::move(number)) {}
  View body(Context& context) const;

 private:
  std::string name_;
  Binding<double> number_;
};

}  // namespace zq::configurator
