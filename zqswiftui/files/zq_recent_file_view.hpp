// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/platform/base/shared.hpp>
#include <zqswiftui/platform/base/url.hpp>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/required.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

namespace detail {
struct RecentFile;
inline constexpr double kRecentFileHeight = 25;  // of a row, in points, at the usual size of texts
}  // namespace detail

// A row of recent files: name, size and date of modification of a file, brighter under the
// pointer; pressed it tells its URL. What nobody has asked of the disk yet is asked in the
// background once the row appears. Interface thread only.
//   ZQRecentFileView({.url = url, .tapped = [](const Url& pressed) { open(pressed); }})
class ZQRecentFileView : public ViewModifiers<ZQRecentFileView> {
 public:
  using Tapped = std::function<void(const Url&)>;
  struct Parameters {
    Required<Url> url;
    Required<Tapped> tapped;  // null: nothing
  };
  explicit ZQRecentFileView(const Parameters& parameters);
  ZQRecentFileView(Shared<const detail::RecentFile> file, Shared<const Tapped> tapped);

  View body(Context& context) const;
  bool operator==(const ZQRecentFileView&) const = default;

 private:
  Shared<const detail::RecentFile> file_;
  Shared<const Tapped> tapped_;
};

}  // namespace zq
