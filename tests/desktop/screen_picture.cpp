// ZQSwiftUI, MIT licence; see LICENSE.
// screen_picture FILE.png [X Y WIDTH HEIGHT]: what the display shows now, or a part of it.
#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>

int main(int argc, char** argv) {
  const QGuiApplication app(argc, argv);
  const QStringList words = QGuiApplication::arguments();
  if (words.size() != 2 && words.size() != 6) return 2;
  QPixmap shown = QGuiApplication::primaryScreen()->grabWindow(0);
  if (words.size() == 6) {
    shown = shown.copy(words[2].toInt(), words[3].toInt(), words[4].toInt(), words[5].toInt());
  }
  return shown.save(words[1]) ? 0 : 1;
}
