// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <zqswiftui/platform/toolkit/tree/leaf_node.hpp>

namespace zq {
namespace {

// What a command is drawn with; none for a picture.
template <class Command>
auto* inkOf(Command& command) {
  if constexpr (requires { command.paint; }) {
    return &command.paint;
  } else if constexpr (requires { command.color; }) {
    return &command.color;
  } else {
    return static_cast<Color*>(nullptr);
  }
}

std::vector<Paint> inksOf(const std::vector<DrawCommand>& piece) {
  std::vector<Paint> inks;
  for (const DrawCommand& command : piece) {
    const auto ink = [](const auto& c) { return inkOf(c) ? Paint(*inkOf(c)) : Paint(); };
    inks.push_back(std::visit(ink, command));
  }
  return inks;
}

bool sameShape(const std::vector<DrawCommand>& a, const std::vector<DrawCommand>& b) {
  const auto alike = [](const auto& x, const auto& y) { return x.index() == y.index(); };
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), alike);
}

// With the alpha multiplied in, so that nothing looks darker on its way to a clear colour.
Color mix(const Color& from, const Color& to, double t, ColorScheme scheme) {
  const RGBA a = from.resolve(scheme), b = to.resolve(scheme);
  const double alpha = zq::mix(a.alpha, b.alpha, t);
  if (!(alpha > 0)) return Color::clear();
  const auto part = [&](float x, float y) { return zq::mix(x * a.alpha, y * b.alpha, t) / alpha; };
  return Color::rgb(part(a.red, b.red), part(a.green, b.green), part(a.blue, b.blue), alpha);
}

// Between a colour and a gradient, or gradients of unlike stops, there is no way.
Paint mix(const Paint& from, const Paint& to, double t, ColorScheme scheme) {
  if (from.color() && to.color()) return mix(*from.color(), *to.color(), t, scheme);
  if (from.color() || to.color()) return to;
  const LinearGradient& before = *from.gradient();
  LinearGradient result = *to.gradient();
  if (before.stops.size() != result.stops.size()) return to;
  for (std::size_t i = 0; i < result.stops.size(); ++i) {
    const LinearGradient::Stop& stop = before.stops[i];
    result.stops[i] = {mix(stop.color, result.stops[i].color, t, scheme),
                       zq::mix(stop.location, result.stops[i].location, t)};
  }
  return result;
}

}  // namespace

void LeafNode::invalidatePicture() {
  recorded_ = false;
  damageAll();
  if (animation()) askForFade();
}

void LeafNode::askForFade() {
  const bool listed = fade_ != nullptr;
  if (!listed) fade_ = std::make_unique<Fade>();
  fade_->asked = {tree().now(), *animation()};
  if (listed) return;
  tree().animate(*this, [this](double now) {
    const auto& lasting = fade_->asked ? fade_->asked : fade_->way;
    const bool over = !lasting || lasting->over(now);
    if (fade_->way) {
      recorded_ = false;
      damageAll();
    }
    if (over) fade_.reset();
    return !over;
  });
}

void LeafNode::fade(const Piece& before) {
  std::vector<Paint> goal = inksOf(piece_);
  if (!fade_->way || goal != fade_->to) {
    fade_->way = sameShape(before, piece_) ? fade_->asked : std::nullopt;
    fade_->from = inksOf(before);
    if (fade_->from == goal) fade_->way.reset();
    fade_->to = std::move(goal);
  }
  fade_->asked.reset();
  if (!fade_->way) return;
  const double t = fade_->way->animation.progress(tree().now() - fade_->way->start);
  for (std::size_t i = 0; i < piece_.size(); ++i) {
    const Paint ink = mix(fade_->from[i], fade_->to[i], t, environment().colorScheme);
    const auto apply = [&](auto& command) {
      if (auto* place = inkOf(command)) {
        if constexpr (std::is_same_v<decltype(place), Color*>) {
          *place = *ink.color();
        } else {
          *place = ink;
        }
      }
    };
    std::visit(apply, piece_[i]);
  }
}

void LeafNode::paint(PaintPass& pass, Point origin) {
  if (!recorded_) {
    const Piece before = fade_ ? piece_ : Piece();
    piece_.clear();
    record(piece_);
    if (fade_) fade(before);
    recorded_ = true;
    ++tree().counts().piecesRecorded;
  }
  if (piece_.empty()) return;
  const PlayState state = playState(pass, origin);
  for (const DrawCommand& command : piece_) pass.canvas.draw(command, state);
}

}  // namespace zq
