// ZQSwiftUI, MIT licence; see LICENSE.
#include <QUrl>
#include <zqswiftui/files/zq_recent_files.hpp>
#include <zqswiftui/platform/base/prefs.hpp>
#include <zqswiftui/platform/qt/host_widget.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>

#include "media.hpp"
#include "recent_job.hpp"

namespace bench {

void recent(const Arguments& arguments) {
  zq::prefs_setValueBool("Recent Files Open", true);
  constexpr int kAboveRows = 52;
  reportRecent(arguments.n(), [] {
    const zq::View panel = zq::ZQRecentFilesView({.filterExtensions = {{}}});
    auto window = std::make_unique<zq::qt::HostWidget>(zq::VStack({panel, zq::Spacer()}));
    window->resize(kPanelWidth, kPanelHeight);
    window->show();
    QWidget* list = window.get();
    return Panel{std::move(window), list, {0, kAboveRows, kPanelWidth, 240}};
  });
}

}  // namespace bench
