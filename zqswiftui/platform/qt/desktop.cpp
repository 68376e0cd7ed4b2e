// ZQSwiftUI, MIT licence; see LICENSE.
#include <QApplication>
#include <QDesktopServices>
#include <QEvent>
#include <QPalette>
#include <QStyle>
#include <QUrl>
#include <vector>
#include <zqswiftui/platform/qt/conversions.hpp>
#include <zqswiftui/platform/qt/desktop.hpp>
#include <zqswiftui/platform/qt/font_cache.hpp>
#include <zqswiftui/platform/toolkit/font.hpp>

namespace zq::qt {
namespace {

// A style that was asked to keep still gives its own animations no time.
bool desktopKeepsStill() {
  if (qEnvironmentVariableIntValue("ZQ_REDUCED_MOTION") != 0) return true;
  const QStyle* style = QApplication::style();
  return style != nullptr && style->styleHint(QStyle::SH_Widget_Animation_Duration) == 0;
}

}  // namespace

void Workspace::open(const std::string& url) {
  const QString text = toQString(url);
  QDesktopServices::openUrl(text.startsWith(u'/') ? QUrl::fromLocalFile(text) : QUrl(text));
}

ColorScheme schemeOf(const QPalette& palette) {
  const bool dark =
      palette.color(QPalette::WindowText).lightness() > palette.color(QPalette::Window).lightness();
  return dark ? ColorScheme::dark : ColorScheme::light;
}

class Appearance::Watcher : public QObject {
 public:
  explicit Watcher(Appearance& appearance) : appearance_(appearance) {
    qApp->installEventFilter(this);
    // The event of the same meaning goes to the windows alone.
    connect(qApp, &QGuiApplication::layoutDirectionChanged, this,
            [this] { appearance_.refresh(); });
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    // Another style is told to the widgets only.
    if (watched != qApp && event->type() != QEvent::StyleChange) return false;
    switch (event->type()) {
      case QEvent::ApplicationFontChange:
        forgetFonts();
        appearance_.tell();
        break;
      case QEvent::ApplicationPaletteChange:
      case QEvent::StyleChange:
      case QEvent::ThemeChange:
        appearance_.refresh();
        break;
      default:
        break;
    }
    return false;
  }

 private:
  Appearance& appearance_;
};

Appearance::Appearance() : watcher_(std::make_unique<Watcher>(*this)) {
  refresh();
}

Appearance::~Appearance() = default;

unsigned long Appearance::addListener(std::function<void()> listener) {
  listeners_.emplace(++lastId_, std::move(listener));
  return lastId_;
}

void Appearance::setColorScheme(std::optional<ColorScheme> scheme) {
  scheme_ = scheme;
  refresh();
}

void Appearance::setLayoutDirection(std::optional<LayoutDirection> direction) {
  direction_ = direction;
  refresh();
}

void Appearance::setReducedMotion(std::optional<bool> reduced) {
  reducedMotion_ = reduced;
  refresh();
}

void Appearance::setTextScale(double scale) {
  textScale_ = boundedTextScale(scale);
  refresh();
}

void Appearance::refresh() {
  const bool mirrored = QGuiApplication::layoutDirection() == Qt::RightToLeft;
  const AppearanceValues now{
      scheme_.value_or(schemeOf(QGuiApplication::palette())),
      direction_.value_or(mirrored ? LayoutDirection::rightToLeft : LayoutDirection::leftToRight),
      reducedMotion_ ? *reducedMotion_ : desktopKeepsStill(), textScale_};
  if (now == values_) return;
  values_ = now;
  tell();
}

void Appearance::tell() {
  std::vector<unsigned long> ids;
  ids.reserve(listeners_.size());
  for (const auto& [id, listener] : listeners_) ids.push_back(id);
  for (const unsigned long id : ids) {
    const auto found = listeners_.find(id);
    if (found == listeners_.end()) continue;
    const auto listener = found->second;  // it may remove itself
    listener();
  }
}

}  // namespace zq::qt
