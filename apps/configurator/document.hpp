// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <apps/configurator/project_content.hpp>
#include <apps/configurator/project_file.hpp>
#include <deque>
#include <zqswiftui/platform/base/timer.hpp>
#include <zqswiftui/platform/toolkit/observable.hpp>
#include <zqswiftui/settings/file_follower.hpp>

namespace zq::configurator {

enum class SaveState : unsigned char { saved, waiting, failed, changedByOthers };

// A project that is open: its content, what was done to it, and its file, which is saved a quarter
// of a second after an edit and announced to running applications. Interface thread only.
class Document : public ObservableObject, public std::enable_shared_from_this<Document> {
 public:
  using Opened = std::function<void(const Result<std::shared_ptr<Document>>&)>;
  // They answer later.
  static void open(const Url& file, Opened answer);
  // A project without groups, named after the file, which is written at once.
  static void create(const Url& file, Opened answer);

  ~Document() override;

  Url file() const { return onDisk_->url(); }
  std::shared_ptr<const ProjectContent> content() const { return content_.snapshot(); }
  // Another one where the content changed otherwise than by an edit: editors begin anew.
  unsigned revision() const { return revision_; }

  // The title says what is undone: "Rename group". Edits of one key that follow each other at once
  // are one step. One that changes nothing is none.
  void edit(const std::string& title, const std::function<void(ProjectContent&)>& change,
            const std::string& key = {});
  // What is worth keeping and no step: it is written with the next edit.
  void remember(const std::function<void(ZQUICProject& head)>& change);
  std::optional<std::string> undoTitle() const;
  std::optional<std::string> redoTitle() const;
  void undo();
  void redo();

  SaveState saveState() const { return saveState_.get(); }
  std::string saveFailure() const { return failure_; }
  // Why the generated source was not written with the project; empty where it was.
  std::string sourceFailure() const { return sourceFailure_; }
  // What was edited is not in the file, for the last save failed; also while the next one waits.
  bool cannotSave() const;
  std::size_t broadcasts() const { return broadcasts_.get(); }  // so far
  // Now, whatever waits; answers once it is done.
  void saveNow(std::function<void(SaveState state)> done = nullptr);
  // In that file, whatever is there, where the document is from then on. If that fails, it stays.
  void saveElsewhere(const Url& file, std::function<void(SaveState state)> done);
  // What to do where another program has changed the file.
  void overwriteOthers();
  void takeFromOthers();

 private:
  struct Step {
    std::string title;
    std::string key;
    ProjectContent content;  // before it, or after it where it was undone
  };
  Document(std::shared_ptr<ProjectFile> onDisk, const ZQUICProject& project);
  static void answerWith(const std::shared_ptr<ProjectFile>& onDisk,
                         const Result<ZQUICProject>& project, const Opened& answer);
  void follow();
  void addStep(const std::string& title, const std::string& key);
  void replace(ProjectContent content);
  void step(std::deque<Step>& from, std::deque<Step>& to);
  void scheduleSave();
  void save(bool whateverIsThere);
  void write(const std::shared_ptr<ProjectFile>& onDisk, bool whateverIsThere);
  void saved(const ProjectContent& content, const Result<ProjectFile::Written>& written);
  void foundChanged(const ProjectFile::Found& found);
  void adopt(const Result<ZQUICProject>& project);

  std::shared_ptr<ProjectFile> onDisk_;  // used where saves run
  Published<ProjectContent> content_;
  Published<SaveState> saveState_{this, SaveState::saved};
  Published<std::size_t> broadcasts_{this, 0};
  std::string failure_;
  std::string sourceFailure_;
  unsigned revision_ = 0;
  std::deque<Step> done_;
  std::deque<Step> undone_;
  double lastEdit_ = 0;  // seconds of the clock
  ZQTimer saveTimer_;
  bool saving_ = false;
  std::vector<std::function<void(SaveState)>> whenSaved_;
  std::unique_ptr<FileFollower> follower_;
};

}  // namespace zq::configurator
