// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstdio>
#include <ctime>
#include <string>
#include <vector>

#include "bench.hpp"

// The wall of pictures that each program fills, and what it tells of it.
namespace bench {

// Files of one kind in one folder, shown in a grid of cells that fills the viewport.
struct Wall {
  const char* mode;    // of the command line
  const char* item;    // of the results
  const char* suffix;  // of the files
  int pictures;        // all that there are
  int fileWidth, fileHeight;
  int cellWidth, cellHeight;
  bool reduced;  // decoded to the size of the cell, and not whole
};
constexpr Wall kPictures{"pictures", "P1", ".png", 500, 256, 256, 38, 38, false};
constexpr Wall kPhotographs{"photographs", "P2", ".jpg", 100, 6000, 4000, 96, 64, true};
constexpr int kWarmUps = 4;  // files beyond those of the wall: libraries are loaded by these

inline std::string fileOf(const Wall& wall, const std::string& folder, int i) {
  char name[32];
  std::snprintf(name, sizeof name, "/picture-%03d", i);
  return folder + name + wall.suffix;
}
// Those of the first n, or what warms up.
inline std::vector<std::string> filesOf(const Wall& wall, const std::string& folder, int n) {
  std::vector<std::string> files;
  for (int i = 0; i < std::min(n, wall.pictures); ++i) files.push_back(fileOf(wall, folder, i));
  return files;
}
inline std::vector<std::string> warmUps(const Wall& wall, const std::string& folder) {
  std::vector<std::string> files;
  for (int i = 0; i < kWarmUps; ++i) files.push_back(fileOf(wall, folder, wall.pictures + i));
  return files;
}
inline int columnsOf(const Wall& wall) {
  return (kViewW + kGap) / (wall.cellWidth + kGap);
}

// The time that this thread has had of a processor.
inline double threadMs() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

// The longest time between two turns of a loop that could turn all the time, and the longest that
// its thread itself was busy meanwhile, which leaves out what it waits for a processor.
class Stall {
 public:
  void turn() {
    const double busy = threadMs();
    longest_ = std::max(longest_, since_.ms());
    busiest_ = std::max(busiest_, busy - before_);
    since_ = Timer();
    before_ = busy;
  }
  double longest() const { return longest_; }
  double busiest() const { return busiest_; }

 private:
  Timer since_;
  double before_ = threadMs();
  double longest_ = 0, busiest_ = 0;
};

inline void reportWall(const Wall& wall, int n, double shown, const Stall* stall) {
  const std::string item = wall.item;
  report(item.c_str(), n, shown, wall.reduced ? "decoded to the cell" : "decoded whole");
  report((item + "-rss").c_str(), n, static_cast<double>(heldMemory()), {}, "kB");
  if (!stall) return;
  report((item + "-stall").c_str(), n, stall->longest());
  report((item + "-busy").c_str(), n, stall->busiest());
}

// Runs the wall that the mode names.
template <class Show>
bool runWall(const Arguments& arguments, const Show& show) {
  for (const Wall& wall : {kPictures, kPhotographs}) {
    if (arguments.mode() != wall.mode) continue;
    show(wall, arguments.dir(), arguments.n());
    return true;
  }
  return false;
}

bool pictures(const Arguments& arguments);  // each program's own

}  // namespace bench
