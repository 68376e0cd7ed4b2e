// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <array>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>
#include <zqswiftui/images/picture_model.hpp>

// Inside of images/ only.
namespace zq::detail {

class PictureTurn;

// Reading and decoding keep the processors busy; downloads wait for servers, and must not keep
// files waiting with them.
enum class PictureLane : unsigned char { local, remote };

// The work for one model. It keeps the turn for as long as it goes on, be it by itself or in a
// task; the next work of the lane begins when the turn is let go of.
struct PictureJob {
  using Work = std::function<void(std::shared_ptr<PictureTurn>)>;
  std::weak_ptr<PictureModel> model;
  std::shared_ptr<PicturePlace> place;
  Work work;
};

// Where a model's work waits, under the lock of the order. A model has one at a time.
struct PicturePlace {
  PictureLane lane = PictureLane::local;
  bool waiting = false;
  bool first = false;  // in the list of what is shown
  std::list<PictureJob>::iterator at;
};

// The order in which pictures are loaded: what a view observes first, in the order in which the
// views began to, then the rest as it was asked for. A few at a time, each in a piece of background
// work of its own, so that other work gets its turn among hundreds of pictures; that of files is
// heavy work, which leaves a processor to the interface thread.
//
// A step costs the same however many wait: work goes to the front when a view begins to observe
// its model, and back when its turn comes and nobody observes the model any more.
//
// What waits when the platform ends goes with it. Any thread.
class PictureOrder {
 public:
  static PictureOrder& shared();

  void add(PictureLane lane, const std::shared_ptr<PictureModel>& model, PictureJob::Work work);
  // Of work that is no model's any more: with what nobody shows.
  void add(PictureLane lane, PictureJob::Work work);
  void putFirst(PicturePlace& place);

 private:
  friend class PictureTurn;
  using Jobs = std::list<PictureJob>;
  struct Lane {
    Jobs shown;
    Jobs others;
    unsigned turns = 0;  // that run or are posted
    unsigned limit = 1;
  };
  using Models = std::vector<std::shared_ptr<PictureModel>>;

  PictureOrder();
  Lane& at(PictureLane lane) { return lanes_[static_cast<std::size_t>(lane)]; }
  void insert(PictureLane lane, PictureJob job);
  void startTurns(PictureLane lane);
  std::optional<PictureJob> take(PictureLane lane);
  static bool isShown(const PictureJob& job, Models& held);
  static PictureJob pop(Jobs& jobs);
  void endTurn(PictureLane lane);
  void dropAll(PictureLane lane);

  std::mutex mutex_;
  std::array<Lane, 2> lanes_;
};

// The right of one piece of work to run.
class PictureTurn {
 public:
  explicit PictureTurn(PictureLane lane) : lane_(lane) {}
  ~PictureTurn();
  PictureTurn(const PictureTurn&) = delete;
  PictureTurn& operator=(const PictureTurn&) = delete;

  static void post(PictureLane lane);

 private:
  PictureLane lane_;
  bool began_ = false;
};

}  // namespace zq::detail
