// ZQSwiftUI, MIT licence; see LICENSE.
#include <cmath>
#include <numbers>
#include <zqswiftui/platform/toolkit/progress_view.hpp>
#include <zqswiftui/platform/toolkit/tree/leaf_node.hpp>

namespace zq {
namespace {

constexpr double kSpinner = 16;
constexpr double kBarHeight = 4;
constexpr double kBarWidth = 120;
constexpr int kSpokes = 8;
constexpr double kTurn = 0.8;  // seconds

}  // namespace

class ProgressNode final : public LeafNode {
 public:
  using Value = PrimitiveValue<ProgressView, ProgressNode>;
  using LeafNode::LeafNode;

  void mount() override { spin(); }
  void update(const View& next) override {
    const ProgressView was = progress();
    setView(next);
    if (was == progress()) return;
    if (was.fraction_.has_value() != progress().fraction_.has_value()) {
      invalidateMeasure();
      spin();
    }
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
    }
    out.push_back(std::move(node));
  }

 protected:
  Size computeSize(const ProposedSize& proposal) override {
    if (!progress().fraction_) return {kSpinner, kSpinner};
    const bool finite = proposal.width && std::isfinite(*proposal.width);
    return {finite ? *proposal.width : kBarWidth, kBarHeight};
  }
  void record(Piece& piece) override;

 private:
  const ProgressView& progress() const { return static_cast<const Value&>(*view().value()).value; }
  void spin();
  int step_ = 0;
};

void ProgressNode::spin() {
  if (progress().fraction_ || environment().reducedMotion) return;
  tree().animate(*this, [this](double now) {
    const int step = static_cast<int>(std::fmod(now / kTurn, 1.0) * kSpokes);
    if (step != step_) {
      step_ = step;
      invalidatePicture();
    }
    return !progress().fraction_ && !environment().reducedMotion;
  });
}

void ProgressNode::record(Piece& piece) {
  const Rect all = localBounds();
  if (all.empty()) return;
  if (progress().fraction_) {
    piece.emplace_back(FillRoundedRect{all, all.height / 2, false, Color::primary().opacity(0.15)});
    const double width = all.width * *progress().fraction_;
    const double x = rightToLeft() ? all.width - width : 0;
    if (width > 0) {
      piece.emplace_back(
          FillRoundedRect{{x, 0, width, all.height}, all.height / 2, false, Color::accent()});
    }
    return;
  }
  for (int i = 0; i < kSpokes; ++i) {
    const double angle = 2 * std::numbers::pi * i / kSpokes - std::numbers::pi / 2;
    const double outer = std::min(all.width, all.height) / 2 - 1, inner = outer * 0.5;
    const Point c{all.midX(), all.midY()};
    Path spoke;
    spoke.moveTo({c.x + inner * std::cos(angle), c.y + inner * std::sin(angle)});
    spoke.lineTo({c.x + outer * std::cos(angle), c.y + outer * std::sin(angle)});
    const int age = (step_ - i + kSpokes) % kSpokes;
    piece.emplace_back(StrokePath{std::make_shared<const Path>(std::move(spoke)),
                                  all,
                                  {.lineWidth = 2, .roundCap = true, .dash = {}},
                                  Color::primary().opacity(0.8 - 0.09 * age)});
  }
}

ProgressView::ProgressView(double fraction)
    : fraction_(fraction > 0 ? std::min(fraction, 1.0) : 0.0) {}

ProgressView::operator View() const {
  return View::make<ProgressNode::Value>(*this);
}

}  // namespace zq
