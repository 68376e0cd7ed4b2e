// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <zqswiftui/files/zq_folder_drag_area_view.hpp>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/required.hpp>

namespace zq {

// An area for one application bundle, a folder whose extension is app, with the name of the one
// that the host gives. See ZQFolderDragAreaView. Interface thread only.
//   ZQAppDragAreaWithNameView({.url = *tool, .onDrag = [tool](const Url& url) { tool.set(url); }})
class ZQAppDragAreaWithNameView : public ViewModifiers<ZQAppDragAreaWithNameView> {
 public:
  struct Parameters {
    std::optional<Url> url = std::nullopt;
    double strokeWidth = 0.67;  // of the frame, in points
    Required<std::function<void(const Url&)>> onDrag;
  };
  explicit ZQAppDragAreaWithNameView(Parameters parameters);

  View body(Context& context) const;

 private:
  Parameters parameters_;
};

}  // namespace zq
