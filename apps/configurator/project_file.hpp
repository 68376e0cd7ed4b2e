// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string>
#include <zqswiftui/platform/base/result.hpp>
#include <zqswiftui/settings/zquic_project.hpp>

namespace zq::configurator {

// What a project is called where only its file is known: the file's name without the extension.
std::string projectName(const Url& file);

// A project's file, and what this program last read from it or wrote to it. What another program
// has written since is never overwritten unasked. Every call waits for the disk, and they must
// come one after another: they run as saves do (Saves::post).
class ProjectFile {
 public:
  explicit ProjectFile(Url url) : url_(std::move(url)) {}

  const Url& url() const { return url_; }
  struct Written {
    bool changedByOthers = false;    // it was left as it is
    std::string sourceFailure = {};  // why the generated source alone is not there
  };

  Result<ZQUICProject> read();
  // What others wrote. It stays theirs until it is taken over.
  struct Found {
    Result<ZQUICProject> project;
    std::size_t text;  // a hash
  };
  // Absent where the file is as this program knows it, or gone. One that cannot be read is others'.
  std::optional<Found> look() const;
  void takeOver(const Found& found) { known_ = found.text; }
  // With the generated Swift source, where the project names a file for it. Overwrites what others
  // wrote only where it is told to.
  Result<Written> write(ZQUICProject project, bool whateverIsThere);

 private:
  bool isOthers(const std::string& text) const;
  Result<ZQUICProject> decoded(const std::string& text) const;

  const Url url_;
  std::optional<std::size_t> known_;  // of the text; none before the first read or write
};

}  // namespace zq::configurator
