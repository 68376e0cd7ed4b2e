// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QObject>
#include <apps/configurator/workbench.hpp>
#include <memory>
#include <vector>
#include <zqswiftui/platform/qt/host_widget.hpp>

namespace zq::configurator {

// The windows of the program. A window that is to close asks its workbench first, and the next
// start begins with its place and size.
class Windows final : public QObject {
 public:
  Windows();
  ~Windows() override;

  Workbench& open();
  // Asks all to close; those whose project cannot be saved stay.
  void quit();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Window {
    std::unique_ptr<qt::HostWidget> widget;
    std::shared_ptr<Workbench> bench;
  };
  void place(QWidget& widget) const;
  void close(const Workbench* bench);
  void showTitle(const Workbench* bench);

  const std::shared_ptr<Shelf> shelf_ = std::make_shared<Shelf>();
  const std::shared_ptr<OpenDocuments> documents_ = std::make_shared<OpenDocuments>();
  std::vector<Window> windows_;
};

}  // namespace zq::configurator
