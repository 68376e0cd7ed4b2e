// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>
#include <vector>

// What every program of the comparison shares: the data of the job, the clock, the statistics
// and the results, one line of JSON each. Standard library only.
namespace bench {

// --- The job, the same for all ---

constexpr int kViewW = 1000, kViewH = 800;  // the viewport
constexpr int kNarrowW = 700;               // W2
constexpr int kGap = 2, kPad = 2;           // between tags; inside a tag
constexpr int kRadius = 4;
constexpr int kFontPx = 11;
constexpr const char* kFontFamily = "DejaVu Sans";
constexpr unsigned kPlain = 0xdde6f5, kLit = 0xffcc66, kInk = 0x222222;
constexpr int kChangeAt = 7;  // W4 changes this tag, which stands in the first row
constexpr int kHoverMoves = 200;
constexpr int kReps = 9, kWarmups = 2;

// 3 to 14 characters; one of 10 reads "tag-000042".
inline int tagLength(std::uint32_t i) {
  return 3 + static_cast<int>(((i * 2654435761u) >> 16) % 12u);
}
inline std::string tag(std::uint32_t i) {
  char full[32];
  const int length = std::snprintf(full, sizeof full, "ext-tag-%06u", static_cast<unsigned>(i));
  return std::string(full + (length - tagLength(i)));
}
inline std::vector<std::string> tags(int n) {
  std::vector<std::string> all;
  all.reserve(static_cast<std::size_t>(n));
  for (int i = 0; i < n; ++i) all.push_back(tag(static_cast<std::uint32_t>(i)));
  return all;
}
inline std::string longer(const std::string& text) {
  return text + "-changed";
}
// As the first tag it is too wide for any row, so that every other tag moves.
inline std::string tooWide() {
  std::string text;
  while (text.size() < 200) text += "wide-tag ";
  return text;
}

struct Position {
  int x, y;
};
// Ten sweeps from left to right, twenty positions each.
inline Position hoverPosition(int i) {
  return {12 + 49 * (i % 20), 20 + 76 * (i / 20)};
}

// The plain row builder that every placement is checked against: where the next one stands.
class Rows {
 public:
  explicit Rows(double width) : width_(width) {}
  struct Spot {
    double x, y;
  };
  Spot next(double width, double height) {
    if (x_ > 0 && x_ + width > width_) {
      x_ = 0;
      y_ += row_ + kGap;
      row_ = 0;
    }
    const Spot spot{x_, y_};
    x_ += width + kGap;
    row_ = std::max(row_, height);
    return spot;
  }
  double height() const { return y_ + row_; }

 private:
  double width_, x_ = 0, y_ = 0, row_ = 0;
};

// --- The clock ---

class Timer {
 public:
  double ms() const {
    return std::chrono::duration<double, std::milli>(Clock::now() - start_).count();
  }

 private:
  using Clock = std::chrono::steady_clock;
  Clock::time_point start_ = Clock::now();
};

// From the runner's fork until now, where it passed BENCH_SPAWN_NS (nanoseconds of the day).
inline double sinceSpawnMs() {
  const char* spawned = std::getenv("BENCH_SPAWN_NS");
  if (!spawned) return -1;
  const auto now = std::chrono::duration_cast<std::chrono::nanoseconds>(
                       std::chrono::system_clock::now().time_since_epoch())
                       .count();
  return static_cast<double>(now - std::atoll(spawned)) / 1e6;
}

// --- The results ---

class Series {
 public:
  void add(double value) { values_.push_back(value); }
  std::size_t size() const { return values_.size(); }
  double median() const {
    if (values_.empty()) return -1;
    std::vector<double> sorted = values_;
    std::sort(sorted.begin(), sorted.end());
    const std::size_t middle = sorted.size() / 2;
    return sorted.size() % 2 ? sorted[middle] : (sorted[middle - 1] + sorted[middle]) / 2;
  }
  double min() const {
    return values_.empty() ? -1 : *std::min_element(values_.begin(), values_.end());
  }
  double max() const {
    return values_.empty() ? -1 : *std::max_element(values_.begin(), values_.end());
  }

 private:
  std::vector<double> values_;
};

inline const char*& peerName() {
  static const char* name = "?";
  return name;
}

inline void report(const char* item, int n, const Series& series, const std::string& note = {},
                   const char* unit = "ms") {
  std::printf(
      "{\"peer\":\"%s\",\"item\":\"%s\",\"n\":%d,\"unit\":\"%s\",\"median\":%.6g,"
      "\"min\":%.6g,\"max\":%.6g,\"reps\":%zu,\"note\":\"%s\"}\n",
      peerName(), item, n, unit, series.median(), series.min(), series.max(), series.size(),
      note.c_str());
  std::fflush(stdout);
}
inline void report(const char* item, int n, double value, const std::string& note = {},
                   const char* unit = "ms") {
  Series one;
  one.add(value);
  report(item, n, one, note, unit);
}

// A figure whose work did not happen is worth nothing.
inline void check(bool ok, const char* what) {
  if (ok) return;
  std::fprintf(stderr, "%s: CHECK FAILED: %s\n", peerName(), what);
  std::exit(3);
}

// Runs `once(repetition)`, which answers milliseconds; the negative repetitions warm up.
template <class Once>
Series repeated(Once once) {
  Series series;
  for (int r = -kWarmups; r < kReps; ++r) {
    const double ms = once(r);
    if (r >= 0) series.add(ms);
  }
  return series;
}

// What the system notes of this process under that name, in kB.
inline long noted(const char* name) {
  std::FILE* file = std::fopen("/proc/self/status", "r");
  if (!file) return -1;
  char line[256];
  long kb = -1;
  const std::size_t length = std::strlen(name);
  while (std::fgets(line, sizeof line, file)) {
    if (!std::strncmp(line, name, length)) kb = std::atol(line + length);
  }
  std::fclose(file);
  return kb;
}
// The most memory that the process has held, and what it holds, in kB.
inline long peakMemory() {
  return noted("VmHWM:");
}
inline long heldMemory() {
  return noted("VmRSS:");
}

// A fixed amount of work that, like the rest, keeps the core's units and its caches busy: how
// fast the machine is just now, neighbours included.
inline void reportCalibration() {
  std::vector<std::uint32_t> table(1 << 16);
  for (std::uint32_t i = 0; i < table.size(); ++i) table[i] = i * 2654435761u;
  Series series;
  for (int r = 0; r < 5; ++r) {
    const Timer timer;
    std::uint32_t x[8] = {1, 2, 3, 4, 5, 6, 7, 8};
    for (int i = 0; i < 500'000; ++i) {
      for (std::uint32_t& v : x) {
        v ^= v << 13;
        v ^= v >> 17;
        v ^= v << 5;
        v = (v + table[v & 0xffff]) | 1;
      }
    }
    const volatile std::uint32_t sink = x[0] ^ x[3] ^ x[7];
    static_cast<void>(sink);
    series.add(timer.ms());
  }
  report("calibration", 0, series, "4 million steps, eight at once, a table of 256 kB");
}

// --- The command line: PROGRAM MODE [--n N] [--png FILE] [--dir FOLDER] ---

class Arguments {
 public:
  Arguments(int argc, char** argv) {
    if (argc > 1) mode_ = argv[1];
    for (int i = 2; i + 1 < argc; i += 2) {
      if (!std::strncmp(argv[i], "--", 2)) options_[argv[i] + 2] = argv[i + 1];
    }
  }
  const std::string& mode() const { return mode_; }
  int n() const {
    const auto found = options_.find("n");
    return found == options_.end() ? 1000 : std::max(1, std::atoi(found->second.c_str()));
  }
  std::string png() const { return text("png"); }
  std::string dir() const { return text("dir"); }

 private:
  std::string text(const char* name) const {
    const auto found = options_.find(name);
    return found == options_.end() ? "" : found->second;
  }

  std::string mode_;
  std::map<std::string, std::string> options_;
};

// Runs the job that the mode names: `items`, `firstFrame` for the modes first-frame and memory, or
// any other by `others`, which answers whether it knows it.
// Made first of all in main: its clock is that of the first frame.
class Program {
 public:
  Program(const char* name, int argc, char** argv) : arguments_(argc, argv) { peerName() = name; }

  int run(void (*items)(const Arguments&), void (*firstFrame)(const Program&),
          bool (*others)(const Arguments&) = nullptr) const {
    if (arguments_.mode() == "items") {
      reportCalibration();
      items(arguments_);
    } else if (arguments_.mode() == "first-frame" || memory()) {
      firstFrame(*this);
    } else {
      return others && others(arguments_) ? 0 : 2;
    }
    return 0;
  }
  int n() const { return arguments_.n(); }
  bool memory() const { return arguments_.mode() == "memory"; }
  // To be called as soon as the first frame is there; answers whether it was timed.
  bool reportFirstFrame() const {
    const double ms = start_.ms(), spawned = sinceSpawnMs();
    if (memory()) {
      report("W6-rss", n(), static_cast<double>(peakMemory()), {}, "kB");
    } else {
      report("W3", n(), ms);
      report("W3-spawn", n(), spawned, "from fork");
    }
    return !memory();
  }

 private:
  Timer start_;
  Arguments arguments_;
};

// --- What several programs tell in the same words ---

inline void reportBuilt(int n, const Series& built, const Series& frames, const Series& drops,
                        double height) {
  report("W1", n, built, "content height " + std::to_string(static_cast<int>(height)));
  report("W1-frame", n, frames, "W1 and the frame after it, process warm");
  report("W1-drop", n, drops, "all views destroyed");
}
// `frame` runs one while nothing is dirty.
template <class Frame>
void reportIdle(int n, const Frame& frame) {
  const Series idle = repeated([&](int) {
    const Timer timer;
    frame();
    return timer.ms();
  });
  report("W7-idle", n, idle, "a frame in which nothing is dirty");
}

}  // namespace bench
