// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <apps/configurator/document.hpp>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace zq::configurator {

// The projects that are open in any window: one document a file, by whatever links it is reached.
// It keeps the path by which it was opened first. Interface thread only.
class OpenDocuments : public std::enable_shared_from_this<OpenDocuments> {
 public:
  void open(const Url& file, const Document::Opened& answer);
  // An error where that file is open: its windows would lose what they show.
  void create(const Url& file, const Document::Opened& answer);
  // The document goes to that file, which must not be open as another one.
  void saveElsewhere(const std::shared_ptr<Document>& document, const Url& file,
                     std::function<void(const Result<void>& saved)> answer);

 private:
  // A file by its path without links.
  struct Open {
    std::string path;
    std::weak_ptr<Document> document;
  };
  struct Opening {
    std::string path;
    std::vector<Document::Opened> answers;
  };
  // Asks the disk, in the order of the calls, and goes on later.
  void resolve(const Url& file, std::function<void(const std::string& path)> goOn);
  std::shared_ptr<Document> find(const std::string& path) const;
  Opening* opening(const std::string& path);
  Document::Opened keep(const std::string& path, const Document::Opened& answer);

  std::vector<Open> documents_;
  std::vector<Opening> opening_;
};

}  // namespace zq::configurator
