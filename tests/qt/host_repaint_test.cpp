// ZQSwiftUI, MIT licence; see LICENSE.
// What a window shows after painting only what changed is what it shows painted whole.
#include <gtest/gtest.h>

#include <QBackingStore>
#include <QImage>
#include <QProcess>
#include <QWheelEvent>
#include <random>
#include <string>
#include <tests/qt/support.hpp>
#include <vector>
#include <zqswiftui/platform/qt/host_widget.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq::qt {
namespace {

// Everything that bleeds over its edges, lies across pixels, or is drawn through another.
struct Row {
  int key = 0;
  double width = 30;
  double moved = 0;
  double opacity = 1;
  double scale = 1;
  bool clipped = false;
  int color = 0;
  std::string text = "row";
  bool operator==(const Row&) const = default;
};

Color colorOf(int number) {
  const Color colors[] = {Color::red(), Color::teal(), Color::primary(), Color::accent()};
  return colors[number % 4].opacity(number % 2 == 0 ? 1 : 0.4);
}

View viewOf(const Row& row) {
  const Color color = colorOf(row.color);
  View inner = HStack({.spacing = 2.7},
                      {Text(row.text).foregroundColor(color), Image::symbol("star.fill"),
                       RoundedRectangle(5).fill(color).frame(row.width, 13.3),
                       Capsule().fill(LinearGradient::of({color, Color::blue()})).frame(17.1, 9),
                       Capsule().stroke(color, {.lineWidth = 1.5}).frame(21, 12)})
                   .padding(1.3)
                   .background(Color::gray().opacity(0.3));
  if (row.clipped) inner = inner.clipShape(Capsule());
  return inner.opacity(row.opacity)
      .scale(row.scale)
      .offset(row.moved, -row.moved / 3)
      .id("row" + std::to_string(row.key));
}

View viewOf(const std::vector<Row>& rows) {
  std::vector<View> views;
  views.reserve(rows.size());
  for (const Row& row : rows) views.push_back(viewOf(row));
  return ScrollView(VStack({.alignment = HorizontalAlignment::leading, .spacing = 3.3}, views));
}

void change(std::vector<Row>& rows, std::mt19937& random) {
  const auto one = [&](int most) { return std::uniform_int_distribution<int>(0, most)(random); };
  Row& row = rows[static_cast<std::size_t>(one(static_cast<int>(rows.size()) - 1))];
  switch (one(8)) {
    case 0:
      row.width = one(60) + 0.7;
      break;
    case 1:
      row.moved = one(20) - 10 + 0.4;
      break;
    case 2:
      row.opacity = one(10) / 10.0;
      break;
    case 3:
      row.scale = 0.5 + one(8) / 7.0;
      break;
    case 4:
      row.clipped = !row.clipped;
      break;
    case 5:
      row.color = one(7);
      break;
    case 6:
      row.text = std::string(static_cast<std::size_t>(one(12)), 'x');
      break;
    case 7:
      std::swap(row, rows.front());
      break;
    default:
      row = Row{.key = 100 + one(1000)};
      break;
  }
}

// What stands on the screen, by the painting that there was.
QImage onScreen(HostWidget& host) {
  QPaintDevice* device = host.backingStore()->paintDevice();
  return device->devType() == QInternal::Image ? static_cast<QImage*>(device)->copy() : QImage();
}

void scroll(HostWidget& host, int pixels) {
  QWheelEvent event({50, 50}, host.mapToGlobal(QPointF(50, 50)), {0, pixels}, {}, Qt::NoButton,
                    Qt::NoModifier, Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(&host, &event);
}

TEST(HostRepaint, randomChangesShowWhatAWholeRepaintShows) {
  for (unsigned seed = 1; seed <= 3; ++seed) {
    std::mt19937 random(seed);
    std::vector<Row> rows(9);
    for (std::size_t i = 0; i < rows.size(); ++i) {
      rows[i].key = static_cast<int>(i);
      rows[i].color = static_cast<int>(i);
    }
    HostWidget host(viewOf(rows));
    host.resize(203, 151);
    host.show();
    settle();
    ASSERT_GE(onScreen(host).width(), host.width() * host.devicePixelRatioF());
    for (int step = 0; step < 60; ++step) {
      if (step % 7 == 6) {
        scroll(host, static_cast<int>(random() % 41) - 20);
      } else {
        change(rows, random);
        host.setRoot(viewOf(rows));
      }
      settle();
      const QImage partly = onScreen(host);
      host.repaint();
      settle();
      ASSERT_EQ(partly, onScreen(host))
          << "seed " << seed << ", step " << step << ", scale " << host.devicePixelRatioF();
    }
  }
}

// Large ones across each other and across texts, of which only the edges are painted again.
View outlines(const std::vector<Row>& rows) {
  std::vector<View> all{Text("under the outlines").frame(200, 120)};
  for (const Row& row : rows) {
    const Rect place{row.moved, row.moved / 2, row.width + 60.6, 71.7};
    const StrokeStyle style{.lineWidth = row.clipped ? 1 : 2.4};
    const Color color = colorOf(row.color);
    View line = PathShape(Path().addRect(place)).stroke(color, style);
    if (row.key % 3 == 0) line = Rectangle().stroke(color, style).frame(place.width, 81.3);
    if (row.key % 3 == 1) line = RoundedRectangle(5).stroke(color, style).frame(place.width, 67.3);
    all.push_back(line.opacity(row.opacity).offset(row.moved, 11.1 - row.key));
  }
  return ZStack(all, Alignment::topLeading());
}

TEST(HostRepaint, randomOutlinesShowWhatAWholeRepaintShows) {
  std::mt19937 random(7);
  std::vector<Row> rows(7);
  for (std::size_t i = 0; i < rows.size(); ++i) rows[i].key = static_cast<int>(i);
  HostWidget host(outlines(rows));
  host.resize(260, 180);
  host.show();
  settle();
  for (int step = 0; step < 150; ++step) {
    change(rows, random);
    host.setRoot(outlines(rows));
    settle();
    const QImage partly = onScreen(host);
    host.repaint();
    settle();
    ASSERT_EQ(partly, onScreen(host)) << "step " << step << ", " << host.devicePixelRatioF();
  }
}

TEST(HostRepaint, theSameHoldsOnScreensOfOtherScales) {
  for (const char* scale : {"1.25", "1.5", "2"}) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QString::fromLatin1(scale));
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QCoreApplication::applicationFilePath(),
                  {QStringLiteral("--gtest_filter=HostRepaint.random*")});
    ASSERT_TRUE(process.waitForFinished(60000)) << scale;
    EXPECT_EQ(process.exitCode(), 0) << scale << process.readAll().toStdString();
  }
}

}  // namespace
}  // namespace zq::qt
