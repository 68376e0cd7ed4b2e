// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <memory>
#include <string>
#include <vector>
#include <zqswiftui/platform/services/recent_documents.hpp>

namespace zq::qt {

// Asks the disk for documents on another background thread, while their list is still being read.
// What may not answer is not asked. Used by one background thread.
class DocumentLookup {
 public:
  struct Found {
    std::string text;  // as it was given
    RecentDocument document;
  };

  DocumentLookup();
  ~DocumentLookup();
  DocumentLookup(const DocumentLookup&) = delete;
  DocumentLookup& operator=(const DocumentLookup&) = delete;

  // What is no address is left out.
  void add(std::string text);
  // All that were added, in no order. Does itself what no other thread has begun.
  std::vector<Found> finish();

 private:
  struct State;
  std::shared_ptr<State> state_;
  std::vector<std::string> group_;  // not full yet
};

}  // namespace zq::qt
