// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <list>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>
#include <zqswiftui/images/picture_model.hpp>
#include <zqswiftui/platform/services/std_function.hpp>

// Inside of images/ only.
namespace zq {
class Url;
}

namespace zq::detail {

class PictureTurn;

// Reading and decoding keep the processors busy; downloads wait for servers, and those of one must
// keep neither files nor other servers waiting.
struct PictureLane {
  std::string server;  // empty: what is read and decoded here

  static PictureLane local() { return {}; }
  static PictureLane of(const Url& url);
  bool isLocal() const { return server.empty(); }
};

// The work for one model. It keeps the turn for as long as it goes on, be it by itself or in a
// task; the next work of the lane begins when the turn is let go of.
struct PictureJob {
  using Work = std::function<void(std::shared_ptr<PictureTurn>)>;
  std::weak_ptr<PictureModel> model;
  Work work;
  PictureLane lane;
  bool first = false;  // in the list of what is shown
};

// Where a model's work waits, under the lock of the order.
struct PicturePlaces {
  std::vector<std::list<PictureJob>::iterator> waiting;
};

// The order in which pictures are loaded: what a view observes first, in the order in which the
// views began to, then the rest as it was asked for. A few at a time, each in a piece of background
// work of its own, so that other work gets its turn among hundreds of pictures; what is done here
// is heavy work, which leaves a processor to the interface thread.
//
// A step costs the same however many wait: work goes to the front when a view begins to observe
// its model, and back when its turn comes and nobody observes the model any more. Only where more
// is downloaded at once than may be, those that are shown are looked for among the servers.
//
// What waits when the platform ends goes with it. Any thread.
class PictureOrder {
 public:
  static PictureOrder& shared();

  // A model that is gone counts as one that nobody shows.
  void add(const PictureLane& lane, const std::shared_ptr<PictureModel>& model,
           PictureJob::Work work);
  void putFirst(PicturePlaces& places);

 private:
  friend class PictureTurn;
  using Jobs = std::list<PictureJob>;
  struct Lane {
    Jobs shown;
    Jobs others;
    unsigned turns = 0;   // that run or are posted
    bool asking = false;  // for another turn
    std::size_t size() const { return shown.size() + others.size(); }
  };
  using Models = std::vector<std::shared_ptr<PictureModel>>;

  using Turns = std::vector<PictureLane>;  // to be posted without the lock

  PictureOrder();
  void ask(const PictureLane& which, Lane& lane, Turns& turns);
  void grant(Turns& turns);
  std::optional<PictureJob> take(const PictureLane& which);
  static bool isShown(const PictureJob& job, Models& held);
  static PictureJob pop(Jobs& jobs, Models& held);
  void endTurn(const PictureLane& which);
  void dropAll(const PictureLane& which);
  void uncount(const PictureLane& which);

  std::mutex mutex_;
  std::unordered_map<std::string, Lane> lanes_;  // those that have work or turns
  std::list<std::string> asking_;                // servers, in the order of their asking
  unsigned localTurns_;                          // at once
  unsigned downloads_ = 0;                       // that run or are posted
};

// The right of one piece of work to run.
class PictureTurn {
 public:
  explicit PictureTurn(PictureLane lane) : lane_(std::move(lane)) {}
  ~PictureTurn();
  PictureTurn(const PictureTurn&) = delete;
  PictureTurn& operator=(const PictureTurn&) = delete;

  // One for each.
  static void post(const std::vector<PictureLane>& lanes);

 private:
  PictureLane lane_;
  bool began_ = false;
};

}  // namespace zq::detail
