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

// An area for one file with the name of the one that the host gives in its middle. See
// ZQFileDragAreaView. Interface thread only.
//   ZQFileDragAreaWithNameView({.url = *script, .onDrag = [=](const Url& url) { script.set(url);
//   }})
class ZQFileDragAreaWithNameView : public ViewModifiers<ZQFileDragAreaWithNameView> {
 public:
  struct Parameters {
    std::optional<Url> url = std::nullopt;
    // In any case, without dots; none: all.
    std::optional<std::vector<std::string>> acceptedExtensions = std::nullopt;
    std::optional<std::string> promptString = std::nullopt;
    double strokeWidth = 0.67;  // of the frame, in points
    Required<std::function<void(const Url&)>> onDrag;
  };
  explicit ZQFileDragAreaWithNameView(Parameters parameters);

  View body(Context& context) const;

 private:
  Parameters parameters_;
};

}  // namespace zq
