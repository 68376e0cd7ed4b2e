// ZQSwiftUI, MIT licence; see LICENSE.
#include <unistd.h>

#include <QApplication>
#include <QIcon>
#include <apps/configurator/windows.hpp>
#include <cstdio>
#include <filesystem>
#include <zqswiftui/platform/qt/platform.hpp>

namespace {

constexpr int kWrongUse = 2;
constexpr const char* kUse =
    "Use: zq-configurator [PROJECT.zquic …]\n"
    "Edits settings projects; each that is named opens in a window of its own.\n";

int fail(const std::string& sentence) {
  const bool coloured = isatty(STDERR_FILENO) == 1;
  std::fprintf(stderr, "%szq-configurator:%s %s\n", coloured ? "\033[31m" : "",
               coloured ? "\033[0m" : "", sentence.c_str());
  return kWrongUse;
}

bool hasDisplay() {
  return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
         qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<std::string> files;
  for (int i = 1; i < argc; ++i) {
    const std::string argument = argv[i];
    if (argument == "--help" || argument == "-h") {
      std::fputs(kUse, stdout);
      return 0;
    }
    if (argument.starts_with("-")) return fail("There is no option " + argument + "; see --help.");
    files.push_back(std::filesystem::absolute(argument).lexically_normal().string());
  }
  if (!hasDisplay()) return fail("There is no display to open a window on.");
  QApplication app(argc, argv);
  QCoreApplication::setOrganizationDomain("zqswiftui.example");
  QCoreApplication::setApplicationName("zq-configurator");
  QGuiApplication::setDesktopFileName("zq-configurator");
  const QString ownIcon = QCoreApplication::applicationDirPath() + "/zq-configurator.svg";
  QGuiApplication::setWindowIcon(QIcon::fromTheme("zq-configurator", QIcon(ownIcon)));
  const zq::qt::Platform platform(app);
  zq::configurator::Windows windows;
  if (files.empty()) windows.open();
  for (const std::string& file : files) windows.open().openProject(zq::Url::file(file));
  return QApplication::exec();
}
