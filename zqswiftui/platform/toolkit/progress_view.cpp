// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>
#include <zqswiftui/platform/toolkit/progress_view.hpp>
#include <zqswiftui/platform/toolkit/tree/leaf_node.hpp>

namespace zq {
namespace {

constexpr double kBarHeight = 4;
constexpr double kBarWidth = 120;
constexpr int kMostElements = 64;
constexpr double kTurn = 0.8;  // seconds

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
        was.side_ != progress().side_) {
      invalidateMeasure();
    }
    step_ %= progress().elements_;
    spin();
    invalidatePicture();
    tree().contentChanged();
  }
  bool hasMemory() const override { return !progress().fraction_; }
  std::string debugName() const override { return "Progress"; }
  void describe(std::vector<AccessibilityNode>& out) override {
    AccessibilityNode node;
    node.id = id();
    node.role = Role::progress;
    node.bounds = toWindow(localBounds());
    if (progress().fraction_) {
      node.value = std::to_string(std::lround(*progress().fraction_ * 100)) + " %";
    } else {
      node.value = "busy";
    }
    out.push_back(std::move(node));
  }

 protected:
  Size computeSize(const ProposedSize& proposal) override {
    if (!progress().fraction_) return {progress().side_, progress().side_};
    const bool finite = proposal.width && std::isfinite(*proposal.width);
    return {finite ? *proposal.width : kBarWidth, kBarHeight};
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
  void recordBar(Piece& piece, const Rect& all) const;
  void recordSpinner(Piece& piece, const Rect& all) const;
  bool seen_ = false;
  bool spinning_ = false;  // it has a tick on the window's frames
  int step_ = 0;
};

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
  piece.emplace_back(FillRoundedRect{all, all.height / 2, false, Color::primary().opacity(0.15)});
  const double width = all.width * *progress().fraction_;
  const double x = rightToLeft() ? all.width - width : 0;
  if (width > 0) {
    piece.emplace_back(
        FillRoundedRect{{x, 0, width, all.height}, all.height / 2, false, Color::accent()});
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

ProgressView::operator View() const {
  return View::make<ProgressNode::Value>(*this);
}

}  // namespace zq
