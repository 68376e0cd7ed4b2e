// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <thread>
#include <utility>
#include <zqswiftui/images/picture_order.hpp>
#include <zqswiftui/platform/base/url.hpp>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/services/platform.hpp>

namespace zq::detail {
namespace {

// From one server at once: as many as Qt has connections to it. More would wait inside of it, where
// one that is cut off takes those along that wait.
constexpr unsigned kDownloadsOfAServer = 6;
// From all: each keeps a socket, of which a process has not many more than a thousand.
constexpr unsigned kDownloads = 64;

}  // namespace

PictureLane PictureLane::of(const Url& url) {
  if (url.isFile()) return local();
  const std::string server = url.server();
  return {server.empty() ? "none" : server};
}

PictureOrder& PictureOrder::shared() {
  static PictureOrder order;
  return order;
}

PictureOrder::PictureOrder()
    : localTurns_(std::clamp(std::thread::hardware_concurrency(), 2u, 4u)) {}

void PictureOrder::add(const PictureLane& lane, const std::shared_ptr<PictureModel>& model,
                       PictureJob::Work work) {
  Turns turns;
  {
    Models held;
    const std::lock_guard lock(mutex_);
    Lane& its = lanes_[lane.server];
    PictureJob job{model, std::move(work), lane};
    // Under the lock: a view that begins to observe the model now finds the work in its place.
    job.first = isShown(job, held);
    Jobs& jobs = job.first ? its.shown : its.others;
    jobs.push_back(std::move(job));
    if (model) model->places_->waiting.push_back(std::prev(jobs.end()));
    ask(lane, its, turns);
    grant(turns);
  }
  PictureTurn::post(turns);
}

void PictureOrder::putFirst(PicturePlaces& places) {
  const std::lock_guard lock(mutex_);
  for (const auto job : places.waiting) {
    if (std::exchange(job->first, true)) continue;
    Lane& lane = lanes_.at(job->lane.server);
    lane.shown.splice(lane.shown.end(), lane.others, job);
  }
}

void PictureOrder::ask(const PictureLane& which, Lane& lane, Turns& turns) {
  if (lane.turns >= (which.isLocal() ? localTurns_ : kDownloadsOfAServer)) return;
  if (which.isLocal()) {
    ++lane.turns;
    turns.push_back(which);
  } else if (!std::exchange(lane.asking, true)) {
    asking_.push_back(which.server);
  }
}

void PictureOrder::grant(Turns& turns) {
  const auto shown = [this](const std::string& server) { return !lanes_.at(server).shown.empty(); };
  while (!asking_.empty() && downloads_ < kDownloads) {
    auto next = std::find_if(asking_.begin(), asking_.end(), shown);
    if (next == asking_.end()) next = asking_.begin();
    const PictureLane which{std::move(*next)};
    asking_.erase(next);
    Lane& lane = lanes_.at(which.server);
    lane.asking = false;
    if (lane.size() == 0) continue;
    ++lane.turns;
    ++downloads_;
    turns.push_back(which);
    if (lane.size() > 1) ask(which, lane, turns);
  }
}

// What is held may be the last one of its model, which must not end under the lock.
bool PictureOrder::isShown(const PictureJob& job, Models& held) {
  auto model = job.model.lock();
  if (!model) return false;
  held.push_back(std::move(model));
  return held.back()->willChange.hasListeners();
}

PictureJob PictureOrder::pop(Jobs& jobs, Models& held) {
  if (auto model = jobs.front().model.lock()) {
    std::erase(model->places_->waiting, jobs.begin());
    held.push_back(std::move(model));
  }
  PictureJob job = std::move(jobs.front());
  jobs.pop_front();
  return job;
}

std::optional<PictureJob> PictureOrder::take(const PictureLane& which) {
  Models held;
  const std::lock_guard lock(mutex_);
  Lane& lane = lanes_.at(which.server);
  while (!lane.shown.empty()) {
    if (isShown(lane.shown.front(), held)) return pop(lane.shown, held);
    lane.shown.front().first = false;
    lane.others.splice(lane.others.end(), lane.shown, lane.shown.begin());
  }
  if (lane.others.empty()) return std::nullopt;
  return pop(lane.others, held);
}

void PictureOrder::uncount(const PictureLane& which) {
  --lanes_.at(which.server).turns;
  if (!which.isLocal()) --downloads_;
}

void PictureOrder::endTurn(const PictureLane& which) {
  Turns turns;
  {
    const std::lock_guard lock(mutex_);
    uncount(which);
    const auto lane = lanes_.find(which.server);
    if (Platform::installed()) {
      if (lane->second.size() > 0) ask(which, lane->second, turns);
      grant(turns);
    }
    if (lane->second.size() == 0 && lane->second.turns == 0 && !lane->second.asking) {
      lanes_.erase(lane);
    }
  }
  PictureTurn::post(turns);
}

void PictureOrder::dropAll(const PictureLane& which) {
  Jobs dropped;  // ended after the lock: with the work goes what it holds
  Models held;
  const std::lock_guard lock(mutex_);
  uncount(which);
  asking_.clear();
  for (auto& [server, lane] : lanes_) {
    dropped.splice(dropped.end(), lane.shown);
    dropped.splice(dropped.end(), lane.others);
    lane.asking = false;
  }
  std::erase_if(lanes_, [](const auto& lane) { return lane.second.turns == 0; });
  for (const PictureJob& job : dropped) {
    if (auto model = job.model.lock()) {
      model->places_->waiting.clear();
      held.push_back(std::move(model));
    }
  }
}

void PictureTurn::post(const std::vector<PictureLane>& lanes) {
  for (const PictureLane& lane : lanes) {
    auto run = [turn = std::make_shared<PictureTurn>(lane)] {
      turn->began_ = true;
      if (const auto job = PictureOrder::shared().take(turn->lane_)) job->work(turn);
    };
    if (lane.isLocal()) {
      Queue::executeHeavy(std::move(run));
    } else {
      Queue::execute(false, std::move(run));
    }
  }
}

PictureTurn::~PictureTurn() {
  // The platform drops what it does not begin any more only when it ends.
  if (began_) {
    PictureOrder::shared().endTurn(lane_);
  } else {
    PictureOrder::shared().dropAll(lane_);
  }
}

}  // namespace zq::detail
