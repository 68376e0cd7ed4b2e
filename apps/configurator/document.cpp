// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <apps/configurator/document.hpp>
#include <zqswiftui/platform/base/documents.hpp>
#include <zqswiftui/platform/base/saves.hpp>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/services/clock.hpp>
#include <zqswiftui/platform/services/platform.hpp>

namespace zq::configurator {
namespace {

constexpr double kSaveAfter = 0.25;  // seconds from the first edit that is not saved
constexpr double kOneStep = 2;       // seconds between edits that are undone together
constexpr std::size_t kMostSteps = 500;

bool sameHead(const ZQUICProject& a, const ZQUICProject& b) {
  return a.name == b.name && a.appBundleId == b.appBundleId &&
         a.configSwiftFileUrl == b.configSwiftFileUrl &&
         a.environmentObjectVarName == b.environmentObjectVarName &&
         a.defaultDoubleValue == b.defaultDoubleValue && a.defaultIntValue == b.defaultIntValue &&
         a.defaultBoolValue == b.defaultBoolValue;
}

// Groups that were not touched are the same objects.
bool same(const ProjectContent& a, const ProjectContent& b) {
  return a.groups == b.groups && sameHead(a.head, b.head);
}

// Groups that were edited back to what they were are equal, too.
bool equal(const ProjectContent& a, const ProjectContent& b) {
  return sameHead(a.head, b.head) &&
         std::equal(a.groups.begin(), a.groups.end(), b.groups.begin(), b.groups.end(),
                    [](const GroupPtr& x, const GroupPtr& y) { return x == y || *x == *y; });
}

}  // namespace

Document::Document(std::shared_ptr<ProjectFile> onDisk, const ZQUICProject& project)
    : onDisk_(std::move(onDisk)), content_(this, ProjectContent::of(project)) {}

// A normal end loses nothing. Nobody is left who could be asked about changes by others.
Document::~Document() {
  if (!saveTimer_.isActive()) return;
  Saves::post([content = content_.snapshot(), onDisk = onDisk_] {
    const ZQUICProject project = content->project();
    const auto written = onDisk->write(project, false);
    if (written.ok() && !written.value().changedByOthers) project.broadcast();
  });
}

void Document::answerWith(const std::shared_ptr<ProjectFile>& onDisk,
                          const Result<ZQUICProject>& project, const Opened& answer) {
  XMain::post([onDisk, project, answer] {
    if (!project.ok()) return answer(project.error());
    const std::shared_ptr<Document> document(new Document(onDisk, project.value()));
    document->follow();
    Documents::noteRecent(document->file());
    answer(document);
  });
}

void Document::open(const Url& file, Opened answer) {
  const auto onDisk = std::make_shared<ProjectFile>(file);
  Saves::post([onDisk, answer = std::move(answer)] { answerWith(onDisk, onDisk->read(), answer); });
}

void Document::create(const Url& file, Opened answer) {
  const auto onDisk = std::make_shared<ProjectFile>(file);
  ZQUICProject project;
  project.name = projectName(file);
  Saves::post([onDisk, project, answer = std::move(answer)] {
    const auto written = onDisk->write(project, true);
    answerWith(onDisk, written.ok() ? Result(project) : written.error(), answer);
  });
}

void Document::follow() {
  follower_ =
      std::make_unique<FileFollower>(file(), [weak = weak_from_this()](const FollowedFile&) {
        const auto self = weak.lock();
        if (!self) return;
        Saves::post([weak, onDisk = self->onDisk_] {
          const auto found = onDisk->look();
          if (!found) return;
          XMain::post([weak, onDisk, found = *found] {
            const auto alive = weak.lock();
            if (alive && alive->onDisk_ == onDisk) alive->foundChanged(found);
          });
        });
      });
}

// Where nothing of ours waits, what another program wrote is taken over; else the user is asked.
void Document::foundChanged(const ProjectFile::Found& found) {
  if (saving_ || saveState_.get() != SaveState::saved) {
    failure_.clear();
    return saveState_.set(SaveState::changedByOthers);
  }
  if (found.project.ok()) {
    Saves::post([onDisk = onDisk_, found] { onDisk->takeOver(found); });
  }
  adopt(found.project);
}

// One more step, that can be undone.
void Document::adopt(const Result<ZQUICProject>& project) {
  if (!project.ok()) {
    failure_ = project.error().sentence;
    return saveState_.set(SaveState::changedByOthers);
  }
  failure_.clear();
  addStep("Change by another program", {});
  saveTimer_.stop();
  saveState_.set(SaveState::saved);
  replace(ProjectContent::of(project.value()));
}

// Before the content becomes another.
void Document::addStep(const std::string& title, const std::string& key) {
  done_.push_back({title, key, *content_.snapshot()});
  if (done_.size() > kMostSteps) done_.pop_front();
  undone_.clear();
}

void Document::replace(ProjectContent content) {
  ++revision_;
  content_.set(std::move(content));
}

void Document::edit(const std::string& title, const std::function<void(ProjectContent&)>& change,
                    const std::string& key) {
  const auto before = content_.snapshot();
  ProjectContent after = *before;
  change(after);
  if (same(*before, after)) return;
  const double now = Platform::current().clock().now();
  const bool goesOn = !key.empty() && undone_.empty() && !done_.empty() &&
                      done_.back().key == key && now - lastEdit_ < kOneStep;
  lastEdit_ = now;
  if (!goesOn) {
    addStep(title, key);
  } else if (equal(done_.back().content, after)) {
    done_.pop_back();  // a field undid what was typed in it
  }
  content_.set(std::move(after));
  scheduleSave();
}

void Document::remember(const std::function<void(ZQUICProject&)>& change) {
  ProjectContent content = *content_.snapshot();
  change(content.head);
  content_.set(std::move(content));
}

std::optional<std::string> Document::undoTitle() const {
  return done_.empty() ? std::nullopt : std::optional(done_.back().title);
}

std::optional<std::string> Document::redoTitle() const {
  return undone_.empty() ? std::nullopt : std::optional(undone_.back().title);
}

void Document::step(std::deque<Step>& from, std::deque<Step>& to) {
  if (from.empty()) return;
  Step step = std::move(from.back());
  from.pop_back();
  to.push_back({step.title, {}, *content_.snapshot()});
  replace(std::move(step.content));
  scheduleSave();
}

void Document::undo() {
  step(done_, undone_);
}

void Document::redo() {
  step(undone_, done_);
}

void Document::scheduleSave() {
  // Where it asks whose content holds, or a save runs, the answer goes on.
  if (saveState_.get() == SaveState::changedByOthers) return;
  saveState_.set(SaveState::waiting);
  if (saving_ || saveTimer_.isActive()) return;
  saveTimer_.fireOnce(kSaveAfter, false, [this] { save(false); });
}

void Document::save(bool whateverIsThere) {
  write(onDisk_, whateverIsThere);
}

void Document::write(const std::shared_ptr<ProjectFile>& onDisk, bool whateverIsThere) {
  saveTimer_.stop();
  saving_ = true;
  Saves::post([self = shared_from_this(), content = content_.snapshot(), onDisk, whateverIsThere] {
    const ZQUICProject project = content->project();
    const auto written = onDisk->write(project, whateverIsThere);
    if (written.ok() && !written.value().changedByOthers) project.broadcast();
    XMain::post([self, content, written, onDisk] {
      if (written.ok() && onDisk != self->onDisk_) {
        self->onDisk_ = onDisk;
        self->follow();
        Documents::noteRecent(self->file());
      }
      self->saved(*content, written);
    });
  });
}

void Document::saved(const ProjectContent& content, const Result<ProjectFile::Written>& written) {
  saving_ = false;
  if (!written.ok()) {
    failure_ = written.error().sentence;
    saveState_.set(SaveState::failed);
  } else if (written.value().changedByOthers) {
    failure_.clear();
    saveState_.set(SaveState::changedByOthers);
  } else {
    failure_.clear();
    sourceFailure_ = written.value().sourceFailure;
    broadcasts_.set(broadcasts_.get() + 1);
    const bool all = same(content, *content_.snapshot());
    saveState_.set(all ? SaveState::saved : SaveState::waiting);
    if (!all) return save(false);
  }
  const auto waiting = std::exchange(whenSaved_, {});
  for (const auto& done : waiting) done(saveState_.get());
}

void Document::saveNow(std::function<void(SaveState)> done) {
  if (done) whenSaved_.push_back(std::move(done));
  if (!saving_) save(false);
}

bool Document::cannotSave() const {
  const SaveState now = saveState();
  return !failure_.empty() && (now == SaveState::failed || now == SaveState::waiting);
}

void Document::saveElsewhere(const Url& file, std::function<void(SaveState)> done) {
  if (saving_) {
    return whenSaved_.push_back([weak = weak_from_this(), file, done](SaveState) {
      if (const auto self = weak.lock()) self->saveElsewhere(file, done);
    });
  }
  whenSaved_.push_back(std::move(done));
  write(std::make_shared<ProjectFile>(file), true);
}

void Document::overwriteOthers() {
  saveState_.set(SaveState::waiting);
  if (!saving_) save(true);
}

void Document::takeFromOthers() {
  Saves::post([weak = weak_from_this(), onDisk = onDisk_] {
    const auto project = onDisk->read();
    XMain::post([weak, project] {
      if (const auto self = weak.lock()) self->adopt(project);
    });
  });
}

}  // namespace zq::configurator
