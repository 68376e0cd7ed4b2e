// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <string_view>
#include <vector>
#include <zqswiftui/platform/base/result.hpp>
#include <zqswiftui/settings/project_json.hpp>

namespace zq {

// Something in a project file that is allowed and yet would surprise.
struct ProjectFinding {
  TextPlace place;
  std::string sentence;
};

// What the form of a file allows and the rest of the system cannot serve: names without a
// letter, groups hidden behind others, properties of one name, ids that come twice, texts that
// break the Swift source, entries that are gone at the next save, values of a kind that their
// key does not take. In the order of the text; an error where it is no project. Any thread.
Result<std::vector<ProjectFinding>> checkProject(std::string_view json);

}  // namespace zq
