// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <zqswiftui/platform/services/platform.hpp>
#include <zqswiftui/platform/toolkit/inspector.hpp>
#include <zqswiftui/platform/toolkit/tree/component_node.hpp>
#include <zqswiftui/platform/toolkit/tree/root_node.hpp>
#include <zqswiftui/platform/toolkit/tree/tree.hpp>

namespace zq {
namespace {

constexpr std::array<std::string_view, 13> kRoleNames{
    "none",     "group",      "text", "button",   "toggle", "textField", "image",
    "progress", "scrollArea", "list", "listItem", "slider", "window"};
constexpr double kGap = 8;             // of labels from what they stand beside
constexpr double kInset = 6;           // of the texts in them
constexpr std::size_t kMostNamed = 8;  // evaluated components that are listed
constexpr std::size_t kMostAround = 3;
constexpr double kWidestLabel = 420;

// "zq::(anonymous namespace)::Row<std::string>" is a Row.
std::string shortName(const std::string& type) {
  const std::string whole = type.substr(0, type.find('<'));
  const std::size_t colon = whole.rfind("::");
  return colon == std::string::npos ? whole : whole.substr(colon + 2);
}

Rect visibleInWindow(const Node& node) {
  return node.toWindow(intersection(node.localBounds(), node.visibleRect()));
}

// The names of the innermost components at the point of the node, from the inside out; whether
// there are any. What lies in front and is no component, as an outline, hides none behind it.
bool componentsAt(Node& node, Point point, std::vector<std::string>& names) {
  const bool inside = node.localBounds().contains(point);
  if (!inside && (node.clipsChildren() || !node.bounds().contains(point))) return false;
  std::vector<Node*> children;
  node.forEachChild([&](Node& child) { children.push_back(&child); });
  bool found = false;
  for (auto it = children.rbegin(); it != children.rend() && !found; ++it) {
    found = componentsAt(**it, node.mapToChild(**it, point), names);
  }
  const bool component = dynamic_cast<const ComponentNode*>(&node) != nullptr;
  if (component && (found || inside) && names.size() < kMostAround) {
    names.push_back(shortName(node.debugName()));
  }
  return found || (component && inside);
}

Color colorOf(Role role) {
  switch (role) {
    case Role::button:
    case Role::toggle:
    case Role::slider:
    case Role::textField:
      return Color::blue();
    case Role::text:
    case Role::image:
    case Role::progress:
      return Color::green();
    default:
      return Color::gray();
  }
}

void addOutline(std::vector<DrawCommand>& commands, const Rect& rect, double width,
                const Color& color) {
  const double w = std::min({width, rect.width / 2, rect.height / 2});
  commands.push_back(FillRect{{rect.x, rect.y, rect.width, w}, color});
  commands.push_back(FillRect{{rect.x, rect.maxY() - w, rect.width, w}, color});
  commands.push_back(FillRect{{rect.x, rect.y + w, w, rect.height - 2 * w}, color});
  commands.push_back(FillRect{{rect.maxX() - w, rect.y + w, w, rect.height - 2 * w}, color});
}

// Lines of text on a dark ground; its place is found from its size.
template <class Place>
void addPanel(std::vector<DrawCommand>& commands, const std::vector<std::string>& lines,
              const Place& place) {
  const TextMeasurer& measurer = Platform::current().textMeasurer();
  const FontSpec font = measurer.styleFont(TextStyle::caption);
  const double line = std::ceil(measurer.metrics(font).lineHeight);
  double widest = 0;
  for (const std::string& text : lines) {
    widest = std::max(widest, std::min(measurer.lineWidth(text, font), kWidestLabel));
  }
  const Size size{std::ceil(widest) + 2 * kInset,
                  line * static_cast<double>(lines.size()) + 2 * kInset};
  const Rect ground = Rect::of(place(size), size);
  commands.push_back(FillRoundedRect{ground, 6, false, Color::black().opacity(0.92)});
  Rect row{ground.x + kInset, ground.y + kInset, ground.width - 2 * kInset, line};
  for (const std::string& text : lines) {
    DrawText drawn;
    drawn.content = std::make_shared<const TextContent>(TextContent{text, font, nullptr});
    drawn.rect = row;
    drawn.maxLines = 1;
    drawn.singleLine = measurer.lineWidth(text, font) <= row.width;
    drawn.color = Color::white();
    commands.push_back(std::move(drawn));
    row.y += line;
  }
}

std::string counted(std::uint64_t count, const std::string& one, const std::string& many) {
  return std::to_string(count) + ' ' + (count == 1 ? one : many);
}

}  // namespace

std::string_view roleName(Role role) {
  return kRoleNames[static_cast<std::size_t>(role)];
}

Inspector::Inspector(ViewHost& host) : host_(host), before_(host.counts()), seen_(before_) {
  host_.tree().takeEvaluated();
}

Inspector::~Inspector() {
  host_.tree().stopNoting();
}

void Inspector::frameEnded() {
  before_ = std::exchange(seen_, host_.counts());
  painted_ = host_.damage();
  flashing_ = true;
  evaluated_.clear();
  for (const Node* node : host_.tree().takeEvaluated()) {
    evaluated_.push_back({shortName(node->debugName()), visibleInWindow(*node)});
  }
}

void Inspector::endFlash() {
  flashing_ = false;
}

bool Inspector::setPointer(std::optional<Point> point) {
  return std::exchange(pointer_, point) != point;
}

void Inspector::lookAgain() {
  // Bounds on their way to another place are others in each frame.
  if (std::exchange(elementsOf_, host_.accessibilityVersion()) == host_.accessibilityVersion() &&
      !host_.animating()) {
    return;
  }
  elements_.clear();
  AccessibilityNode root = host_.accessibilityTree();
  for (AccessibilityNode& child : root.children) outline(child, root.bounds);
}

void Inspector::outline(AccessibilityNode& node, const Rect& clip) {
  const Rect visible = intersection(node.bounds, clip);
  const Rect inside = node.role == Role::scrollArea ? visible : clip;
  std::vector<AccessibilityNode> children = std::move(node.children);
  if (!visible.empty()) elements_.push_back({std::move(node), visible});
  for (AccessibilityNode& child : children) outline(child, inside);
}

// Children come after what they are in, and what is in front after what is behind.
const Inspector::Outlined* Inspector::underPointer() const {
  if (!pointer_) return nullptr;
  const auto found = std::find_if(elements_.rbegin(), elements_.rend(),
                                  [&](const Outlined& e) { return e.visible.contains(*pointer_); });
  return found == elements_.rend() ? nullptr : &*found;
}

void Inspector::addLabel(std::vector<DrawCommand>& commands, const Outlined& of) const {
  addOutline(commands, of.visible, 2, Color::orange());
  std::string title(roleName(of.node.role));
  if (!of.node.name.empty()) title += " \"" + of.node.name + '"';
  if (!of.node.value.empty()) title += " = \"" + of.node.value + '"';
  if (!of.node.enabled) title += " disabled";
  std::string around;
  std::vector<std::string> names;
  componentsAt(host_.tree().root(), *pointer_, names);
  for (const std::string& name : names) around += (around.empty() ? "" : " in ") + name;
  std::vector<std::string> lines{title, zq::describe(of.node.bounds)};
  if (!around.empty()) lines.push_back(around);
  const Size window = host_.size();
  addPanel(commands, lines, [&](Size size) {
    const bool below = of.visible.maxY() + kGap / 2 + size.height <= window.height;
    const double y = below ? of.visible.maxY() + kGap / 2 : of.visible.y - kGap / 2 - size.height;
    return Point{std::max(0.0, std::min(of.visible.x, window.width - size.width)),
                 std::max(0.0, y)};
  });
}

void Inspector::addCounts(std::vector<DrawCommand>& commands) {
  seen_ = host_.counts();
  const Size window = host_.size();
  double area = 0;
  for (const Rect& rect : painted_.rects()) area += rect.width * rect.height;
  const double share = window.width * window.height > 0 ? area / (window.width * window.height) : 0;
  const std::string percent = std::to_string(std::lround(100 * std::min(share, 1.0))) + " %";
  std::vector<std::string> lines{
      "Frame " + std::to_string(seen_.frames),
      counted(seen_.bodies - before_.bodies, "body", "bodies") + " evaluated",
      counted(seen_.textsMeasured - before_.textsMeasured, "text", "texts") + " measured",
      counted(seen_.piecesRecorded - before_.piecesRecorded, "piece", "pieces") + " recorded",
      counted(painted_.rects().size(), "area", "areas") + " painted, " + percent};
  for (std::size_t i = 0; i < std::min(evaluated_.size(), kMostNamed); ++i) {
    const Evaluated& e = evaluated_[i];
    lines.push_back(e.name + ' ' + (e.visible.empty() ? "unseen" : zq::describe(e.visible)));
  }
  if (evaluated_.size() > kMostNamed) {
    lines.push_back("and " + std::to_string(evaluated_.size() - kMostNamed) + " more");
  }
  addPanel(commands, lines, [&](Size size) {
    const Point right{window.width - size.width - kGap, window.height - size.height - kGap};
    // It makes way for the pointer.
    const bool over = pointer_ && Rect::of(right, size).insetBy(-kGap).contains(*pointer_);
    return Point{over ? kGap : right.x, right.y};
  });
}

std::vector<DrawCommand> Inspector::commands() {
  lookAgain();
  std::vector<DrawCommand> all;
  if (flashing_) {
    for (const Rect& rect : painted_.rects()) {
      all.push_back(FillRect{rect, Color::pink().opacity(0.2)});
    }
    for (const Evaluated& e : evaluated_) {
      if (!e.visible.empty()) addOutline(all, e.visible, 3, Color::purple().opacity(0.6));
    }
  }
  for (const Outlined& e : elements_) {
    addOutline(all, e.visible, 1, colorOf(e.node.role).opacity(0.7));
  }
  addCounts(all);
  if (const Outlined* found = underPointer()) addLabel(all, *found);
  return all;
}

void Inspector::paint(Canvas& canvas) {
  for (const DrawCommand& command : commands()) canvas.draw(command, {});
}

}  // namespace zq
