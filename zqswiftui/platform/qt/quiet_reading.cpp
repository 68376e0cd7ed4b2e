// ZQSwiftUI, MIT licence; see LICENSE.
#include <QtGlobal>
#include <atomic>
#include <zqswiftui/platform/qt/quiet_reading.hpp>

namespace zq::qt {
namespace {

thread_local int reading = 0;
std::atomic<QtMessageHandler> others{nullptr};

void passOn(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  if (reading > 0 && type != QtCriticalMsg && type != QtFatalMsg) return;
  if (const QtMessageHandler next = others) next(type, context, message);
}

}  // namespace

QuietReading::QuietReading() {
  static const bool installed = [] {
    others = qInstallMessageHandler(passOn);
    return true;
  }();
  reading += installed ? 1 : 0;
}

QuietReading::~QuietReading() {
  --reading;
}

}  // namespace zq::qt
