// ZQSwiftUI, MIT licence; see LICENSE.
#include <filesystem>
#include <tools/zqc/project_files.hpp>
#include <zqswiftui/settings/cpp_generator.hpp>
#include <zqswiftui/settings/project_json.hpp>

namespace zq::zqc {

namespace {

int writeSplit(const Session& session, const std::string& path, const ZQUICProject& project,
               const CppOptions& options, const std::string& folder) {
  const auto headers = cppHeaders(project, options);
  if (!headers.ok()) return session.fail(exitData, path + ": " + headers.error().sentence);
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (error) {
    return session.fail(exitCannotCreate,
                        "cannot make the folder " + folder + ": " + error.message());
  }
  for (const CppHeader& header : headers.value()) {
    const std::string file = (std::filesystem::path(folder) / header.fileName).string();
    if (const int status = writeIfDifferent(session, file, header.text)) return status;
  }
  return exitOk;
}

}  // namespace

int runNormalize(const Session& session, const Arguments& arguments) {
  const std::string& path = arguments.operands[0];
  auto project = readProject(session, path);
  if (!project) return project.status;
  const auto text = encodeProject(*project, JsonStyle::pretty);
  if (!text.ok()) return session.fail(exitData, path + ": " + text.error().sentence);
  return deliver(session, arguments, text.value());
}

int runSwift(const Session& session, const Arguments& arguments) {
  auto project = readProject(session, arguments.operands[0]);
  if (!project) return project.status;
  return deliverTranslation(session, arguments, project->zqcCode());
}

int runCpp(const Session& session, const Arguments& arguments) {
  const std::string& path = arguments.operands[0];
  const auto folder = arguments.value("--split");
  if (folder && arguments.has("-o")) {
    return session.fail(exitUsage, "either -o or --split, not both");
  }
  CppOptions options;
  options.className = arguments.valueOr("--class", options.className);
  options.namespaceName = arguments.valueOr("--namespace", "");
  if (const auto group = arguments.value("--group")) options.groups = {*group};
  const auto allowed = checkCppOptions(options);
  if (!allowed.ok()) return session.fail(exitUsage, allowed.error().sentence);
  auto project = readProject(session, path);
  if (!project) return project.status;
  if (folder) return writeSplit(session, path, *project, options, *folder);
  const auto code = cppCode(*project, options);
  if (!code.ok()) return session.fail(exitData, path + ": " + code.error().sentence);
  return deliverTranslation(session, arguments, code.value());
}

}  // namespace zq::zqc
