// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string>
#include <zqswiftui/platform/services/drag_data.hpp>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/required.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// A framed area to drop a text on. The first one that was dropped is handed over on the interface
// thread in UTF-8, an empty one where there was none. Interface thread only.
//   ZQTextDragAreaView({.promptString = "Drop a text", .onDrag = [](const std::string& text) { …
//   }})
class ZQTextDragAreaView : public ViewModifiers<ZQTextDragAreaView> {
 public:
  static constexpr std::string_view pasteboardTextType = dragTypeText;

  struct Parameters {
    std::optional<std::string> promptString = std::nullopt;  // shown with a symbol
    bool alwaysPrompt = false;                               // as a text alone
    double strokeWidth = 0.67;                               // of the frame, in points
    Required<std::function<void(const std::string&)>> onDrag;
  };
  explicit ZQTextDragAreaView(Parameters parameters);

  View body(Context& context) const;

 private:
  Parameters parameters_;
};

}  // namespace zq
