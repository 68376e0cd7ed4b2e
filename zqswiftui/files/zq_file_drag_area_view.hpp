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

// A framed area to drop files on, or to click, or to press with Space or Enter, for the platform's
// file dialog. It keeps nothing: the host hears of each file, and gives the one that is to be shown
// as `url`. What is dropped is read and judged in the background; callbacks come on the interface
// thread, in the order of the files, even where the area is gone by then. A file that was chosen is
// not judged again. The area takes all the room that is offered, and does not light up under a
// drag. Interface thread only.
//   ZQFileDragAreaView({.url = *file, .acceptedExtensions = {{"png", "jpg"}},
//                       .promptString = "Drop a picture",
//                       .onDrag = [file](const Url& url) { file.set(url); }})
class ZQFileDragAreaView : public ViewModifiers<ZQFileDragAreaView> {
 public:
  using Extensions = std::optional<std::vector<std::string>>;
  using Callback = std::function<void(const Url&)>;

  struct Parameters {
    std::optional<Url> url = std::nullopt;         // what the area holds
    Extensions acceptedExtensions = std::nullopt;  // in any case, without dots; none: all
    bool onlyFirst = false;                        // of several that are dropped at once
    // Shown with a symbol until something was accepted, or always and without one.
    std::optional<std::string> promptString = std::nullopt;
    bool alwaysPrompt = false;
    double strokeWidth = 0.67;  // of the frame, in points
    bool displayFileName = true;
    bool acceptFolders = false;                     // also those whose extension is not listed
    bool tapToShowOpenDialog = true;                // not heeded: a click always opens the dialog
    std::function<void()> onDragEntered = nullptr;  // never called
    Callback onDragUnsupported = nullptr;           // each file that was refused
    Required<Callback> onDrag;                      // each file that was accepted or chosen
  };
  explicit ZQFileDragAreaView(Parameters parameters);

  View body(Context& context) const;

 private:
  Parameters parameters_;
};

}  // namespace zq
