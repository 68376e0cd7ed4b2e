// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <apps/configurator/recent_projects.hpp>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>
#include <zqswiftui/platform/base/url.hpp>
#include <zqswiftui/platform/toolkit/color.hpp>
#include <zqswiftui/platform/toolkit/observable.hpp>

namespace zq::configurator {

// A project that the user works with. Its marks are the user's own: they stand in the preferences,
// not in its file.
struct ShelfEntry {
  Url file;
  std::string name;
  bool favorite = false;
  bool hidden = false;
  std::size_t color = 0;  // an index into shelfColors()
  bool operator==(const ShelfEntry&) const = default;
};

struct ShelfColor {
  std::string name;
  Color color;
};
const std::vector<ShelfColor>& shelfColors();  // the first is gray

// The projects of the sidebar, the same in all windows and kept between runs. Interface thread
// only.
class Shelf : public ObservableObject {
 public:
  Shelf();

  std::vector<ShelfEntry> entries() const { return entries_.get(); }
  // Favourites first, otherwise in the user's order; hidden ones where they are asked for.
  std::vector<ShelfEntry> shown(std::string_view query, bool withHidden) const;
  bool hasHidden() const;
  // The name that it has or had there, else that of its file.
  std::string nameOf(const Url& file) const;
  const std::shared_ptr<RecentProjects>& recent() const { return recent_; }

  // Puts a project that was opened there, or gives it its name of now.
  void note(const Url& file, const std::string& name);
  void edit(const Url& file, const std::function<void(ShelfEntry&)>& change);
  void remove(const Url& file);
  // Before that one, or to the end.
  void move(const Url& file, const std::optional<Url>& before);

 private:
  void set(std::vector<ShelfEntry> entries);

  Published<std::vector<ShelfEntry>> entries_{this};
  const std::shared_ptr<RecentProjects> recent_ = std::make_shared<RecentProjects>();
};

}  // namespace zq::configurator
