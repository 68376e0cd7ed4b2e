// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cmath>
#include <condition_variable>
#include <filesystem>
#include <limits>
#include <mutex>
#include <stdexcept>
#include <string>
#include <tests/base/temp_folder.hpp>
#include <thread>
#include <unordered_set>
#include <vector>
#include <zqswiftui/platform/base/files.hpp>
#include <zqswiftui/platform/base/image_cache.hpp>
#include <zqswiftui/platform/base/prefs.hpp>
#include <zqswiftui/platform/base/task.hpp>
#include <zqswiftui/platform/base/thread_pool.hpp>
#include <zqswiftui/platform/base/time_range.hpp>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/base/zq_cache.hpp>
#include <zqswiftui/platform/headless/headless_platform.hpp>

namespace zq {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

// --- Addresses and files ---

TEST(UrlEdges, schemesHaveNoCaseAndNoPathHoldsAZero) {
  const auto upper = Url::parse("FILE:///a%20b");
  ASSERT_TRUE(upper);
  EXPECT_TRUE(upper->isFile());
  EXPECT_EQ(upper->path(), "/a b");
  const auto cut = Url::parse("file:///etc/passwd%00.png");
  ASSERT_TRUE(cut);
  EXPECT_EQ(cut->path().find('\0'), std::string::npos) << "the system would read up to it";
  EXPECT_FALSE(fu_fileExists(*cut));
}

TEST(UrlEdges, partsAreAddedBehindThePath) {
  struct Case {
    std::string url, component, path;
  };
  const Case cases[] = {
      {"file:///a", "b c", "/a/b c"},       {"file:///a/", "b", "/a/b"},
      {"file:///a%20b", "c%d", "/a b/c%d"}, {"file:///a", "b?c#d", "/a/b?c#d"},
      {"http://host", "x.png", "/x.png"},   {"http://host/a?query=/z#end", "b", "/a/b"}};
  for (const Case& c : cases) {
    const Url url = Url::parse(c.url)->appending(c.component);
    EXPECT_EQ(url.path(), c.path) << url.text();
    EXPECT_EQ(url.name(), c.component) << url.text();
  }
}

TEST(FileEdges, anAddressOfANetworkNeverTouchesTheDisk) {
  const TempFolder folder;
  const auto remote = Url::parse("http://host" + folder.path("made/inner"));
  ASSERT_TRUE(remote);
  EXPECT_FALSE(fu_createFolderIfNeeded(*remote));
  EXPECT_FALSE(fu_createParentFolderIfNeeded(*remote));
  EXPECT_FALSE(fu_writeTextToFile(*remote, "x"));
  EXPECT_EQ(fu_getFileSize(*remote), 0);
  EXPECT_FALSE(fu_getModificationDate(*remote));
  EXPECT_EQ(folder.entries(), 0U);
}

TEST(FileEdges, foldersAreMadeWhereNothingStandsInTheWay) {
  const TempFolder folder;
  EXPECT_TRUE(fu_createFolderIfNeeded(Url::file(folder.path("a/b/c"))));
  EXPECT_TRUE(fu_createFolderIfNeeded(Url::file(folder.path("a/b/c"))));
  EXPECT_TRUE(fu_createParentFolderIfNeeded(Url::file(folder.path("d/e.txt"))));
  EXPECT_TRUE(FUList::isFolder(folder.path("d")));
  ASSERT_TRUE(replaceFile(folder.path("file"), "x").ok());
  EXPECT_FALSE(fu_createFolderIfNeeded(Url::file(folder.path("file"))));
  EXPECT_FALSE(fu_createFolderIfNeeded(Url::file(folder.path("file/inner"))));
  EXPECT_FALSE(fu_writeTextToFile(Url::file(folder.path("file/inner")), "x"));
  EXPECT_EQ(readTextFile(folder.path("file")).value(), "x");
}

TEST(FileEdges, replacingKeepsWhatTheFileIs) {
  const TempFolder folder;
  const std::string path = folder.path("script");
  for (const mode_t mode : {0755U, 0600U, 0444U | 0200U}) {
    ASSERT_TRUE(replaceFile(path, "#!").ok());
    ::chmod(path.c_str(), mode);
    ASSERT_TRUE(replaceFile(path, std::string(70000, 'x')).ok());
    struct stat info {};
    ASSERT_EQ(::stat(path.c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 07777U, mode);
  }
  // A chain of links leads to the file, and a ring of them nowhere.
  fs::create_symlink("script", folder.path("one"));
  fs::create_symlink("one", folder.path("two"));
  ASSERT_TRUE(replaceFile(folder.path("two"), "by links").ok());
  EXPECT_EQ(readTextFile(path).value(), "by links");
  EXPECT_TRUE(fs::is_symlink(folder.path("one")) && fs::is_symlink(folder.path("two")));
  fs::create_symlink("ring2", folder.path("ring1"));
  fs::create_symlink("ring1", folder.path("ring2"));
  const std::size_t before = folder.entries();
  static_cast<void>(replaceFile(folder.path("ring1"), "x"));
  EXPECT_FALSE(readTextFile(folder.path("ring1")).ok() && folder.entries() > before);
  ASSERT_TRUE(replaceFile(path, "").ok());
  EXPECT_EQ(readTextFile(path).value(), "");
}

TEST(FileEdges, aFolderThatMayNotBeWrittenKeepsItsFile) {
  if (::geteuid() == 0) return;  // nothing is forbidden to root
  const TempFolder folder;
  fs::create_directory(folder.path("locked"));
  ASSERT_TRUE(replaceFile(folder.path("locked/a"), "old").ok());
  fs::permissions(folder.path("locked"), fs::perms::owner_read | fs::perms::owner_exec);
  EXPECT_FALSE(replaceFile(folder.path("locked/a"), "new").ok());
  EXPECT_EQ(readTextFile(folder.path("locked/a")).value(), "old");
  fs::permissions(folder.path("locked"), fs::perms::owner_all);
}

TEST(FileEdges, namesThatLeadElsewhereAreNotSafe) {
  for (const std::string good : {"a", "a.b", "a b", "-x", "\xC3\xA9", "a..b", "CON"}) {
    EXPECT_TRUE(isSafeFileName(good)) << good;
  }
  EXPECT_TRUE(isSafeFileName(std::string(255, 'x')));
  const std::string bad[] = {"",   ".",    "..",   ".hidden", "a/b",
                             "/a", "a\\b", "a\nb", "a\0b"s,   std::string(256, 'x')};
  for (const std::string& name : bad) EXPECT_FALSE(isSafeFileName(name)) << name;
}

// --- Preferences and caches ---

TEST(PrefsEdges, valuesOfAnotherKindAreTurnedWhereTheyHaveASense) {
  const HeadlessPlatform platform;
  constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();
  prefs_setValueString("text", "12");
  EXPECT_EQ(prefs_getValueInt("text", 1), 12);
  EXPECT_EQ(prefs_getValueDouble("text", 1), 12);
  EXPECT_TRUE(prefs_getValueBool("text", false));
  prefs_setValueInt("int", least);
  EXPECT_EQ(prefs_getValueInt("int", 1), least);
  EXPECT_EQ(prefs_getValueString("int", ""), std::to_string(least));
  EXPECT_TRUE(prefs_getValueBool("int", false));
  for (const std::string text : {"", " 1", "1 ", "12x", "0x10", "1e3", "99999999999999999999"}) {
    prefs_setValueString("bad", text);
    EXPECT_EQ(prefs_getValueInt("bad", 5), 5) << text;
  }
  for (const double number :
       {std::nan(""), 1e300, -1e300, std::numeric_limits<double>::infinity()}) {
    prefs_setValueDouble("number", number);
    EXPECT_EQ(prefs_getValueInt("number", 5), 5) << number;
  }
  prefs_setValueDouble("number", -2.9);
  EXPECT_EQ(prefs_getValueInt("number", 5), -2) << "towards zero";
  prefs_setValueBool("flag", true);
  EXPECT_EQ(prefs_getValueInt("flag", 5), 1);
  EXPECT_EQ(prefs_getValueString("flag", ""), "true");
  prefs_setValueStringList("list", {"a", ""});
  EXPECT_EQ(prefs_getValueStringList("list", {}), (std::vector<std::string>{"a", ""}));
  EXPECT_EQ(prefs_getValueString("list", "none"), "none");
  EXPECT_EQ(prefs_getValueStringList("text", {"none"}), (std::vector<std::string>{"none"}));
  EXPECT_EQ(prefs_getValueInt("missing", 7), 7);
}

TEST(CacheEdges, runsOnceForAKeyKeepsTypesApartAndMayAskItself) {
  ZQCache cache;
  int runs = 0;
  const auto make = [&](int value) {
    return [&runs, value]() -> std::optional<int> {
      ++runs;
      return value;
    };
  };
  EXPECT_EQ(cache.getCachedOrExecute<int>("a", make(1)), 1);
  EXPECT_EQ(cache.getCachedOrExecute<int>("a", make(2)), 1);
  EXPECT_EQ(runs, 1);
  EXPECT_FALSE(cache.getCachedOrExecute<std::string>("a", [] { return std::optional("x"s); }));
  EXPECT_FALSE(cache.getCachedOrExecute<int>("none", [] { return std::optional<int>(); }));
  EXPECT_EQ(cache.getCachedOrExecute<int>("none", make(3)), 3) << "an absence is not kept";
  const auto outer = [&]() -> std::optional<int> {
    return *cache.getCachedOrExecute<int>("inner", make(4)) + 1;
  };
  EXPECT_EQ(cache.getCachedOrExecute<int>("outer", outer), 5);
  const auto throwing = []() -> std::optional<int> { throw std::runtime_error("no"); };
  EXPECT_THROW(cache.getCachedOrExecute<int>("bad", throwing), std::runtime_error);
  EXPECT_EQ(cache.getCachedOrExecute<int>("bad", make(6)), 6) << "it is not locked for ever";
}

TEST(CacheEdges, manyThreadsSeeOneValue) {
  ZQCache cache;
  std::vector<std::thread> threads;
  std::atomic<int> wrong{0};
  threads.reserve(8);
  for (int t = 0; t < 8; ++t) {
    threads.emplace_back([&] {
      for (int i = 0; i < 200; ++i) {
        const auto value = cache.getCachedOrExecute<int>(std::to_string(i),
                                                         [i]() -> std::optional<int> { return i; });
        if (value != i) ++wrong;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(wrong, 0);
}

TEST(TimeRanges, areTheirOwnIdentity) {
  std::unordered_set<ZQTimeRange> ranges;
  for (int i = 0; i < 100; ++i) {
    ranges.insert({0.5 * i, 0.5 * i + 1});
    ranges.insert({0.5 * i, 0.5 * i + 1});
  }
  EXPECT_EQ(ranges.size(), 100U);
  EXPECT_EQ(ranges.count({0.5, 1.5}), 1U);
  EXPECT_EQ(ranges.count({1.5, 0.5}), 0U);
  ranges = {{0.0, 1.0}, {-0.0, 1.0}};
  EXPECT_EQ(ranges.size(), 1U) << "equal ones have one hash";
}

TEST(ImageCacheEdges, aPictureThatIsShownIsNotDecodedAgainAndABadOneIsNotKept) {
  HeadlessPlatform platform;
  const TempFolder folder;
  const auto write = [&](const std::string& name, const Bytes& bytes) {
    ASSERT_TRUE(replaceFile(folder.path(name), bytes).ok());
    platform.bundle().addResource(name, folder.path(name));
  };
  write("a.png", HeadlessImageCodec::file(2, 1, 1, 2, 3));
  write("bad.png", Bytes{1, 2, 3});
  auto first = ImageCache::getImage("a.png");
  ASSERT_TRUE(first);
  write("a.png", HeadlessImageCodec::file(5, 5, 1, 2, 3));
  EXPECT_EQ(ImageCache::getImage("a.png")->width(), 2) << "as it is shown";
  first.reset();
  EXPECT_EQ(ImageCache::getImage("a.png")->width(), 5) << "nobody shows it any more";
  EXPECT_FALSE(ImageCache::getImage("bad.png"));
  EXPECT_FALSE(ImageCache::getImage("missing"));
  EXPECT_FALSE(ImageCache::getImage(""));
}

// --- Work and tasks ---

TEST(ThreadPoolEdges, fastWorkGoesFirstAndTheEndDropsWhatHasNotBegun) {
  const auto held = std::make_shared<int>(0);
  std::string order;
  {
    ThreadPool pool;
    std::mutex mutex;
    std::condition_variable changed;
    bool open = false;
    int waiting = 0;
    const auto block = [&] {
      std::unique_lock lock(mutex);
      ++waiting;
      changed.notify_all();
      changed.wait(lock, [&] { return open; });
    };
    for (int i = 0; i < 4; ++i) pool.post(block, false);
    {
      std::unique_lock lock(mutex);
      changed.wait(lock, [&] { return waiting >= 2; });
    }
    const auto note = [&](char c) {
      return [&order, &mutex, c] {
        const std::lock_guard lock(mutex);
        order += c;
      };
    };
    for (int i = 0; i < 5; ++i) pool.post(note('s'), false);
    for (int i = 0; i < 5; ++i) pool.post(note('f'), true);
    {
      const std::lock_guard lock(mutex);
      open = true;
    }
    changed.notify_all();
    pool.waitUntilIdle();
    EXPECT_EQ(order.size(), 10U);
    EXPECT_EQ(order.front(), 'f');
    // One that ends the pool's life from within its own work would wait for itself; what is
    // posted by work that runs at the end is dropped with the rest.
    for (int i = 0; i < 50; ++i) {
      pool.post([&pool, held] { pool.post([held] {}, false); }, false);
    }
  }
  EXPECT_EQ(held.use_count(), 1);
}

TEST(ThreadPoolEdges, heavyWorkGivesWayAndKeepsNoOtherWaiting) {
  ThreadPool pool;
  std::mutex mutex;
  std::condition_variable changed;
  int priorityOfHeavy = 0, priorityOfUsual = 0, done = 0;
  for (int i = 0; i < 20; ++i) {
    pool.postHeavy([&] {
      std::unique_lock lock(mutex);
      priorityOfHeavy = getpriority(PRIO_PROCESS, 0);
      changed.wait(lock, [&] { return done > 0; });
    });
  }
  pool.post(
      [&] {
        const std::lock_guard lock(mutex);
        priorityOfUsual = getpriority(PRIO_PROCESS, 0);
        ++done;
        changed.notify_all();
      },
      false);
  pool.waitUntilIdle();
  EXPECT_EQ(priorityOfUsual, getpriority(PRIO_PROCESS, 0));
  EXPECT_GT(priorityOfHeavy, priorityOfUsual);
}

// Work that goes on in a next piece, as the loading of many pictures does, reaches for the
// executor while its platform ends.
struct Endless {
  std::shared_ptr<int> held;
  void operator()() const { Queue::execute(false, *this); }
};

TEST(ThreadPoolEdges, workThatGoesOnForEverEndsWithItsPlatform) {
  const auto held = std::make_shared<int>(0);
  for (int i = 0; i < 20; ++i) {
    const HeadlessPlatform platform(BackgroundMode::threads);
    for (int k = 0; k < 8; ++k) Queue::execute(false, Endless{held});
  }
  EXPECT_EQ(held.use_count(), 1);
}

TEST(WorkEdges, aQueueThatIsGoneStillRunsWhatWasPostedAndSyncFromItselfStops) {
  HeadlessPlatform platform;
  std::string order;
  {
    SerialQueue queue("gone");
    for (const char c : {'a', 'b', 'c'}) queue.post([&order, c] { order += c; });
  }
  EXPECT_EQ(order, "");
  platform.runUntilIdle();
  EXPECT_EQ(order, "abc");
  EXPECT_DEATH(
      {
        SerialQueue queue("self");
        queue.post([&] { queue.sync([] {}); });
        platform.runUntilIdle();
      },
      "would wait for itself");
}

Task<int> doubled(int value, std::shared_ptr<int> held) {
  co_await onBackground();
  ++*held;
  co_return 2 * value;
}
Task<void> nested(std::shared_ptr<int> held, std::string* log) {
  for (int i = 0; i < 3; ++i) {
    const int value = co_await doubled(i, held);
    *log += std::to_string(value) + ' ';
    co_await afterDelay(1);
  }
  *log += "end";
}

TEST(TaskEdges, nestedTasksUnwindFromWhereTheyAre) {
  HeadlessPlatform platform;
  for (int waited = 0; waited <= 4; ++waited) {
    const auto held = std::make_shared<int>(0);
    std::string log;
    {
      const Subscription token = start(nested(held, &log));
      platform.advance(waited);
    }
    const std::string then = log;
    platform.advance(10);
    EXPECT_EQ(log, then) << "nothing after the token went";
    EXPECT_EQ(held.use_count(), 1);
    EXPECT_EQ(log.ends_with("end"), waited >= 3);
  }
}

Task<void> failing() {
  co_await onBackground();
  throw std::runtime_error("no");
}
Task<int> answered(std::function<void(std::function<void(int)>)> begin) {
  co_return co_await callback<int>(std::move(begin));
}

TEST(TaskEdges, anExceptionStopsTheProgramAndACallbackAnswersOnce) {
  HeadlessPlatform platform;
  EXPECT_DEATH(
      {
        detach(failing());
        platform.runUntilIdle();
      },
      "an exception left a task");
  int sum = 0;
  const auto twice = [](const std::function<void(int)>& done) {
    done(1);
    done(2);
  };
  detach(thenOnMain<int>(answered(twice), [&](int value) { sum += value; }));
  platform.runUntilIdle();
  EXPECT_EQ(sum, 1) << "at once, and the second answer is nobody's";
  bool ran = false;
  const auto held = std::make_shared<int>(0);
  const auto never = [held](const std::function<void(int)>&) {};
  detach(thenOnMain<int>(answered(never), [&ran, held](int) { ran = true; }));
  platform.advance(1);
  EXPECT_FALSE(ran);
  EXPECT_EQ(held.use_count(), 2) << "what is never answered unwinds";
}

}  // namespace
}  // namespace zq
