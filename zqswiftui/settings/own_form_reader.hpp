// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string_view>
#include <zqswiftui/settings/zquic_project.hpp>

namespace zq {

// Reads a project in the very form in which encodeProject writes one, whatever the blanks:
// every member, in order, of its own type. Several times as fast as a parser that must expect
// anything; a running application reads each edit so. Absent where anything is otherwise,
// which then is for such a parser to read. The text must be UTF-8.
std::optional<ZQUICProject> readOwnForm(std::string_view json);

}  // namespace zq
