// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <apps/configurator/document.hpp>
#include <unordered_map>
#include <zqswiftui/platform/base/pressure_task.hpp>

namespace zq::configurator {

// What is to be said of a project: sentences by the id of the group or item that they are about.
struct Findings {
  std::unordered_map<std::string, std::vector<std::string>> byId;
  std::vector<std::string> ofProject;
  std::size_t count = 0;
  bool operator==(const Findings&) const = default;

  const std::vector<std::string>* of(const std::string& id) const;
};
Findings findingsIn(const ProjectContent& content);

// The source that is generated for one group.
struct GroupCode {
  std::string swift;
  std::string cpp;  // or why there is none
  bool operator==(const GroupCode&) const = default;
};
GroupCode codeOf(const ProjectContent& content, const std::string& groupId);

// Both, of a document, worked out again off the interface thread after each rest between edits.
class Insight : public ObservableObject, public std::enable_shared_from_this<Insight> {
 public:
  static std::shared_ptr<Insight> of(const std::shared_ptr<Document>& document);

  std::shared_ptr<const Findings> findings() const { return findings_.snapshot(); }
  std::shared_ptr<const GroupCode> code() const { return code_.snapshot(); }
  void showCodeOf(const std::string& groupId);

 private:
  explicit Insight(const std::shared_ptr<Document>& document);
  void workOut();

  std::weak_ptr<Document> document_;
  std::string groupId_;
  std::shared_ptr<const ProjectContent> seen_;
  std::string seenGroupId_;
  Published<Findings> findings_{this};
  Published<GroupCode> code_{this};
  const std::shared_ptr<ZQPressureTask> rest_ = ZQPressureTask::make();
  Subscription changes_;
};

}  // namespace zq::configurator
