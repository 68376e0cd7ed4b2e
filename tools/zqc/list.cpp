// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <array>
#include <tools/zqc/project_files.hpp>
#include <tools/zqc/shown_text.hpp>
#include <tools/zqc/values.hpp>
#include <zqswiftui/platform/base/text.hpp>

namespace zq::zqc {

namespace {

using Row = std::array<std::string, 4>;  // group, key, type, value

constexpr std::string_view gap = "  ";

std::vector<Row> rowsOf(const ZQUICProject& project, const std::string& query) {
  std::vector<Row> rows;
  for (const ZQUICGroup& group : project.groupList()) {
    const bool whole = zqSearchContains(group.name, query);
    for (const ZQUICItem& item : group.itemList) {
      if (!whole && !item.zqSearch(query)) continue;
      const bool text = item.type == ZQUICRecordType::string;
      rows.push_back({shownText(group.name), shownText(item.key), std::string(rawValue(item.type)),
                      text ? "\"" + shownText(item.stringValue) + "\"" : shownValue(item)});
    }
  }
  return rows;
}

class Table {
 public:
  Table(const Session& session, const std::vector<Row>& rows) : session_(session) {
    for (const Row& row : rows) {
      for (std::size_t i = 0; i < widths_.size(); ++i) {
        widths_[i] = std::max(widths_[i], displayWidth(row[i]));
      }
    }
  }

  void print(const Row& row, std::string_view colour) const {
    std::string line;
    std::size_t used = 0;
    for (std::size_t i = 0; i < widths_.size(); ++i) {
      line += row[i];
      line.append(widths_[i] - displayWidth(row[i]), ' ').append(gap);
      used += widths_[i] + gap.size();
    }
    // At least something of a value is to be seen.
    constexpr std::size_t leastValue = 8;
    const std::size_t width = session_.width.value_or(0);
    const std::size_t room = std::max(width - std::min(width, used), leastValue);
    line += session_.width ? shortened(row.back(), room) : row.back();
    const bool coloured = session_.colour && !colour.empty();
    session_.out << (coloured ? colour : "") << line << (coloured ? "\033[0m" : "") << '\n';
  }

 private:
  const Session& session_;
  std::array<std::size_t, 3> widths_{};  // of all columns but the last
};

}  // namespace

int runList(const Session& session, const Arguments& arguments) {
  auto project = readProject(session, arguments.operands[0]);
  if (!project) return project.status;
  const std::string query = arguments.operands.size() > 1 ? arguments.operands[1] : "";
  std::vector<Row> rows = rowsOf(*project, query);
  if (rows.empty()) {
    return session.fail(exitFound, query.empty() ? arguments.operands[0] + " has no items"
                                                 : "nothing contains \"" + query + "\"");
  }
  rows.insert(rows.begin(), Row{"GROUP", "KEY", "TYPE", "VALUE"});
  const Table table(session, rows);
  table.print(rows.front(), "\033[1m");
  for (auto row = rows.begin() + 1; row != rows.end(); ++row) table.print(*row, "");
  return exitOk;
}

}  // namespace zq::zqc
