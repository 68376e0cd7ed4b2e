// ZQSwiftUI, MIT licence; see LICENSE.
#include <filesystem>
#include <tools/zqc/project_files.hpp>
#include <utility>
#include <zqswiftui/platform/base/files.hpp>
#include <zqswiftui/settings/project_json.hpp>

namespace zq::zqc {

namespace {

Outcome<ZQUICProject> taken(const Session& session, const std::string& path,
                            Result<ZQUICProject> project) {
  if (project.ok()) return std::move(project).value();
  return session.fail(exitData, path + ":" + project.error().sentence);
}

}  // namespace

Outcome<std::string> readProjectText(const Session& session, const std::string& path) {
  auto text = readTextFile(path, longestProject);
  if (text.ok()) return std::move(text).value();
  return session.fail(exitNoInput, text.error().sentence);
}

Outcome<ZQUICProject> readProject(const Session& session, const std::string& path) {
  auto text = readProjectText(session, path);
  if (!text) return text.status;
  return taken(session, path, decodeProject(*text));
}

Outcome<ZQUICProject> readEverything(const Session& session, const std::string& path) {
  auto text = readProjectText(session, path);
  if (!text) return text.status;
  ProjectPlaces places;
  return taken(session, path, decodeEverything(*text, places));
}

int writeIfDifferent(const Session& session, const std::string& path, std::string_view text) {
  const auto old = readTextFile(path, text.size());
  if (old.ok() && old.value() == text) return exitOk;
  const auto written = replaceFile(path, text);
  return written.ok() ? exitOk : session.fail(exitCannotCreate, written.error().sentence);
}

int deliver(const Session& session, const Arguments& arguments, std::string_view text) {
  if (const auto file = arguments.value("-o")) return writeIfDifferent(session, *file, text);
  session.out << text;
  return exitOk;
}

int deliverTranslation(const Session& session, const Arguments& arguments, std::string_view text) {
  const auto file = arguments.value("-o");
  std::error_code error;
  if (file && std::filesystem::equivalent(*file, arguments.operands[0], error)) {
    return session.fail(exitUsage, *file + " is the project itself");
  }
  return deliver(session, arguments, text);
}

}  // namespace zq::zqc
