// ZQSwiftUI, MIT licence; see LICENSE.
// screen_picture FILE.png: what the display shows now.
#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>

int main(int argc, char** argv) {
  const QGuiApplication app(argc, argv);
  const QStringList words = QGuiApplication::arguments();
  if (words.size() != 2) return 2;
  return QGuiApplication::primaryScreen()->grabWindow(0).save(words[1]) ? 0 : 1;
}
