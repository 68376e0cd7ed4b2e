// ZQSwiftUI, MIT licence; see LICENSE.
#include <tools/zqc/bus.hpp>
#include <tools/zqc/project_files.hpp>
#include <zqswiftui/platform/base/number_text.hpp>
#include <zqswiftui/settings/project_json.hpp>

namespace zq::zqc {

namespace {

// One line a project; false where that cannot be written any more.
bool print(const Session& session, const std::string& payload) {
  const auto project = decodeProject(payload);
  if (!project.ok()) {
    session.fail(exitData, "this broadcast is no project: " + project.error().sentence);
    return true;
  }
  const auto line = encodeProject(project.value(), JsonStyle::compact);
  if (line.ok()) session.out << line.value() << '\n' << std::flush;
  return session.out.good();
}

}  // namespace

int runBroadcast(const Session& session, const Arguments& arguments) {
  if (const int status = checkBus(session)) return status;
  auto project = readProject(session, arguments.operands[0]);
  if (!project) return project.status;
  return broadcastProject(session, arguments.operands[0], *project);
}

int runWatch(const Session& session, const Arguments& arguments) {
  std::optional<std::int64_t> left;
  if (const auto count = arguments.value("--count")) {
    left = wholeNumber(*count);
    if (!left || *left < 1) return session.fail(exitUsage, "--count wants a number from 1");
  }
  if (const int status = checkBus(session)) return status;
  return watchPayloads(session, arguments.operands[0], [&](const std::string& payload) {
    return print(session, payload) && !(left && --*left == 0);
  });
}

}  // namespace zq::zqc
