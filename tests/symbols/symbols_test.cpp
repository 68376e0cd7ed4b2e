// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <thread>
#include <zqswiftui/platform/toolkit/symbols/symbols.hpp>

namespace zq {
namespace {

// What the components and the gallery draw.
constexpr const char* kUsedNames[] = {"i.circle",
                                      "i.circle.fill",
                                      "d.circle",
                                      "d.circle.fill",
                                      "s.circle",
                                      "s.circle.fill",
                                      "b.circle",
                                      "b.circle.fill",
                                      "p.circle",
                                      "p.circle.fill",
                                      "icloud.and.arrow.down",
                                      "photo",
                                      "square.and.arrow.down",
                                      "chevron.compact.down",
                                      "chevron.compact.up",
                                      "checkmark.circle",
                                      "xmark.circle",
                                      "arrow.right.circle",
                                      "delete.left",
                                      "delete.left.fill",
                                      "doc.on.doc",
                                      "link",
                                      "gear",
                                      "plus",
                                      "plus.circle",
                                      "plus.circle.fill",
                                      "minus",
                                      "minus.circle",
                                      "minus.circle.fill",
                                      "star",
                                      "star.fill",
                                      "questionmark.circle",
                                      "play",
                                      "play.fill",
                                      "pause",
                                      "pause.fill",
                                      "line.3.horizontal",
                                      "magnifyingglass",
                                      "folder.fill",
                                      "info.circle",
                                      "exclamationmark.triangle",
                                      "sun.max",
                                      "moon.fill",
                                      "square.grid.2x2",
                                      "list.bullet",
                                      "eye.slash",
                                      "eye.slash.fill",
                                      "heart.fill",
                                      "trash.fill",
                                      "slider.horizontal.3",
                                      "circle.fill",
                                      "square.fill",
                                      "play.rectangle.fill",
                                      "7.square"};

bool insideUnitSquare(const SymbolDrawing& drawing) {
  return std::ranges::all_of(drawing.parts, [](const SymbolPart& part) {
    // What is erased may reach over the edge: there is nothing to be seen of it.
    const Rect box = part.path.bounds().insetBy(-part.lineWidth / 2);
    return part.erase || (box.x >= 0 && box.y >= 0 && box.maxX() <= 1 && box.maxY() <= 1);
  });
}

std::vector<std::string> baseNames() {
  std::vector<std::string> names = symbolNames();
  std::erase_if(names, [](const std::string& name) {
    for (const char* form : {".slash", ".circle", ".square", ".rectangle", ".fill"}) {
      if (name.ends_with(form)) return true;
    }
    return false;
  });
  return names;
}

SymbolDrawing hostBox(double side) {
  return {{{Path().addRect({0.5 - side / 2, 0.5 - side / 2, side, side}), 0.085, false}}};
}

TEST(Symbols, everyNameInUseHasADrawing) {
  for (const char* name : kUsedNames) {
    const SymbolDrawing* drawing = findSymbol(name);
    ASSERT_NE(drawing, nullptr) << name;
    EXPECT_FALSE(drawing->parts.empty()) << name;
  }
}

TEST(Symbols, everyBaseAndWhatIsFormedOfItStaysInTheUnitSquare) {
  for (const std::string& base : baseNames()) {
    for (const char* form : {"", ".circle", ".circle.fill", ".square", ".rectangle.fill"}) {
      const SymbolDrawing* drawing = findSymbol(base + form);
      ASSERT_NE(drawing, nullptr) << base << form;
      EXPECT_TRUE(insideUnitSquare(*drawing)) << base << form;
    }
  }
}

TEST(Symbols, noTwoBasesLookTheSame) {
  const std::vector<std::string> names = baseNames();
  for (std::size_t i = 0; i < names.size(); ++i) {
    for (std::size_t j = i + 1; j < names.size(); ++j) {
      EXPECT_NE(*findSymbol(names[i]), *findSymbol(names[j])) << names[i] << ' ' << names[j];
    }
  }
}

TEST(Symbols, aFilledCircleLosesTheGlyphThatARingGains) {
  const auto erases = [](const SymbolDrawing& drawing) {
    return std::ranges::any_of(drawing.parts, &SymbolPart::erase);
  };
  EXPECT_FALSE(erases(*findSymbol("plus.circle")));
  EXPECT_TRUE(erases(*findSymbol("plus.circle.fill")));
  EXPECT_EQ(findSymbol("plus.circle.fill")->parts.front().lineWidth, 0);
  EXPECT_TRUE(erases(*findSymbol("clock.fill")));
  EXPECT_FALSE(erases(*findSymbol("heart.fill")));
  // The ring and the glyph in it are lines of one weight.
  EXPECT_EQ(findSymbol("plus.circle")->parts.front().lineWidth,
            findSymbol("plus.circle")->parts.back().lineWidth);
}

TEST(Symbols, anUnknownNameIsNullAndSaidOnce) {
  for (const std::string name : {"no.such.thing", "", ".fill", ".circle", "plus.fill",
                                 "plus.circle.circle", "plus.fill.circle", "slash.circle"}) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(findSymbol(name), nullptr) << name;
    EXPECT_EQ(findSymbol(name), nullptr) << name;
    const std::string said = testing::internal::GetCapturedStderr();
    EXPECT_EQ(std::ranges::count(said, '\n'), 1) << said;
    EXPECT_NE(said.find('"' + name + '"'), std::string::npos) << said;
  }
}

TEST(Symbols, aHostsDrawingReplacesOursAndWhatWasFormedFromIt) {
  const SymbolDrawing* ours = findSymbol("stop");
  const SymbolDrawing* oursCircled = findSymbol("stop.circle");
  const SymbolDrawing before = *ours;
  addSymbol("stop", hostBox(0.4));
  EXPECT_EQ(*findSymbol("stop"), hostBox(0.4));
  EXPECT_NE(*findSymbol("stop.circle"), *oursCircled);
  EXPECT_EQ(findSymbol("stop.fill")->parts.front().lineWidth, 0);
  EXPECT_EQ(*ours, before) << "a drawing handed out must not change";
  addSymbol("stop", hostBox(0.6));
  EXPECT_EQ(*findSymbol("stop"), hostBox(0.6));
}

TEST(Symbols, aNameMissedBeforeIsFoundOnceTheHostAddsIt) {
  testing::internal::CaptureStderr();
  EXPECT_EQ(findSymbol("host.box.circle"), nullptr);
  addSymbol("host.box", hostBox(0.4));
  EXPECT_NE(findSymbol("host.box.circle"), nullptr);
  testing::internal::GetCapturedStderr();
  const std::vector<std::string> names = symbolNames();
  EXPECT_TRUE(std::ranges::is_sorted(names));
  EXPECT_TRUE(std::ranges::binary_search(names, "host.box.circle"));
  EXPECT_TRUE(std::ranges::binary_search(names, "gear"));
}

TEST(Symbols, threadsThatAskAtOnceGetTheSameDrawing) {
  std::array<std::vector<const SymbolDrawing*>, 4> found;
  {
    std::vector<std::jthread> threads;
    threads.reserve(found.size());
    for (auto& mine : found) {
      threads.emplace_back([&mine] {
        for (char letter = 'a'; letter <= 'z'; ++letter) {
          mine.push_back(findSymbol(std::string(1, letter) + ".rectangle"));
        }
      });
    }
  }
  for (const auto& mine : found) EXPECT_EQ(mine, found.front());
}

}  // namespace
}  // namespace zq
