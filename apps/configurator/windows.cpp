// ZQSwiftUI, MIT licence; see LICENSE.
#include <QByteArray>
#include <QEvent>
#include <algorithm>
#include <apps/configurator/main_view.hpp>
#include <apps/configurator/windows.hpp>
#include <zqswiftui/platform/base/prefs.hpp>
#include <zqswiftui/platform/base/work.hpp>

namespace zq::configurator {
namespace {

constexpr const char* kPlace = "windowPlace";
constexpr int kStep = 28;  // between a window and the next

}  // namespace

Windows::Windows() = default;
Windows::~Windows() = default;

Workbench& Windows::open() {
  // The actions outlive no window; each finds its own by the address of its workbench.
  const auto self = std::make_shared<const Workbench*>(nullptr);
  const auto bench = std::make_shared<Workbench>(
      shelf_, documents_,
      WindowActions{.openWindow = [this] { open(); },
                    .closeWindow = [this, self] { XMain::post([this, self] { close(*self); }); },
                    .quit = [this] { XMain::post([this] { quit(); }); }});
  *self = bench.get();
  auto widget = std::make_unique<qt::HostWidget>(MainView(bench));
  widget->setMinimumSize(900, 480);
  place(*widget);
  widget->installEventFilter(this);
  bench->titleChanged = [this, self] { showTitle(*self); };
  windows_.push_back({std::move(widget), bench});
  showTitle(bench.get());
  windows_.back().widget->show();
  return *bench;
}

void Windows::place(QWidget& widget) const {
  widget.resize(1240, 760);
  if (!windows_.empty()) {
    widget.resize(windows_.back().widget->size());
    return widget.move(windows_.back().widget->pos() + QPoint(kStep, kStep));
  }
  const std::string kept = prefs_getValueString(kPlace, "");
  widget.restoreGeometry(QByteArray::fromBase64(QByteArray::fromStdString(kept)));
}

void Windows::showTitle(const Workbench* bench) {
  const auto window = std::find_if(windows_.begin(), windows_.end(),
                                   [&](const Window& w) { return w.bench.get() == bench; });
  if (window == windows_.end()) return;
  const auto document = bench->document();
  window->widget->setWindowTitle(
      document ? QString::fromStdString(document->content()->head.name + " — Configurator")
               : QStringLiteral("Configurator"));
}

void Windows::close(const Workbench* bench) {
  const auto window = std::find_if(windows_.begin(), windows_.end(),
                                   [&](const Window& w) { return w.bench.get() == bench; });
  if (window == windows_.end()) return;
  prefs_setValueString(kPlace, window->widget->saveGeometry().toBase64().toStdString());
  window->widget->removeEventFilter(this);
  window->widget->close();
  windows_.erase(window);
}

void Windows::quit() {
  std::vector<std::shared_ptr<Workbench>> benches;  // closing takes windows away
  benches.reserve(windows_.size());
  for (const Window& window : windows_) benches.push_back(window.bench);
  for (const auto& bench : benches) bench->close();
}

bool Windows::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Close) return QObject::eventFilter(watched, event);
  const auto window = std::find_if(windows_.begin(), windows_.end(),
                                   [&](const Window& w) { return w.widget.get() == watched; });
  if (window == windows_.end()) return QObject::eventFilter(watched, event);
  event->ignore();
  window->bench->close();
  return true;
}

}  // namespace zq::configurator
