// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <apps/configurator/workbench.hpp>
#include <zqswiftui/platform/base/files.hpp>
#include <zqswiftui/platform/base/pressure_task.hpp>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/base/zq_file_dialogs.hpp>

namespace zq::configurator {
namespace {

const std::vector<std::string> kExtensions{std::string(ZQUICProject::configuratorFileExtension)};

Url withExtension(const Url& file) {
  return file.isA(kExtensions) ? file : Url::file(file.path() + "." + kExtensions.front());
}

// What is selected once one of them has gone: the next, or the last.
std::optional<std::string> neighbour(const std::vector<std::string>& ids, const std::string& id) {
  const auto found = std::find(ids.begin(), ids.end(), id);
  if (found == ids.end() || ids.size() < 2) return std::nullopt;
  return std::next(found) == ids.end() ? *std::prev(found) : *std::next(found);
}

}  // namespace

Workbench::Workbench(std::shared_ptr<Shelf> shelf, std::shared_ptr<OpenDocuments> documents,
                     WindowActions actions)
    : shelf_(std::move(shelf)), documents_(std::move(documents)), actions_(std::move(actions)) {}

Workbench::~Workbench() = default;

void Workbench::show(std::string sentence) {
  failure = std::move(sentence);
  sheet.set(Sheet::failure);
}

void Workbench::openProject(const Url& file) {
  documents_->open(file, [weak = weak_from_this()](const auto& opened) {
    if (const auto self = weak.lock()) self->take(opened);
  });
}

void Workbench::openRecent(const Url& file) {
  documents_->open(file, [weak = weak_from_this(), file](const auto& opened) {
    const auto self = weak.lock();
    if (!self || opened.ok()) return self ? self->take(opened) : void();
    Queue::execute(false, [weak, file, opened] {
      const bool gone = !fu_fileExists(file);
      XMain::post([weak, file, opened, gone] {
        const auto alive = weak.lock();
        if (!alive || !gone) return alive ? alive->take(opened) : void();
        alive->shelf_->recent()->remove(file);
        alive->show("“" + alive->shelf_->nameOf(file) + "” is no longer at " + file.path() +
                    ", and has left the list of recent projects.");
      });
    });
  });
}

void Workbench::chooseProject() {
  ZQFileDialogs::open("Open project", "", kExtensions, std::nullopt,
                      [weak = weak_from_this()](const Url& file) {
                        if (const auto self = weak.lock()) self->openProject(file);
                      });
}

void Workbench::newProject() {
  ZQFileDialogs::save("New project", "", kExtensions, std::nullopt,
                      [weak = weak_from_this()](const Url& file) {
                        const auto self = weak.lock();
                        if (!self) return;
                        self->documents_->create(withExtension(file), [weak](const auto& opened) {
                          if (const auto alive = weak.lock()) alive->take(opened);
                        });
                      });
}

void Workbench::saveElsewhere() {
  ZQPressureTask::flushAll();
  sheet.set(Sheet::none);
  ZQFileDialogs::save("Save the project elsewhere", "", kExtensions, std::nullopt,
                      [weak = weak_from_this(), open = document()](const Url& file) {
                        const auto self = weak.lock();
                        if (!self) return;
                        self->documents_->saveElsewhere(
                            open, withExtension(file), [weak](const auto& saved) {
                              const auto alive = weak.lock();
                              if (alive && saved.ok()) alive->noteOpen();
                              if (alive && !saved.ok())
                                alive->show("Not saved there: " + saved.error().sentence);
                            });
                      });
}

void Workbench::noteOpen() {
  const auto open = document();
  shelf_->note(open->file(), open->content()->head.name);
  shelf_->recent()->note(open->file());
}

void Workbench::take(const Result<std::shared_ptr<Document>>& opened) {
  if (!opened.ok()) return show(opened.error().sentence);
  // What a field of the last project still holds back is that project's, and must be safe before
  // the window shows another.
  ZQPressureTask::flushAll();
  const auto last = document();
  if (!last || last == opened.value() || last->saveState() == SaveState::saved) {
    return present(opened.value());
  }
  last->saveNow([weak = weak_from_this(), last, next = opened.value()](SaveState state) {
    const auto self = weak.lock();
    if (!self) return;
    if (state == SaveState::saved) return self->present(next);
    if (state == SaveState::changedByOthers) return self->sheet.set(Sheet::changedByOthers);
    self->show("What is open could not be saved before: " + last->saveFailure());
  });
}

void Workbench::present(const std::shared_ptr<Document>& document) {
  insight_ = Insight::of(document);
  changes_ = document->didChange.connect([weak = weak_from_this()] {
    if (const auto self = weak.lock()) self->documentChanged();
  });
  document_.set(document);
  noteOpen();
  query.set("");
  const auto content = document->content();
  const auto groups = shownGroups(*content, "");
  const auto& last = content->head.selectedGroupId;
  const bool known = last && content->group(*last);
  selectGroup(known ? last : groups.empty() ? std::nullopt : std::optional(groups.front()->id));
  documentChanged();
}

void Workbench::documentChanged() {
  const auto open = document();
  // One that the user has taken off the shelf stays off.
  shelf_->edit(open->file(), [&](ShelfEntry& entry) { entry.name = open->content()->head.name; });
  if (titleChanged) titleChanged();
  if (open->saveState() == SaveState::changedByOthers) {
    sheet.set(Sheet::changedByOthers);
  } else if (sheet.get() == Sheet::changedByOthers) {
    sheet.set(Sheet::none);
  }
}

void Workbench::close() {
  ZQPressureTask::flushAll();
  const auto open = document();
  if (!open || open->saveState() == SaveState::saved) return actions_.closeWindow();
  open->saveNow([weak = weak_from_this()](SaveState state) {
    const auto self = weak.lock();
    if (!self) return;
    if (state == SaveState::saved) return self->actions_.closeWindow();
    self->sheet.set(state == SaveState::changedByOthers ? Sheet::changedByOthers : Sheet::notSaved);
  });
}

GroupPtr Workbench::group() const {
  const auto open = document();
  const auto id = groupId.get();
  const GroupPtr found = open && id ? open->content()->group(*id) : nullptr;
  return found && !found->shouldBeDeleted ? found : nullptr;
}

std::optional<ZQUICItem> Workbench::item() const {
  const auto open = document();
  const auto inGroup = groupId.get();
  const auto id = itemId.get();
  if (!open || !inGroup || !id) return std::nullopt;
  return itemOf(*open->content(), *inGroup, *id);
}

void Workbench::selectGroup(const std::optional<std::string>& id) {
  groupId.set(id);
  itemId.set(std::nullopt);
  const auto open = document();
  if (open && open->content()->head.selectedGroupId != id) {
    open->remember([&](ZQUICProject& head) { head.selectedGroupId = id; });
  }
  if (insight_) insight_->showCodeOf(id.value_or(""));
}

Binding<std::optional<std::string>> Workbench::selectedGroup() {
  return {[self = shared_from_this()] { return self->groupId.get(); },
          [self = shared_from_this()](const std::optional<std::string>& id) {
            if (id != self->groupId.get()) self->selectGroup(id);
          }};
}

Binding<std::optional<std::string>> Workbench::selectedItem() {
  return {[self = shared_from_this()] { return self->itemId.get(); },
          [self = shared_from_this()](const std::optional<std::string>& id) {
            if (id == self->itemId.get()) return;
            self->itemId.set(id);
            if (id) self->pane.set(Pane::value);
          }};
}

void Workbench::rename() {
  pane.set(Pane::value);
  // In the next turn of the event loop: what was just added has no field yet.
  XMain::post([weak = weak_from_this()] {
    const auto self = weak.lock();
    if (self) self->renames.set(self->renames.get() + 1);
  });
}

void Workbench::find() {
  finds.set(finds.get() + 1);
}

void Workbench::search(const std::string& text) {
  query.set(text);
  const auto open = document();
  if (!open) return;
  const auto found = shownGroups(*open->content(), text);
  const auto selected = groupId.get();
  const bool isThere = std::any_of(found.begin(), found.end(),
                                   [&](const GroupPtr& each) { return each->id == selected; });
  if (!isThere && !found.empty()) selectGroup(found.front()->id);
}

void Workbench::addGroup() {
  const auto open = document();
  if (!open) return;
  std::string id;
  open->edit("Add group",
             [&](ProjectContent& content) { id = configurator::addGroup(content, groupId.get()); });
  query.set("");
  selectGroup(id);
  rename();
}

void Workbench::addItem(ZQUICRecordType type) {
  const auto open = document();
  if (!open || !group()) return;
  std::string id;
  open->edit("Add value", [&](ProjectContent& content) {
    id = configurator::addItem(content, *groupId.get(), type, itemId.get());
  });
  query.set("");
  selectedItem().set(id);
  rename();
}

void Workbench::duplicateGroup(const std::string& id) {
  const auto open = document();
  if (!open) return;
  std::string copy;
  open->edit("Duplicate group",
             [&](ProjectContent& content) { copy = configurator::duplicateGroup(content, id); });
  if (!copy.empty()) selectGroup(copy);
}

void Workbench::duplicateItem(const std::string& id) {
  const auto open = document();
  if (!open || !group()) return;
  std::string copy;
  open->edit("Duplicate value", [&](ProjectContent& content) {
    copy = configurator::duplicateItem(content, *groupId.get(), id);
  });
  if (!copy.empty()) itemId.set(copy);
}

void Workbench::removeGroup(const std::string& id) {
  const auto open = document();
  if (!open) return;
  std::vector<std::string> ids;
  for (const GroupPtr& each : shownGroups(*open->content(), query.get())) ids.push_back(each->id);
  open->edit("Delete group", [&](ProjectContent& content) { flagGroup(content, id); });
  if (groupId.get() == id) selectGroup(neighbour(ids, id));
}

void Workbench::removeItem(const std::string& id) {
  const auto open = document();
  const GroupPtr in = group();
  if (!open || !in) return;
  std::vector<std::string> ids;
  for (const ZQUICItem* each : shownItems(*in, query.get())) ids.push_back(each->id);
  open->edit("Delete value", [&](ProjectContent& content) { flagItem(content, in->id, id); });
  if (itemId.get() == id) itemId.set(neighbour(ids, id));
}

void Workbench::copyExpression() {
  const auto chosen = item();
  if (!chosen) return;
  chosen->copyZQCValue(document()->content()->head.environmentObjectVarName, *group());
}

void Workbench::copyCall() {
  const auto chosen = item();
  if (chosen) chosen->copyValue(document()->content()->head.environmentObjectVarName);
}

void Workbench::copyEnvironmentObject() {
  const auto open = document();
  if (open) open->content()->head.copyEnviromentObject();
}

}  // namespace zq::configurator
