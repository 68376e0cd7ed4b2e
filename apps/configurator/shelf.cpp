// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <apps/configurator/project_file.hpp>
#include <apps/configurator/shelf.hpp>
#include <charconv>
#include <zqswiftui/platform/base/prefs.hpp>
#include <zqswiftui/platform/base/text.hpp>

namespace zq::configurator {
namespace {

constexpr const char* kKey = "projects";
constexpr std::size_t kMost = 500;

// An entry as a line: "fh3 address name", where a dash stands for a mark that is not set.
std::string lineOf(const ShelfEntry& entry) {
  return std::string(entry.favorite ? "f" : "-") + (entry.hidden ? "h" : "-") +
         std::to_string(entry.color) + " " + entry.file.text() + " " + entry.name;
}

std::optional<ShelfEntry> entryOf(const std::string& line) {
  const std::size_t first = line.find(' ');
  const std::size_t second = line.find(' ', first + 1);
  if (first == std::string::npos || first < 3 || second == std::string::npos) return std::nullopt;
  const auto file = Url::parse(line.substr(first + 1, second - first - 1));
  if (!file || !file->isFile() || !file->path().starts_with('/')) return std::nullopt;
  ShelfEntry entry{*file, line.substr(second + 1), line[0] == 'f', line[1] == 'h'};
  std::from_chars(line.data() + 2, line.data() + first, entry.color);
  if (entry.color >= shelfColors().size()) entry.color = 0;
  return entry;
}

auto findIn(std::vector<ShelfEntry>& entries, const Url& file) {
  return std::find_if(entries.begin(), entries.end(),
                      [&](const ShelfEntry& entry) { return entry.file == file; });
}

}  // namespace

const std::vector<ShelfColor>& shelfColors() {
  static const std::vector<ShelfColor> colors{
      {"Gray", Color::gray()},     {"Red", Color::red()},      {"Orange", Color::orange()},
      {"Yellow", Color::yellow()}, {"Green", Color::green()},  {"Teal", Color::teal()},
      {"Blue", Color::blue()},     {"Purple", Color::purple()}};
  return colors;
}

Shelf::Shelf() {
  std::vector<ShelfEntry> entries;
  for (const std::string& line : prefs_getValueStringList(kKey, {})) {
    auto entry = entryOf(line);
    if (entry && findIn(entries, entry->file) == entries.end() && entries.size() < kMost) {
      entries.push_back(*std::move(entry));
    }
  }
  entries_.set(std::move(entries));
}

std::vector<ShelfEntry> Shelf::shown(std::string_view query, bool withHidden) const {
  std::vector<ShelfEntry> found = entries();
  std::erase_if(found, [&](const ShelfEntry& entry) {
    return (entry.hidden && !withHidden) || !zqSearchContains(entry.name, query);
  });
  std::stable_partition(found.begin(), found.end(),
                        [](const ShelfEntry& entry) { return entry.favorite; });
  return found;
}

bool Shelf::hasHidden() const {
  const auto all = entries_.snapshot();
  return std::any_of(all->begin(), all->end(), [](const ShelfEntry& e) { return e.hidden; });
}

std::string Shelf::nameOf(const Url& file) const {
  std::vector<ShelfEntry> all = entries();
  const auto found = findIn(all, file);
  return found == all.end() || found->name.empty() ? projectName(file) : found->name;
}

void Shelf::set(std::vector<ShelfEntry> entries) {
  if (entries == *entries_.snapshot()) return;
  std::vector<std::string> lines;
  lines.reserve(entries.size());
  for (const ShelfEntry& entry : entries) lines.push_back(lineOf(entry));
  prefs_setValueStringList(kKey, std::move(lines));
  entries_.set(std::move(entries));
}

void Shelf::note(const Url& file, const std::string& name) {
  std::vector<ShelfEntry> all = entries();
  const auto found = findIn(all, file);
  if (found != all.end()) {
    found->name = name;
  } else {
    all.insert(all.begin(), {file, name});
    if (all.size() > kMost) all.pop_back();
  }
  set(std::move(all));
}

void Shelf::edit(const Url& file, const std::function<void(ShelfEntry&)>& change) {
  std::vector<ShelfEntry> all = entries();
  const auto found = findIn(all, file);
  if (found == all.end()) return;
  change(*found);
  set(std::move(all));
}

void Shelf::remove(const Url& file) {
  std::vector<ShelfEntry> all = entries();
  std::erase_if(all, [&](const ShelfEntry& entry) { return entry.file == file; });
  set(std::move(all));
}

void Shelf::move(const Url& file, const std::optional<Url>& before) {
  std::vector<ShelfEntry> all = entries();
  const auto found = findIn(all, file);
  if (found == all.end() || before == file) return;
  const ShelfEntry moved = *found;
  all.erase(found);
  all.insert(before ? findIn(all, *before) : all.end(), moved);
  set(std::move(all));
}

}  // namespace zq::configurator
