// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string>
#include <vector>
#include <zqswiftui/platform/base/url.hpp>
#include <zqswiftui/platform/toolkit/binding.hpp>
#include <zqswiftui/platform/toolkit/required.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// A label, an area for one file, at least 40 points high, and a button that takes the file away.
// The binding holds the file. See ZQFileDragAreaView. Interface thread only.
//   ZQFileDragAreaWithLabel({.label = "Cover", .url = cover.binding(),
//                            .acceptedExtensions = {"png", "jpg"}})
class ZQFileDragAreaWithLabel : public ViewModifiers<ZQFileDragAreaWithLabel> {
 public:
  struct Parameters {
    Required<std::string> label;
    Required<Binding<std::optional<Url>>> url;
    // In any case, without dots; of none that are given no drop is accepted, only what is chosen.
    std::vector<std::string> acceptedExtensions = {};
    std::optional<std::string> promptString = std::nullopt;
    bool canDelete = true;
  };
  explicit ZQFileDragAreaWithLabel(Parameters parameters);

  View body(Context& context) const;

 private:
  Parameters parameters_;
};

}  // namespace zq
