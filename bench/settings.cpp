// ZQSwiftUI, MIT licence; see LICENSE.
// Settings: reading one by name and by generated property beside a bare hash map and beside
// QSettings; loading, saving and generating ten thousand beside a bare parse of the same bytes.
#include <rapidjson/document.h>

#include <QSettings>
#include <QTemporaryDir>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>
#include <zqswiftui/platform/headless/headless_platform.hpp>
#include <zqswiftui/settings/cpp_generator.hpp>
#include <zqswiftui/settings/project_json.hpp>
#include <zqswiftui/settings/zq_config.hpp>

#include "allocations.hpp"

namespace {

using namespace zq;

// Groups of a hundred items, of all types.
ZQUICProject projectOf(int items) {
  std::vector<ZQUICGroup> groups;
  for (int i = 0; i < items; ++i) {
    if (i % 100 == 0) groups.push_back({.name = "group" + std::to_string(i / 100)});
    const int place = i % 100;
    groups.back().itemList.push_back(
        {.key = "someKey" + std::to_string(place),
         .type = allRecordTypes[static_cast<std::size_t>(place) % allRecordTypes.size()],
         .intValue = i,
         .doubleValue = i * 0.25,
         .stringValue = place % 5 == 2 ? "a text of some length" : "",
         .pointValue = {i * 1.0, 0.5}});
  }
  ZQUICProject project;
  project.setGroupList(std::move(groups));
  return project;
}

const std::vector<std::pair<std::string, std::string>>& names() {
  static const auto list = [] {
    std::vector<std::pair<std::string, std::string>> made;
    for (int i = 0; i < 1000; ++i) {
      made.emplace_back("group" + std::to_string(i / 100), "someKey" + std::to_string(i % 100));
    }
    return made;
  }();
  return list;
}

void expect(benchmark::State& state, bool holds) {
  if (!holds) state.SkipWithError("it answered something else");
}

// Each reads the thousand settings over and over; the time is that of one.
template <typename Read>
void readAll(benchmark::State& state, Read read) {
  double sum = 0;
  {
    const Allocations counted(state);
    std::size_t next = 0;
    for (auto _ : state) {
      const auto& [group, key] = names()[next];
      sum += read(std::string_view(group), std::string_view(key));
      next = next + 1 == names().size() ? 0 : next + 1;
    }
  }
  expect(state, sum >= 0);
}

void readByName(benchmark::State& state) {
  const HeadlessPlatform platform;
  const ZQConfig store(projectOf(1000));
  expect(state, store.doubleValue("group9", "someKey99") == 999 * 0.25);
  readAll(state, [&store](std::string_view group, std::string_view key) {
    return store.doubleValue(group, key);
  });
}
BENCHMARK(readByName);

struct Name {
  std::string_view group, key;
  bool operator==(const Name&) const = default;
};
struct NameHash {
  std::size_t operator()(const Name& name) const {
    const std::hash<std::string_view> hash;
    return hash(name.group) * 31 + hash(name.key);
  }
};

void readFromABareHashMap(benchmark::State& state) {
  std::unordered_map<Name, double, NameHash> map;
  for (const auto& [group, key] : names()) map[{group, key}] = 1;
  readAll(state, [&map](std::string_view group, std::string_view key) {
    return map.find({group, key})->second;
  });
}
BENCHMARK(readFromABareHashMap);

void readFromQSettings(benchmark::State& state) {
  const QTemporaryDir folder;
  QSettings settings(folder.filePath("settings.ini"), QSettings::IniFormat);
  std::vector<QString> keys;
  for (const auto& [group, key] : names()) {
    keys.push_back(QString::fromStdString(group + "/" + key));
    settings.setValue(keys.back(), 1.0);
  }
  settings.sync();
  std::size_t next = 0;
  double sum = 0;
  for (auto _ : state) {
    sum += settings.value(keys[next]).toDouble();
    next = next + 1 == keys.size() ? 0 : next + 1;
  }
  expect(state, sum > 0);
}
BENCHMARK(readFromQSettings);

// What a generated property is in a debug build.
[[gnu::noinline]] double property(const ZQConfig& store) {
  static SettingSlot<double> slot;
  return store.value(slot, "group5", "someKey7");
}

void readByGeneratedProperty(benchmark::State& state) {
  const HeadlessPlatform platform;
  const ZQConfig store(projectOf(1000));
  double value = 0;
  const Allocations counted(state);
  for (auto _ : state) benchmark::DoNotOptimize(value = property(store));
  expect(state, value == 507 * 0.25);
}
BENCHMARK(readByGeneratedProperty);

void bytesPerSecond(benchmark::State& state, const std::string& text) {
  state.SetBytesProcessed(static_cast<std::int64_t>(text.size()) * state.iterations());
}

void saveTenThousand(benchmark::State& state) {
  const HeadlessPlatform platform;
  const ZQUICProject project = projectOf(10'000);
  std::string text;
  for (auto _ : state) text = encodeProject(project, JsonStyle::pretty).value();
  bytesPerSecond(state, text);
}
BENCHMARK(saveTenThousand)->Unit(benchmark::kMillisecond);

void loadTenThousand(benchmark::State& state) {
  const HeadlessPlatform platform;
  const ZQUICProject project = projectOf(10'000);
  const std::string text = encodeProject(project, JsonStyle::pretty).value();
  for (auto _ : state) expect(state, decodeProject(text).value() == project);
  bytesPerSecond(state, text);
}
BENCHMARK(loadTenThousand)->Unit(benchmark::kMillisecond);

// A file that somebody else wrote: one blank more than ours.
void loadTenThousandOfAnotherForm(benchmark::State& state) {
  const HeadlessPlatform platform;
  const ZQUICProject project = projectOf(10'000);
  std::string text = encodeProject(project, JsonStyle::pretty).value();
  text.insert(1, "\"extra\": 1,");
  for (auto _ : state) expect(state, decodeProject(text).value() == project);
  bytesPerSecond(state, text);
}
BENCHMARK(loadTenThousandOfAnotherForm)->Unit(benchmark::kMillisecond);

void bareParseOfTenThousand(benchmark::State& state) {
  const HeadlessPlatform platform;
  const std::string text = encodeProject(projectOf(10'000), JsonStyle::pretty).value();
  for (auto _ : state) {
    rapidjson::Document document;
    document.Parse(text.c_str(), text.size());
    expect(state, !document.HasParseError());
  }
  bytesPerSecond(state, text);
}
BENCHMARK(bareParseOfTenThousand)->Unit(benchmark::kMillisecond);

void generateTenThousand(benchmark::State& state) {
  const HeadlessPlatform platform;
  const ZQUICProject project = projectOf(10'000);
  for (auto _ : state) expect(state, cppCode(project).ok());
}
BENCHMARK(generateTenThousand)->Unit(benchmark::kMillisecond);

}  // namespace
