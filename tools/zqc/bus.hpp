// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <functional>
#include <string>
#include <tools/zqc/session.hpp>
#include <zqswiftui/settings/zquic_project.hpp>

namespace zq::zqc {

// Whether projects can be handed over between processes here; a failure has been told.
int checkBus(const Session& session);

// Returns once the bus has it.
int broadcastProject(const Session& session, const std::string& path, const ZQUICProject& project);

// Calls back with each payload for the application, until the callback answers false.
int watchPayloads(const Session& session, const std::string& bundleId,
                  std::function<bool(const std::string&)> received);

}  // namespace zq::zqc
