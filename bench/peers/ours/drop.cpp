// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/files/zq_multiple_files_drag_area_view.hpp>
#include <zqswiftui/platform/qt/host_widget.hpp>

#include "drop_job.hpp"
#include "media.hpp"

namespace bench {

void drop(const Arguments& arguments) {
  const int n = arguments.n();
  constexpr double kGathered = 100;  // milliseconds for more to come
  bool told = false;
  zq::qt::HostWidget window(zq::ZQMultipleFilesDragAreaView(
      {.acceptedExtensions = {{"jpg", "png"}},
       .acceptFolders = false,
       .onDrag = [&](const std::vector<zq::Url>& files) {
         check(static_cast<int>(files.size()) == DroppedFiles::taken(n), "F1 all in one call");
         check(files.back().name() == std::to_string(n - 1) + ".JPG", "F1 in order");
         told = true;
       }}));
  window.resize(100, 100);
  window.show();
  window.runFrame();
  reportDrop(
      n, window, kGathered, [&] { told = false; }, [&] { return told; });
}

}  // namespace bench
