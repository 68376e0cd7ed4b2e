// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <functional>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/services/clock.hpp>
#include <zqswiftui/platform/services/platform.hpp>
#include <zqswiftui/platform/services/require.hpp>
#include <zqswiftui/platform/toolkit/inspector.hpp>
#include <zqswiftui/platform/toolkit/tree/root_node.hpp>
#include <zqswiftui/platform/toolkit/tree/tree.hpp>

namespace zq {
namespace {

constexpr double kFrame = 1.0 / 60;
constexpr int kMostFrames = 200;  // of one call, on a screen that comes to rest

// Has a piece recorded as a window would, and shows it to nobody.
class NullCanvas : public Canvas {
 public:
  void draw(const DrawCommand&, const PlayState&) override {}
  void pushClip(const Rect&) override {}
  void pushClip(const Path&, Point) override {}
  void pushOpacity(double, const Rect&) override {}
  void pushScale(double, double, Point) override {}
  void pop() override {}
};

std::string textOf(const DrawCommand& command) {
  const auto* text = std::get_if<DrawText>(&command);
  return text && text->content ? text->content->text : std::string();
}

std::string symbolOf(const DrawCommand& command) {
  const auto* symbol = std::get_if<DrawSymbol>(&command);
  return symbol ? symbol->name : std::string();
}

Paint paintOf(const DrawCommand& command) {
  return std::visit(
      [](const auto& c) -> Paint {
        if constexpr (requires { c.paint; }) {
          return c.paint;
        } else if constexpr (requires { c.color; }) {
          return c.color;
        } else {
          return Color::clear();
        }
      },
      command);
}

void look(Element& element, const DrawnCommand& drawn) {
  element.paint = paintOf(drawn.command);
  element.opacity = drawn.opacity;
  const auto* text = std::get_if<DrawText>(&drawn.command);
  if (text && text->content) element.font = text->content->font;
}

Element elementOf(const DrawnCommand& drawn) {
  Element element;
  element.found = true;
  element.bounds = drawn.bounds;
  element.visible = drawn.visible;
  element.text = textOf(drawn.command);
  element.symbol = symbolOf(drawn.command);
  look(element, drawn);
  return element;
}

// Takes over what is drawn inside of the element's bounds.
void lookInside(Element& element, const std::vector<DrawnCommand>& drawn) {
  const Rect around = element.bounds.insetBy(-0.5);
  bool marked = false;
  element.visible = {};
  for (const DrawnCommand& d : drawn) {
    const Rect& b = d.bounds;
    if (b.x < around.x || b.y < around.y || b.maxX() > around.maxX() || b.maxY() > around.maxY()) {
      continue;
    }
    element.visible = unite(element.visible, d.visible);
    const std::string text = textOf(d.command), symbol = symbolOf(d.command);
    if (d.visible.empty()) continue;
    if (!text.empty()) element.text += (element.text.empty() ? "" : " ") + text;
    if (element.symbol.empty()) element.symbol = symbol;
    const bool marks = !text.empty() || !symbol.empty();
    if (marked || (!marks && element.opacity > 0)) continue;
    look(element, d);
    marked = marks;
  }
  if (element.visible.empty()) element.visible = element.bounds;
}

Node* findIdentified(Node& node, std::string_view id) {
  const std::string* own = node.identifier();
  if (own && *own == id) return &node;
  Node* found = nullptr;
  node.forEachChild([&](Node& child) {
    if (!found) found = findIdentified(child, id);
  });
  return found;
}

void eachNode(const AccessibilityNode& node,
              const std::function<void(const AccessibilityNode&)>& visit) {
  visit(node);
  for (const AccessibilityNode& child : node.children) eachNode(child, visit);
}

void write(const AccessibilityNode& node, std::size_t depth, std::string& text) {
  text.append(2 * depth, ' ').append(roleName(node.role));
  if (!node.name.empty()) text += " \"" + node.name + '"';
  if (!node.value.empty()) text += " = \"" + node.value + '"';
  if (!node.description.empty()) text += " (" + node.description + ')';
  if (node.checked) text += *node.checked ? " on" : " off";
  if (node.selected.value_or(false)) text += " selected";
  if (!node.enabled) text += " disabled";
  if (node.focused) text += " focused";
  text += '\n';
  for (const AccessibilityNode& child : node.children) write(child, depth + 1, text);
}

}  // namespace

Color Element::color() const {
  const Color* color = paint.color();
  return color ? *color : Color::primary();
}

Point Element::center() const {
  return {visible.midX(), visible.midY()};
}

Harness::Harness(View root, Size size) {
  if (!Platform::installed()) own_ = std::make_unique<HeadlessPlatform>();
  platform_ = dynamic_cast<HeadlessPlatform*>(&Platform::current());
  ZQ_REQUIRE(platform_ != nullptr, "Harness: the installed platform is not a HeadlessPlatform");
  host_ = std::make_unique<ViewHost>(std::move(root), static_cast<HostDelegate&>(*this));
  host_->setAppearance(platform_->appearance().values());
  host_->setSize(size);
  host_->focusIn();
  settle();
}

Harness::~Harness() {
  host_.reset();
}

// --- Frames ---

void Harness::frame() {
  host_->frame();
  NullCanvas canvas;
  host_->paint(canvas, host_->damage());
  for (const Rect& rect : host_->damage().rects()) painted_.add(rect);
  host_->clearDamage();
}

void Harness::runFrames() {
  for (int i = 0; i < kMostFrames; ++i) {
    platform_->runUntilIdle();
    if (!host_->needsFrame()) return;
    frame();
  }
  ZQ_REQUIRE(!host_->needsFrame(), "Harness: the views ask for frames without end");
}

void Harness::settle() {
  painted_.clear();
  runFrames();
}

bool Harness::finish(bool taken) {
  settle();
  return taken;
}

void Harness::advance(double seconds) {
  ZQ_REQUIRE(seconds >= 0, "Harness: time runs forwards");
  painted_.clear();
  runFrames();
  const double start = platform_->clock().now(), end = start + seconds;
  for (double i = 1;; ++i) {
    const double next = std::min(end, start + i * kFrame);
    platform_->advance(std::max(0.0, next - platform_->clock().now()));
    if (host_->animating()) frame();
    runFrames();
    if (next >= end) return;
  }
}

// --- Finding ---

std::vector<DrawnCommand> Harness::drawn() {
  RecordingCanvas canvas(host_->size());
  host_->paintAll(canvas);
  std::vector<DrawnCommand> all = canvas.commands();
  // The texts of fields are drawn by the window's native editors.
  for (const TextFieldState& field : host_->textFields()) {
    const bool empty = field.text.empty();
    DrawText text;
    text.content = std::make_shared<const TextContent>(
        TextContent{empty ? field.placeholder : field.text, field.font, nullptr});
    text.rect = field.bounds;
    const auto part = [](float component) { return static_cast<double>(component); };
    text.color = Color::rgb(part(field.color.red), part(field.color.green), part(field.color.blue),
                            part(field.color.alpha));
    PlayState state;
    state.opacity = field.opacity();
    all.push_back({text, state, field.bounds, field.clip, state.opacity});
  }
  return all;
}

Element Harness::describe(const AccessibilityNode& node,
                          const std::vector<DrawnCommand>& drawn) const {
  Element element;
  element.found = true;
  element.id = node.id;
  element.bounds = node.bounds;
  element.role = node.role;
  element.name = node.name;
  element.value = node.value;
  element.description = node.description;
  element.checked = node.checked;
  element.selected = node.selected;
  element.enabled = node.enabled;
  element.focusable = node.focusable;
  element.focused = node.focused;
  lookInside(element, drawn);
  return element;
}

std::vector<Element> Harness::all(Role role) {
  std::vector<Element> elements;
  const std::vector<DrawnCommand> commands = drawn();
  eachNode(host_->accessibilityTree(), [&](const AccessibilityNode& node) {
    if (node.role == role) elements.push_back(describe(node, commands));
  });
  return elements;
}

Element Harness::find(Role role, std::string_view name) {
  for (Element& element : all(role)) {
    if (name.empty() || element.name == name) return element;
  }
  return {};
}

Element Harness::focused() {
  Element found;
  eachNode(host_->accessibilityTree(), [&](const AccessibilityNode& node) {
    if (node.focused && !found) found = describe(node, drawn());
  });
  return found;
}

std::vector<Element> Harness::texts() {
  std::vector<Element> found;
  for (const DrawnCommand& d : drawn()) {
    if (!textOf(d.command).empty() && !d.visible.empty()) found.push_back(elementOf(d));
  }
  return found;
}

std::vector<Element> Harness::symbols() {
  std::vector<Element> found;
  for (const DrawnCommand& d : drawn()) {
    if (!symbolOf(d.command).empty() && !d.visible.empty()) found.push_back(elementOf(d));
  }
  return found;
}

Element Harness::findText(std::string_view text) {
  for (const Element& element : texts()) {
    if (element.text == text) return element;
  }
  return {};
}

Element Harness::findSymbol(std::string_view symbol) {
  for (const Element& element : symbols()) {
    if (element.symbol == symbol) return element;
  }
  return {};
}

Element Harness::findId(std::string_view id) {
  Node* node = findIdentified(host_->tree().root(), id);
  if (!node) return {};
  std::vector<AccessibilityNode> inside;
  node->describe(inside);
  AccessibilityNode described;
  described.role = Role::none;
  if (inside.size() == 1) described = inside.front();
  described.bounds = node->toWindow(node->localBounds());
  return describe(described, drawn());
}

// --- Input ---

Point Harness::place(const Element& element) const {
  ZQ_REQUIRE(element.found, "Harness: input on an element that was not found");
  return element.center();
}

void Harness::movePointer(Point point) {
  pointer_ = point;
  host_->pointerMove(point);
  runFrames();
}

void Harness::pressPointer(Point point, int clicks) {
  movePointer(point);
  host_->pointerDown(point, PointerButton::primary, clicks);
  runFrames();
}

void Harness::releasePointer() {
  host_->pointerUp(pointer_, PointerButton::primary);
  runFrames();
}

void Harness::moveTo(Point point) {
  painted_.clear();
  movePointer(point);
}

void Harness::press(Point point) {
  painted_.clear();
  pressPointer(point);
}

void Harness::release() {
  painted_.clear();
  releasePointer();
}

void Harness::click(Point point) {
  press(point);
  releasePointer();
}

void Harness::doubleClick(const Element& element) {
  const Point point = place(element);
  click(point);
  pressPointer(point, 2);
  releasePointer();
}

void Harness::leave() {
  host_->pointerLeft();
  settle();
}

void Harness::drag(Point from, Point to, int steps) {
  press(from);
  for (int i = 1; i <= std::max(1, steps); ++i) {
    const double part = static_cast<double>(i) / std::max(1, steps);
    movePointer({from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part});
  }
  releasePointer();
}

bool Harness::wheel(Point point, double deltaX, double deltaY) {
  return finish(host_->wheel({point, deltaX, deltaY}));
}

bool Harness::dragOver(Point point, DropInfo info) {
  info.location = point;
  info.items.clear();
  return finish(host_->dragMoved(info));
}

void Harness::dragLeave() {
  host_->dragLeft();
  settle();
}

bool Harness::drop(Point point, DropInfo info) {
  dragOver(point, info);
  info.location = point;
  return finish(host_->drop(info));
}

bool Harness::drop(Point point, DragItems items) {
  DropInfo info{point, {}, std::move(items)};
  for (const auto& item : info.items) {
    for (std::string& type : item->types()) info.types.push_back(std::move(type));
  }
  return drop(point, std::move(info));
}

bool Harness::key(Key key, Modifiers modifiers) {
  return finish(host_->key({key, key == Key::space ? " " : "", modifiers}));
}

bool Harness::type(std::string_view text) {
  bool taken = true;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t begin = at;
    nextScalar(text, at);
    const std::string one(text.substr(begin, at - begin));
    const Key code = one == " " ? Key::space : one == "\n" ? Key::enter : Key::character;
    taken = finish(host_->key({code, code == Key::enter ? "" : one, {}})) && taken;
  }
  return taken;
}

bool Harness::tab(bool backwards) {
  return key(Key::tab, {.shift = backwards});
}

// --- Window ---

void Harness::setRoot(View root) {
  host_->setRoot(std::move(root));
  settle();
}
void Harness::resize(Size size) {
  host_->setSize(size);
  settle();
}
void Harness::setAppearance(const AppearanceValues& values) {
  host_->setAppearance(values);
  settle();
}
void Harness::setWindowActive(bool active) {
  host_->setWindowActive(active);
  settle();
}
void Harness::setVisible(bool visible) {
  host_->setVisible(visible);
  settle();
}

std::string Harness::accessibility() {
  std::string text;
  for (const AccessibilityNode& node : host_->accessibilityTree().children) write(node, 0, text);
  return text;
}

}  // namespace zq
