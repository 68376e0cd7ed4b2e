// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <tools/zqc/project_files.hpp>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/settings/project_check.hpp>
#include <zqswiftui/settings/project_json.hpp>

namespace zq::zqc {

namespace fs = std::filesystem;

namespace {

int checkFile(const Session& session, const std::string& path) {
  auto text = readProjectText(session, path);
  if (!text) return text.status;
  const auto findings = checkProject(*text);
  if (!findings.ok()) return session.fail(exitData, path + ":" + findings.error().sentence);
  for (const ProjectFinding& finding : findings.value()) {
    session.out << path << ':' << finding.place.line << ':' << finding.place.column << ": "
                << finding.sentence << '\n';
  }
  return findings.value().empty() ? exitOk : exitFound;
}

}  // namespace

int runInit(const Session& session, const Arguments& arguments) {
  const std::string& path = arguments.operands[0];
  if (!arguments.has("--name") || !arguments.has("--bundle-id")) {
    return session.fail(exitUsage, "init wants --name and --bundle-id");
  }
  ZQUICProject project;
  project.name = *arguments.value("--name");
  project.appBundleId = *arguments.value("--bundle-id");
  std::error_code error;
  project.configFileUrl = Url::file(fs::absolute(path, error).lexically_normal().string());
  const auto text = encodeProject(project, JsonStyle::pretty);
  if (!text.ok()) return session.fail(exitData, text.error().sentence);
  // Only who creates the file may fill it.
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> created(std::fopen(path.c_str(), "wx"),
                                                                std::fclose);
  if (!created) {
    return session.fail(exitCannotCreate, "cannot make " + path + ": " + std::strerror(errno));
  }
  const int status = writeIfDifferent(session, path, text.value());
  if (status != exitOk) fs::remove(path, error);
  return status;
}

int runCheck(const Session& session, const Arguments& arguments) {
  int worst = exitOk;
  for (const std::string& path : arguments.operands) {
    worst = std::max(worst, checkFile(session, path));
  }
  return worst;
}

int runTokenize(const Session& session, const Arguments& arguments) {
  session.out << swiftTokenize(arguments.operands[0]) << '\n';
  return exitOk;
}

}  // namespace zq::zqc
