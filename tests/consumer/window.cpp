// ZQSwiftUI, MIT licence; see LICENSE.
#include <QApplication>
#include <zqswiftui/zqswiftui.hpp>

int main(int argc, char** argv) {
  const QApplication app(argc, argv);
}
