// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <apps/configurator/insight.hpp>
#include <map>
#include <utility>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/settings/cpp_generator.hpp>
#include <zqswiftui/settings/project_check.hpp>
#include <zqswiftui/settings/project_json.hpp>

namespace zq::configurator {
namespace {

constexpr double kRest = 0.1;  // seconds

using Place = std::pair<std::size_t, std::size_t>;  // line and column

// Ids by where their entries stand in the text.
std::map<Place, std::string> idsByPlace(const std::string& json) {
  ProjectPlaces places;
  const auto project = decodeEverything(json, places);
  std::vector<std::pair<std::size_t, std::string>> offsets;
  if (!project.ok()) return {};
  const auto& groups = project.value().groupList();
  for (std::size_t g = 0; g < groups.size(); ++g) {
    offsets.emplace_back(places.groups[g].offset, groups[g].id);
    for (std::size_t i = 0; i < groups[g].itemList.size(); ++i) {
      offsets.emplace_back(places.groups[g].items[i], groups[g].itemList[i].id);
    }
  }
  std::sort(offsets.begin(), offsets.end());
  // In one walk: from the beginning for each, a long project would take minutes.
  std::map<Place, std::string> ids;
  Place at{1, 1};
  std::size_t offset = 0;
  for (auto& [wanted, id] : offsets) {
    while (offset < wanted && offset < json.size()) {
      if (nextScalar(json, offset) == U'\n') {
        at = {at.first + 1, 1};
      } else {
        ++at.second;
      }
    }
    ids.emplace(at, std::move(id));
  }
  return ids;
}

}  // namespace

const std::vector<std::string>* Findings::of(const std::string& id) const {
  const auto found = byId.find(id);
  return found == byId.end() ? nullptr : &found->second;
}

Findings findingsIn(const ProjectContent& content) {
  Findings findings;
  const auto json = encodeProject(content.shownProject(), JsonStyle::pretty);
  if (!json.ok()) {
    findings.ofProject.push_back(json.error().sentence);
    findings.count = 1;
    return findings;
  }
  const auto checked = checkProject(json.value());
  if (!checked.ok() || checked.value().empty()) return findings;
  const auto ids = idsByPlace(json.value());
  for (const ProjectFinding& finding : checked.value()) {
    const auto found = ids.find({finding.place.line, finding.place.column});
    auto& list = found == ids.end() ? findings.ofProject : findings.byId[found->second];
    list.push_back(finding.sentence);
    ++findings.count;
  }
  return findings;
}

GroupCode codeOf(const ProjectContent& content, const std::string& groupId) {
  const GroupPtr group = content.group(groupId);
  if (!group || group->shouldBeDeleted) return {};
  const ZQUICProject alone = content.head.withGroups({*group});
  const auto cpp = cppCode(alone);
  return {alone.zqcCode(), cpp.ok() ? cpp.value() : cpp.error().sentence};
}

std::shared_ptr<Insight> Insight::of(const std::shared_ptr<Document>& document) {
  std::shared_ptr<Insight> insight(new Insight(document));
  insight->changes_ = document->didChange.connect([weak = std::weak_ptr(insight)] {
    const auto self = weak.lock();
    if (self) self->workOut();
  });
  insight->workOut();
  return insight;
}

Insight::Insight(const std::shared_ptr<Document>& document) : document_(document) {}

void Insight::showCodeOf(const std::string& groupId) {
  groupId_ = groupId;
  workOut();
}

void Insight::workOut() {
  rest_->perform(kRest, [weak = weak_from_this()] {
    const auto self = weak.lock();
    const auto document = self ? self->document_.lock() : nullptr;
    if (!document) return;
    const auto content = document->content();
    if (content == self->seen_ && self->groupId_ == self->seenGroupId_) return;
    const bool otherContent = content != self->seen_;
    self->seen_ = content;
    self->seenGroupId_ = self->groupId_;
    Queue::execute(false, [weak, content, otherContent, groupId = self->groupId_] {
      auto code = codeOf(*content, groupId);
      auto findings = otherContent ? std::optional(findingsIn(*content)) : std::nullopt;
      XMain::post([weak, content, groupId, code = std::move(code), findings = std::move(findings)] {
        const auto alive = weak.lock();
        if (!alive || alive->seen_ != content) return;
        // The code of a group that was selected since may have come first.
        const bool stillWanted = alive->seenGroupId_ == groupId;
        if (stillWanted && *alive->code_.snapshot() != code) alive->code_.set(code);
        if (findings && *alive->findings_.snapshot() != *findings) alive->findings_.set(*findings);
      });
    });
  });
}

}  // namespace zq::configurator
