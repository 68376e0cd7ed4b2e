// ZQSwiftUI, MIT licence; see LICENSE.
#include <QElapsedTimer>
#include <QPointer>
#include <QTransform>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/qt/lru_images.hpp>
#include <zqswiftui/platform/qt/picture_cache.hpp>
#include <zqswiftui/platform/qt/picture_reduction.hpp>

namespace zq::qt {
namespace {

constexpr std::size_t kPictureBytes = std::size_t{64} << 20;

// What the interface thread reduces itself: a picture of that many pixels, and that many of all
// pictures in so many milliseconds. That takes it about two of them; a thousandth of a second each.
constexpr std::int64_t kPixelsAtOnce = std::int64_t{1} << 18;
constexpr std::int64_t kPixelsOfAMoment = std::int64_t{3} << 20;
constexpr qint64 kMoment = 8;

struct Key {
  std::string identity;
  QSize pixels;
  bool operator==(const Key&) const = default;
};

struct KeyHash {
  std::size_t operator()(const Key& key) const {
    return std::hash<std::string>{}(key.identity) ^
           (static_cast<std::size_t>(key.pixels.width()) << 16) ^
           static_cast<std::size_t>(key.pixels.height());
  }
};

// The reduced copies of pictures. Interface thread only.
class ReducedPictures {
 public:
  static ReducedPictures& shared() {
    static ReducedPictures all;
    return all;
  }

  // Null for one that is made in the background: that place of the window is painted again once
  // it is there. Without a window it is made now.
  QImage get(const ZQImage& picture, QSize pixels, QWidget* window, const QRectF& place) {
    const Key key{picture.identity(), pixels};
    QImage kept = kept_.find(key);
    if (!kept.isNull()) return kept;
    if (window != nullptr && !hasTimeFor(picture)) {
      makeLater(picture, pixels, window, place.toAlignedRect());
      return {};
    }
    kept = reducedPicture(picture, pixels);
    kept_.keep(key, kept);
    return kept;
  }

 private:
  using Place = std::pair<QPointer<QWidget>, QRect>;
  // One at a time of each picture: most sizes of a window that is resized are gone by then. It
  // belongs to the work: where that is dropped, the next who asks begins anew.
  struct Later {
    Key key;
    std::vector<Place> places;
  };

  bool hasTimeFor(const ZQImage& picture) {
    const std::int64_t pixels = std::int64_t{picture.width()} * picture.height();
    if (pixels > kPixelsAtOnce) return false;
    if (!moment_.isValid() || moment_.hasExpired(kMoment)) {
      moment_.start();
      spent_ = 0;
    }
    spent_ += pixels;
    return spent_ <= kPixelsOfAMoment;
  }

  void makeLater(const ZQImage& picture, QSize pixels, QWidget* window, const QRect& rect) {
    // Too large to be kept: it would be made again for each frame.
    if (!kept_.wouldKeep(std::size_t{4} * static_cast<std::size_t>(pixels.width()) *
                         static_cast<std::size_t>(pixels.height()))) {
      return;
    }
    std::weak_ptr<Later>& known = later_[picture.identity()];
    auto later = known.lock();
    if (!later) {
      known = later = std::make_shared<Later>(Later{{picture.identity(), pixels}, {}});
      Queue::executeHeavy([this, later, picture, pixels] {
        QImage made = reducedPicture(picture, pixels);
        XMain::post([this, later, made = std::move(made)] { take(*later, made); });
      });
    }
    const auto same = [&](const Place& other) {
      return other.first == window && other.second == rect;
    };
    if (std::any_of(later->places.begin(), later->places.end(), same)) return;
    later->places.emplace_back(window, rect);
  }

  void take(const Later& later, const QImage& made) {
    kept_.keep(later.key, made);
    later_.erase(later.key.identity);
    // Those that want another size by now ask again.
    for (const auto& [window, rect] : later.places) {
      if (window) window->update(rect.adjusted(-1, -1, 1, 1));
    }
  }

  LruImages<Key, KeyHash> kept_{kPictureBytes};
  std::unordered_map<std::string, std::weak_ptr<Later>> later_;
  QElapsedTimer moment_;
  std::int64_t spent_ = 0;
};

}  // namespace

QImage toQImage(const ZQImage& picture) {
  // The wrapper holds the picture, whose pixels it shows.
  auto owner = std::make_unique<ZQImage>(picture);
  const Pixels& pixels = picture.pixels();
  return QImage(
      pixels.rgba.data(), pixels.width, pixels.height, qsizetype{4} * pixels.width,
      QImage::Format_RGBA8888_Premultiplied, [](void* held) { delete static_cast<ZQImage*>(held); },
      owner.release());
}

void drawOnPixels(QPainter& painter, const PixelGrid& grid, const Rect& rect, const QImage& image) {
  if (grid.scale == 1) return painter.drawImage(toQRectF(rect), image);
  // Qt would resample a picture under its scaling for dense screens.
  const QTransform outer = painter.worldTransform();
  painter.setWorldTransform(QTransform::fromScale(1 / grid.scale, 1 / grid.scale) * outer);
  painter.drawImage(
      QRectF(std::round(rect.x * grid.scale), std::round(rect.y * grid.scale),
             std::round(rect.width * grid.scale), std::round(rect.height * grid.scale)),
      image);
  painter.setWorldTransform(outer);
}

void drawPicture(QPainter& painter, const PixelGrid& grid, const Rect& rect,
                 const ZQImage& picture) {
  const QSize pixels(static_cast<int>(std::min(std::round(rect.width * grid.scale), 16384.0)),
                     static_cast<int>(std::min(std::round(rect.height * grid.scale), 16384.0)));
  // The painter looks at four pixels for each one that it sets; below half the size that
  // leaves some out, and fine patterns shimmer.
  const bool small = 2 * pixels.width() < picture.width() || 2 * pixels.height() < picture.height();
  const bool smaller = pixels.width() <= picture.width() && pixels.height() <= picture.height();
  if (small && smaller && !pixels.isEmpty()) {
    auto* const window = dynamic_cast<QWidget*>(painter.device());
    const QRectF place = painter.worldTransform().mapRect(toQRectF(rect));
    const QImage reduced = ReducedPictures::shared().get(picture, pixels, window, place);
    if (!reduced.isNull()) return drawOnPixels(painter, grid, rect, reduced);
  }
  painter.drawImage(toQRectF(rect), toQImage(picture));
}

}  // namespace zq::qt
