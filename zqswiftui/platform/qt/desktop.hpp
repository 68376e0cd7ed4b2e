// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <zqswiftui/platform/services/appearance.hpp>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/services/workspace.hpp>

class QPalette;

namespace zq::qt {

class Workspace final : public zq::Workspace {
 public:
  void open(const std::string& url) override;
};

// What the application's palette, direction and style say, unless the host says otherwise.
// Listeners also hear of another font.
class Appearance final : public zq::Appearance {
 public:
  Appearance();
  ~Appearance() override;

  AppearanceValues values() const override { return values_; }
  unsigned long addListener(std::function<void()> listener) override;
  void removeListener(unsigned long id) override { listeners_.erase(id); }

  // Instead of the desktop's; absent follows the desktop again.
  void setColorScheme(std::optional<ColorScheme> scheme);
  void setLayoutDirection(std::optional<LayoutDirection> direction);
  void setReducedMotion(std::optional<bool> reduced);
  void setTextScale(double scale);  // on top of what the application's font says; 1 at first

 private:
  class Watcher;
  void refresh();
  void tell();

  std::optional<ColorScheme> scheme_;
  std::optional<LayoutDirection> direction_;
  std::optional<bool> reducedMotion_;
  double textScale_ = 1;
  AppearanceValues values_;
  std::map<unsigned long, std::function<void()>> listeners_;
  unsigned long lastId_ = 0;
  std::unique_ptr<Watcher> watcher_;
};

// Whether texts of the palette are lighter than its windows.
ColorScheme schemeOf(const QPalette& palette);

}  // namespace zq::qt
