// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <cmath>
#include <zqswiftui/platform/base/image_cache.hpp>
#include <zqswiftui/platform/base/url_loader.hpp>
#include <zqswiftui/platform/toolkit/image.hpp>
#include <zqswiftui/platform/toolkit/tree/leaf_node.hpp>

namespace zq {
namespace {

// A symbol's square is a little taller than the letters beside it.
constexpr double kSymbolToFont = 1.25;

// "arrow.right.circle" is read out as "arrow right".
std::string spoken(const std::string& symbol) {
  std::string name = symbol;
  for (const char* ending : {".fill", ".circle", ".square", ".rectangle"}) {
    if (name.ends_with(ending)) name.erase(name.size() - std::string_view(ending).size());
  }
  std::replace(name.begin(), name.end(), '.', ' ');
  return name;
}

}  // namespace

class ImageNode final : public LeafNode {
 public:
  using Value = PrimitiveValue<Image, ImageNode>;
  using LeafNode::LeafNode;

  void mount() override { resolve(); }
  void update(const View& next) override {
    const Image was = image();
    const Size size = idealSize();
    setView(next);
    if (was == image()) return;
    resolve();
    const Image& now = image();
    const bool scaledAlike = was.resizable_ == now.resizable_ && was.mode_ == now.mode_;
    if (!scaledAlike || !(size == idealSize())) invalidateMeasure();
    invalidatePicture();
    tree().contentChanged();
  }
  std::string debugName() const override { return "Image"; }
  std::string accessibleText() override { return image().label_; }
  std::string symbolText() override { return spoken(image().symbol_); }
  void describe(std::vector<AccessibilityNode>& out) override;

 protected:
  Size computeSize(const ProposedSize& proposal) override;
  void record(Piece& piece) override;
  void environmentChanged(const Environment& old) override;

 private:
  const Image& image() const { return static_cast<const Value&>(*view().value()).value; }
  Size idealSize() const;
  void resolve() {
    font_ = tree().texts().fontNumber(image().ownFont_ ? image().font_ : environment().font,
                                      environment().textScale);
  }
  int font_ = 0;
};

void ImageNode::environmentChanged(const Environment& old) {
  const bool sameFont = old.font == environment().font;
  if (!sameFont || old.textScale != environment().textScale) {
    resolve();
    invalidateMeasure();
  }
  invalidatePicture();
}

Size ImageNode::idealSize() const {
  const Image& i = image();
  if (i.symbol_.empty()) {
    if (!i.picture_) return {};
    return {static_cast<double>(i.picture_->width()), static_cast<double>(i.picture_->height())};
  }
  const double side = std::ceil(tree().texts().resolved(font_).size * kSymbolToFont);
  return {side, side};
}

Size ImageNode::computeSize(const ProposedSize& proposal) {
  const Size ideal = idealSize();
  if (!image().resizable_ || ideal.width <= 0 || ideal.height <= 0) return ideal;
  const Size room = proposal.replacingUnspecified(ideal);
  const auto mode = image().mode_;
  if (!mode) return room;
  std::optional<double> factor;
  const auto meet = [&](const std::optional<double>& offered, double length) {
    if (!offered || !std::isfinite(*offered)) return;
    const double own = *offered / length;
    if (!factor) factor = own;
    factor = *mode == ContentMode::fit ? std::min(*factor, own) : std::max(*factor, own);
  };
  meet(proposal.width, ideal.width);
  meet(proposal.height, ideal.height);
  return {ideal.width * factor.value_or(1), ideal.height * factor.value_or(1)};
}

void ImageNode::record(Piece& piece) {
  const Image& i = image();
  const Rect all = localBounds();
  if (all.empty()) return;
  if (i.symbol_.empty()) {
    if (i.picture_) piece.emplace_back(DrawPicture{*i.picture_, all});
    return;
  }
  const SymbolDrawing* drawing = findSymbol(i.symbol_);
  if (!drawing) return;
  const double side = std::min(all.width, all.height);
  Color color = i.color_ ? *i.color_ : environment().foreground.value_or(Color::primary());
  if (!environment().enabled) color = color.opacity(0.4);
  piece.emplace_back(DrawSymbol{
      drawing, i.symbol_, {all.midX() - side / 2, all.midY() - side / 2, side, side}, color});
}

void ImageNode::describe(std::vector<AccessibilityNode>& out) {
  if (image().label_.empty()) return;  // decoration
  AccessibilityNode node;
  node.id = id();
  node.role = Role::image;
  node.name = image().label_;
  node.bounds = toWindow(localBounds());
  node.enabled = environment().enabled;
  out.push_back(std::move(node));
}

Image::Image(ZQImage picture) : picture_(std::move(picture)) {}

Image Image::symbol(std::string name) {
  return with(Image(), &Image::symbol_, std::move(name));
}

Image Image::named(const std::string& name) {
  return with(Image(), &Image::picture_, ImageCache::getImage(name));
}

std::optional<Image> Image::fromUrl(const Url& url) {
  const Result<Bytes> bytes = loadUrlAndWait(url);
  return bytes.ok() ? swiftUIImage(bytes.value()) : std::nullopt;
}

std::optional<Image> Image::fromUrl(const Url& url, int andResizeTo) {
  const Result<Bytes> bytes = loadUrlAndWait(url, {.seconds = 0});
  const auto whole = bytes.ok() ? zqImage(bytes.value()) : std::nullopt;
  const auto scaled = whole ? whole->resizeWithMaxSide(andResizeTo) : std::nullopt;
  return scaled ? std::optional(Image(*scaled)) : std::nullopt;
}

std::optional<Image> swiftUIImage(std::span<const std::uint8_t> bytes) {
  auto picture = zqImage(bytes);
  return picture ? std::optional(Image(std::move(*picture))) : std::nullopt;
}

Image Image::font(Font font) const {
  return with(with(*this, &Image::font_, font), &Image::ownFont_, true);
}

Image Image::foregroundColor(std::optional<Color> color) const {
  return color ? with(*this, &Image::color_, color) : *this;
}

Image Image::resizable(bool aspectFit) const {
  const auto mode = aspectFit ? std::optional(ContentMode::fit) : std::nullopt;
  return with(with(*this, &Image::resizable_, true), &Image::mode_, mode);
}

Image Image::resizable(ContentMode mode) const {
  return with(with(*this, &Image::resizable_, true), &Image::mode_, std::optional(mode));
}

Image Image::accessibilityLabel(std::string label) const {
  return with(*this, &Image::label_, std::move(label));
}

Image::operator View() const {
  return View::make<ImageNode::Value>(*this);
}

}  // namespace zq
