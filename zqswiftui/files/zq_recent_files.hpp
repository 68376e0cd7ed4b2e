// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <vector>
#include <zqswiftui/platform/base/shared.hpp>
#include <zqswiftui/platform/base/url.hpp>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/observable.hpp>
#include <zqswiftui/platform/toolkit/required.hpp>
#include <zqswiftui/platform/toolkit/unpublished.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

namespace detail {
struct RecentFile;
}

// The documents that the desktop remembers as opened by this application and that still exist,
// the newest modification first, ties by path. Gathered once, when it is made, in the background:
// the list is empty until then. A share that does not answer within two seconds is left out. The
// desktop's own list is not changed. Interface thread only.
class ZQRecentFilesVM : public ObservableObject {
 public:
  ZQRecentFilesVM();
  ~ZQRecentFilesVM() override;

  Published<std::vector<Url>> urlList;

 private:
  friend class ZQRecentFilesView;
  using Files = std::vector<Shared<const detail::RecentFile>>;
  // Those of urlList, with what is known of each.
  const Files& files();

  Files files_;
  Shared<const std::vector<Url>> filesOf_;
  Shared<ZQRecentFilesVM*> self_;
};

// A panel of the recent files, folded up or with a field to search them; whether it is open is
// kept in the preference "Recent Files Open". A click on a file, or Return on it, hands it to the
// callback, and without one to the application that the desktop has for it; either way the desktop
// is told that it was opened.
//   ZQRecentFilesView({.filterExtensions = {{"png", "jpg"}},
//                      .callback = [](const Url& url) { open(url); }})
class ZQRecentFilesView : public ViewModifiers<ZQRecentFilesView> {
 public:
  struct Parameters {
    Required<std::vector<std::string>> filterExtensions;  // without dots; empty: every file
    std::function<void(const Url&)> callback = nullptr;
  };
  explicit ZQRecentFilesView(Parameters parameters);

  View body(Context& context) const;

 private:
  Parameters parameters_;
};

}  // namespace zq
