// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// A text, UTF-8. It takes the room of its lines, wraps where less is offered, and ends with an
// ellipsis where even that does not fit. Font, colour and alignment come from the environment
// unless they are set here.
//   Text("Hello").font(Font::caption()).foregroundColor(Color::secondary())
class Text : public ViewModifiers<Text> {
 public:
  explicit Text(std::string text);

  Text font(Font font) const;
  Text foregroundColor(std::optional<Color> color) const;  // none: as it was
  Text multilineTextAlignment(TextAlignment alignment) const;
  Text lineLimit(int lines) const;     // 0: any number
  Text truncationInTheMiddle() const;  // of a single line: keeps the ends of a file's name
  operator View() const;               // NOLINT(google-explicit-constructor)

  bool operator==(const Text&) const = default;

 private:
  friend class TextNode;
  std::string text_;
  // What is not its own is that of the environment.
  Font font_;
  std::optional<Color> color_;
  int lineLimit_ = 0;
  TextAlignment alignment_ = TextAlignment::leading;
  bool ownFont_ = false;
  bool ownLineLimit_ = false;
  bool ownAlignment_ = false;
  bool middle_ = false;
};

}  // namespace zq
