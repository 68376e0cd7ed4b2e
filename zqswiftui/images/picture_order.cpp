// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <thread>
#include <utility>
#include <zqswiftui/images/picture_order.hpp>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/services/platform.hpp>

namespace zq::detail {
namespace {

// At once: as many as Qt has connections to one server. More would wait inside of it, where one
// that is cut off takes those along that wait.
constexpr unsigned kDownloads = 6;

}  // namespace

PictureOrder& PictureOrder::shared() {
  static PictureOrder order;
  return order;
}

PictureOrder::PictureOrder() {
  at(PictureLane::local).limit = std::clamp(std::thread::hardware_concurrency(), 2u, 4u);
  at(PictureLane::remote).limit = kDownloads;
}

void PictureOrder::add(PictureLane lane, const std::shared_ptr<PictureModel>& model,
                       PictureJob::Work work) {
  if (!model) return add(lane, std::move(work));
  insert(lane, {model, model->place_, std::move(work)});
}

void PictureOrder::add(PictureLane lane, PictureJob::Work work) {
  insert(lane, {{}, std::make_shared<PicturePlace>(), std::move(work)});
}

void PictureOrder::insert(PictureLane lane, PictureJob job) {
  {
    Models held;
    const std::lock_guard lock(mutex_);
    // Under the lock: a view that begins to observe the model now finds the work in its place.
    const bool first = isShown(job, held);
    Jobs& jobs = first ? at(lane).shown : at(lane).others;
    PicturePlace& place = *job.place;
    place.at = jobs.insert(jobs.end(), std::move(job));
    place.lane = lane;
    place.first = first;
    place.waiting = true;
  }
  startTurns(lane);
}

void PictureOrder::putFirst(PicturePlace& place) {
  const std::lock_guard lock(mutex_);
  if (!place.waiting || place.first) return;
  Lane& lane = at(place.lane);
  lane.shown.splice(lane.shown.end(), lane.others, place.at);
  place.first = true;
}

void PictureOrder::startTurns(PictureLane lane) {
  {
    const std::lock_guard lock(mutex_);
    if (at(lane).turns >= at(lane).limit) return;
    ++at(lane).turns;
  }
  PictureTurn::post(lane);
}

// What is held may be the last one of its model, which must not end under the lock.
bool PictureOrder::isShown(const PictureJob& job, Models& held) {
  auto model = job.model.lock();
  if (!model) return false;
  held.push_back(std::move(model));
  return held.back()->willChange.hasListeners();
}

PictureJob PictureOrder::pop(Jobs& jobs) {
  PictureJob job = std::move(jobs.front());
  jobs.pop_front();
  job.place->waiting = false;
  return job;
}

std::optional<PictureJob> PictureOrder::take(PictureLane which) {
  Models held;
  const std::lock_guard lock(mutex_);
  Lane& lane = at(which);
  while (!lane.shown.empty()) {
    if (isShown(lane.shown.front(), held)) return pop(lane.shown);
    lane.shown.front().place->first = false;
    lane.others.splice(lane.others.end(), lane.shown, lane.shown.begin());
  }
  if (lane.others.empty()) return std::nullopt;
  return pop(lane.others);
}

void PictureOrder::endTurn(PictureLane which) {
  {
    const std::lock_guard lock(mutex_);
    Lane& lane = at(which);
    const bool more = !lane.shown.empty() || !lane.others.empty();
    if (!more || !Platform::installed()) {
      --lane.turns;
      return;
    }
  }
  PictureTurn::post(which);
}

void PictureOrder::dropAll(PictureLane which) {
  Jobs dropped;  // ended after the lock: with the work goes what it holds
  const std::lock_guard lock(mutex_);
  --at(which).turns;
  for (Lane& lane : lanes_) {
    dropped.splice(dropped.end(), lane.shown);
    dropped.splice(dropped.end(), lane.others);
  }
  for (const PictureJob& job : dropped) job.place->waiting = false;
}

void PictureTurn::post(PictureLane lane) {
  auto run = [turn = std::make_shared<PictureTurn>(lane)] {
    turn->began_ = true;
    if (const auto job = PictureOrder::shared().take(turn->lane_)) job->work(turn);
  };
  if (lane == PictureLane::local) return Queue::executeHeavy(std::move(run));
  Queue::execute(false, std::move(run));
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
