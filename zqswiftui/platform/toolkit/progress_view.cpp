// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>
#include <zqswiftui/platform/toolkit/progress_view.hpp>
#include <zqswiftui/platform/toolkit/tree/leaf_node.hpp>
#include <zqswiftui/platform/toolkit/tree/moving.hpp>

namespace zq {
namespace {

constexpr double kBarWidth = 120;
constexpr int kMostElements = 64;
constexpr double kTurn = 0.8;  // seconds

// What is done of a bar that is not as far as it is high: where the circles of its two round ends
// meet, so that it begins as a sliver and no smaller fraction looks like a larger one.
std::shared_ptr<const Path> sliver(double x, double width, double height) {
  const double radius = height / 2;
  const double angle = std::acos(1 - width / height);
  Path path;
  path.addArc({x + width - radius, radius}, radius, -angle, angle);
  path.addArc({x + radius, radius}, radius, std::numbers::pi - angle, std::numbers::pi + angle);
  return std::make_shared<const Path>(std::move(path.close()));
}

std::string percents(double fraction) {
  return std::to_string(std::lround(fraction * 100)) + " %";
}

}  // namespace

class ProgressNode final : public LeafNode {
 public:
  using Value = PrimitiveValue<ProgressView, ProgressNode>;
  using LeafNode::LeafNode;

  void mount() override {
    tree().addVisibilityListener(*this, [this](const Rect&) {
      seen_ = canBeSeen();
      spin();
    });
  }
  void update(const View& next) override {
    const ProgressView was = progress();
    setView(next);
    if (was == progress()) return;
    if (was.fraction_.has_value() != progress().fraction_.has_value() ||
        was.side_ != progress().side_ || was.barHeight_ != progress().barHeight_) {
      invalidateMeasure();
    }
    step_ %= progress().elements_;
    spin();
    move(was.fraction_);
    invalidatePicture();
    if (!was.fraction_ || !progress().fraction_ ||
        percents(*was.fraction_) != percents(*progress().fraction_)) {
      tree().contentChanged();
    }
  }
  bool hasMemory() const override { return !progress().fraction_ || fraction_.underWay(); }
  std::string debugName() const override { return "Progress"; }
  void describe(std::vector<AccessibilityNode>& out) override {
    AccessibilityNode node;
    node.id = id();
    node.role = Role::progress;
    node.bounds = toWindow(localBounds());
    if (progress().fraction_) {
      node.value = percents(*progress().fraction_);
      node.number = {.value = *progress().fraction_};
    } else {
      node.value = "busy";
    }
    out.push_back(std::move(node));
  }

 protected:
  Size computeSize(const ProposedSize& proposal) override {
    if (!progress().fraction_) return {progress().side_, progress().side_};
    const bool finite = proposal.width && std::isfinite(*proposal.width);
    return {finite ? *proposal.width : kBarWidth, progress().barHeight_};
  }
  void record(Piece& piece) override;
  void environmentChanged(const Environment& old) override {
    LeafNode::environmentChanged(old);
    spin();
  }

 private:
  const ProgressView& progress() const { return static_cast<const Value&>(*view().value()).value; }
  bool turns() const { return seen_ && !progress().fraction_ && !environment().reducedMotion; }
  void spin();
  void move(const std::optional<double>& from);
  void recordBar(Piece& piece, const Rect& all) const;
  void recordSpinner(Piece& piece, const Rect& all) const;
  bool seen_ = false;
  bool spinning_ = false;  // it has a tick on the window's frames
  int step_ = 0;
  Moving<double> fraction_;
};

void ProgressNode::move(const std::optional<double>& from) {
  const std::optional<double>& to = progress().fraction_;
  if (!from || !to || *from == *to) return;
  std::optional<Animation> animation = Node::animation();
  if (!animation && progress().animated_ && !environment().reducedMotion) {
    animation = progress().animation_;
  }
  fraction_.change(
      *this, *from, *to, [this] { invalidatePicture(); }, animation);
}

void ProgressNode::spin() {
  if (!turns() || std::exchange(spinning_, true)) return;
  tree().animate(*this, [this](double now) {
    spinning_ = turns();
    if (!spinning_) return false;
    const int step = static_cast<int>(std::fmod(now / kTurn, 1.0) * progress().elements_);
    if (step != step_) {
      step_ = step;
      invalidatePicture();
    }
    return true;
  });
}

void ProgressNode::record(Piece& piece) {
  const Rect all = localBounds();
  if (all.empty()) return;
  progress().fraction_ ? recordBar(piece, all) : recordSpinner(piece, all);
}

void ProgressNode::recordBar(Piece& piece, const Rect& all) const {
  piece.emplace_back(FillRoundedRect{all, all.height / 2, false, progress().rest_});
  const double width = all.width * fraction_.shown(*progress().fraction_);
  const Rect done{rightToLeft() ? all.width - width : 0, 0, width, all.height};
  if (!(width > 0)) return;
  if (width < all.height && all.height <= all.width) {
    piece.emplace_back(FillPath{sliver(done.x, width, all.height), done, progress().done_});
  } else {
    piece.emplace_back(FillRoundedRect{done, all.height / 2, false, progress().done_});
  }
}

void ProgressNode::recordSpinner(Piece& piece, const Rect& all) const {
  const int count = progress().elements_;
  const double side = std::min(all.width, all.height);
  const double outer = side * 7 / 16, inner = outer / 2;
  // Many spokes are thinner, so that they do not touch each other where they begin.
  const double apart = 2 * std::numbers::pi * inner / count;
  const StrokeStyle line{
      .lineWidth = std::min(side / 8, 0.75 * apart), .roundCap = true, .dash = {}};
  const Color color = environment().foreground.value_or(Color::primary());
  const Point c{all.midX(), all.midY()};
  for (int i = 0; i < count; ++i) {
    const double angle = 2 * std::numbers::pi * i / count - std::numbers::pi / 2;
    Path spoke;
    spoke.moveTo({c.x + inner * std::cos(angle), c.y + inner * std::sin(angle)});
    spoke.lineTo({c.x + outer * std::cos(angle), c.y + outer * std::sin(angle)});
    const int age = (step_ - i + count) % count;
    piece.emplace_back(StrokePath{std::make_shared<const Path>(std::move(spoke)), all, line,
                                  color.opacity(0.8 - 0.72 * age / count)});
  }
}

ProgressView::ProgressView(double fraction)
    : fraction_(fraction > 0 ? std::min(fraction, 1.0) : 0.0) {}

ProgressView ProgressView::spinner(int elements, double side) {
  ProgressView spinner;
  spinner.elements_ = std::clamp(elements, 1, kMostElements);
  spinner.side_ = sanitized(side);
  return spinner;
}

ProgressView ProgressView::barColors(Color done, Color rest) const {
  return with(with(*this, &ProgressView::done_, done), &ProgressView::rest_, rest);
}
ProgressView ProgressView::barHeight(double height) const {
  return with(*this, &ProgressView::barHeight_, sanitized(height));
}
ProgressView ProgressView::animated(const Animation& animation) const {
  return with(with(*this, &ProgressView::animation_, animation), &ProgressView::animated_, true);
}

ProgressView::operator View() const {
  return View::make<ProgressNode::Value>(*this);
}

}  // namespace zq
