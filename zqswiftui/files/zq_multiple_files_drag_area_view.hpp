// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string>
#include <vector>
#include <zqswiftui/platform/base/url.hpp>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/required.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// A framed area for many files at once. They are read and judged in the background, and gathered:
// a tenth of a second after the last one has arrived all are handed over in one call, on the
// interface thread. So two drops in quick succession are one call. Files that are refused are left
// out; those that are still being gathered when the area goes are dropped with it. No click opens
// anything. Interface thread only.
//   ZQMultipleFilesDragAreaView({.acceptFolders = true, .onDrag = [](const auto& urls) { … }})
class ZQMultipleFilesDragAreaView : public ViewModifiers<ZQMultipleFilesDragAreaView> {
 public:
  struct Parameters {
    // In any case, without dots; none: all.
    std::optional<std::vector<std::string>> acceptedExtensions = std::nullopt;
    double strokeWidth = 0.67;     // of the frame, in points
    Required<bool> acceptFolders;  // also those whose extension is not listed
    std::optional<std::string> promptString = std::nullopt;  // shown with a symbol
    bool alwaysPrompt = false;                               // as a text alone
    Required<std::function<void(const std::vector<Url>&)>> onDrag;
  };
  explicit ZQMultipleFilesDragAreaView(Parameters parameters);

  View body(Context& context) const;

 private:
  Parameters parameters_;
};

}  // namespace zq
