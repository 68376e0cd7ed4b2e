// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <string_view>
#include <tools/zqc/command.hpp>
#include <zqswiftui/settings/zquic_project.hpp>

namespace zq::zqc {

// Files as the commands read and write them; each failure has been told where it is answered.

Outcome<std::string> readProjectText(const Session& session, const std::string& path);
// As an application loads it.
Outcome<ZQUICProject> readProject(const Session& session, const std::string& path);
// With what is flagged to be deleted.
Outcome<ZQUICProject> readEverything(const Session& session, const std::string& path);

// Atomically, and not at all where the file has this content.
int writeIfDifferent(const Session& session, const std::string& path, std::string_view text);

// Into the file of -o, or else to standard output. A translation must not replace its project.
int deliver(const Session& session, const Arguments& arguments, std::string_view text);
int deliverTranslation(const Session& session, const Arguments& arguments, std::string_view text);

}  // namespace zq::zqc
