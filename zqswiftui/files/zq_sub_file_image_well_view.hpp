// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string>
#include <zqswiftui/platform/base/sub_files.hpp>
#include <zqswiftui/platform/base/url.hpp>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/binding.hpp>
#include <zqswiftui/platform/toolkit/required.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// A well for a picture of a store of files: shows the one of the bound id, and keeps a copy of the
// picture that is dropped or chosen, a png, jpeg or jpg, in the store. That is done in the
// background; then, on the interface thread, the binding is set to the id of the copy, none where
// it could not be kept, and somethingDragged is told what was dropped. Interface thread only.
//   ZQSubFileImageWellView({.subFiles = document->files, .id = note.picture.binding()})
class ZQSubFileImageWellView : public ViewModifiers<ZQSubFileImageWellView> {
 public:
  struct Parameters {
    Required<ZQSubFiles> subFiles;
    Required<Binding<std::optional<std::string>>> id;
    std::function<void(const Url&)> somethingDragged = nullptr;
  };
  explicit ZQSubFileImageWellView(Parameters parameters);

  View body(Context& context) const;

 private:
  Parameters parameters_;
};

}  // namespace zq
