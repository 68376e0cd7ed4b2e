// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <QApplication>
#include <QFontInfo>
#include <QStandardPaths>
#include <cstdio>
#include <zqswiftui/platform/qt/platform.hpp>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  QStandardPaths::setTestModeEnabled(true);
  QCoreApplication::setApplicationName(QStringLiteral("zq-qt-tests"));
  QCoreApplication::setOrganizationDomain(QStringLiteral("example.org"));
  QApplication app(argc, argv);
  // An alias would resolve to another family elsewhere.
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setPixelSize(13);
  QApplication::setFont(font);
  if (QFontInfo(font).family() != QStringLiteral("DejaVu Sans")) {
    std::fputs("The tests need the font DejaVu Sans\n", stderr);
    return 1;
  }
  const zq::qt::Platform platform(app);
  return RUN_ALL_TESTS();
}
