// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/files/zq_file_drag_area_view.hpp>
#include <zqswiftui/files/zq_sub_file_image_well_view.hpp>
#include <zqswiftui/images/zq_sub_file_cached_image.hpp>
#include <zqswiftui/platform/base/task.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>

namespace zq {
namespace {

constexpr double kWellRadius = 4;
constexpr double kPicturePadding = 4;

Task<void> keep(ZQSubFiles store, Url file, Binding<std::optional<std::string>> id,
                std::function<void(const Url&)> somethingDragged) {
  const std::optional<std::string> kept = co_await store.add(file);
  co_await onMain();
  id.set(kept);
  if (somethingDragged) somethingDragged(file);
}

}  // namespace

ZQSubFileImageWellView::ZQSubFileImageWellView(Parameters parameters)
    : parameters_(std::move(parameters)) {}

View ZQSubFileImageWellView::body(Context&) const {
  const Parameters& p = parameters_;
  const std::optional<std::string> id = p.id->get();
  View picture;
  if (id) {
    picture = ZQSubFileCachedImageView({.id = id,
                                        .subFiles = p.subFiles,
                                        .cornerRadius = kWellRadius,
                                        .aspectRatio = ContentMode::fit})
                  .padding(kPicturePadding);
  }
  const auto dropped = [p](const Url& file) {
    detach(keep(p.subFiles, file, p.id, p.somethingDragged));
  };
  return ZStack({picture, ZQFileDragAreaView({.acceptedExtensions = {{"png", "jpeg", "jpg"}},
                                              .onlyFirst = true,
                                              .promptString = id ? "" : "Drag Image Here",
                                              .displayFileName = false,
                                              .onDrag = dropped})});
}

}  // namespace zq
