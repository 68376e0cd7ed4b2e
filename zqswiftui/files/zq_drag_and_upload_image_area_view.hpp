// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string>
#include <vector>
#include <zqswiftui/files/drop_acceptance.hpp>
#include <zqswiftui/platform/base/url.hpp>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/required.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// An area for one picture, above the picture of an address: the host is handed the file that was
// dropped or chosen, brings it where it belongs, and gives the address that it then has. See
// ZQFileDragAreaView and ZQURLImageView. Interface thread only.
//   ZQDragAndUploadImageAreaView({.remoteUrl = profile.picture, .callback = upload})
class ZQDragAndUploadImageAreaView : public ViewModifiers<ZQDragAndUploadImageAreaView> {
 public:
  struct Parameters {
    std::optional<std::string> remoteUrl = std::nullopt;
    std::vector<std::string> acceptedExtension = pictureExtensions();  // jpg, jpeg and png
    Required<std::function<void(const Url&)>> callback;
  };
  explicit ZQDragAndUploadImageAreaView(Parameters parameters);

  View body(Context& context) const;

 private:
  Parameters parameters_;
};

}  // namespace zq
