// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <memory>
#include <string>
#include <zqswiftui/platform/qt/desktop_documents.hpp>

namespace zq::gallery {

// Documents to have opened, in a folder of their own, with a list of recently used documents that
// has them: the desktop's own stays free of what is opened here. All gone with it. Interface
// thread only.
class SampleDocuments {
 public:
  SampleDocuments();
  ~SampleDocuments();
  SampleDocuments(const SampleDocuments&) = delete;
  SampleDocuments& operator=(const SampleDocuments&) = delete;

  // The file to give the platform.
  std::string list() const { return folder_ + "/recently-used.xbel"; }
  // Once there is a platform. Panels of recent files are open until the user folds one up.
  void remember() const;

 private:
  std::string folder_;
};

}  // namespace zq::gallery
