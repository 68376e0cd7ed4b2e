// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <QString>
#include <QStringList>
#include <memory>
#include <string>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/services/recent_documents.hpp>

namespace zq::qt {

// The desktop's list of recently used documents, narrowed to this application: the shared file
// recently-used.xbel in the user's data folder. It is read and written in the background; written
// under the lock file beside it, replaced whole, and never over a change that another program made
// meanwhile. A list that is damaged is kept beside it under another name before it is mended. What
// is no regular file is left alone.
class DesktopDocuments final : public RecentDocuments {
 public:
  // Where the desktop keeps it.
  static std::string desktopList();

  explicit DesktopDocuments(const std::string& file = desktopList());
  ~DesktopDocuments() override;

  void list(std::function<void(std::vector<RecentDocument>)> answer) override;
  void add(std::string url) override;
  // Returns once all that was added is in the list.
  void finish();

 private:
  struct State;
  std::shared_ptr<State> state_;
  SerialQueue writes_{"zqswiftui.recentdocuments"};  // may wait for the lock of another program
};

}  // namespace zq::qt
