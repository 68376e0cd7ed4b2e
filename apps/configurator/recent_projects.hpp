// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <functional>
#include <string>
#include <vector>
#include <zqswiftui/platform/base/url.hpp>
#include <zqswiftui/platform/toolkit/observable.hpp>

namespace zq::configurator {

// The projects that this program last opened or made, the newest first, the same in all windows and
// kept between runs. The desktop's own list is told too, but cannot be emptied. Interface thread
// only.
class RecentProjects : public ObservableObject {
 public:
  static constexpr std::size_t most = 10;
  RecentProjects();

  std::vector<Url> files() const { return files_.get(); }
  void note(const Url& file);  // to the front
  void remove(const Url& file);
  void clear() { set({}); }

 private:
  void set(std::vector<Url> files);

  Published<std::vector<Url>> files_{this};
};

// How each is called in a menu: by its name; where two have the same, with the folder behind it;
// and where that is one too, with the whole path.
std::vector<std::string> recentTitles(const std::vector<Url>& files,
                                      const std::function<std::string(const Url& file)>& nameOf);

}  // namespace zq::configurator
