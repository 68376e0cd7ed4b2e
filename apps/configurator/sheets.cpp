// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/configurator/main_view.hpp>
#include <utility>

namespace zq::configurator {
namespace {

struct Answer {
  std::string title;
  std::function<void()> action;
  std::optional<Key> key = std::nullopt;
};

View sheet(const std::string& title, const std::string& text, const std::vector<Answer>& answers) {
  constexpr std::size_t most = 2;  // beside each other
  std::vector<View> rows, buttons{Spacer()};
  for (const Answer& answer : answers) {
    const View button =
        PushButton(answer.title, {.action = answer.action, .prominent = answer.key.has_value()});
    if (buttons.size() > most && answers.size() > 3) {
      rows.push_back(HStack({.spacing = 8}, std::exchange(buttons, {Spacer()})));
    }
    buttons.push_back(answer.key ? button.keyboardShortcut(*answer.key) : button);
  }
  rows.push_back(HStack({.spacing = 8}, std::move(buttons)));
  return VStack({.alignment = HorizontalAlignment::leading, .spacing = 12},
                {heading(title), Text(text), VStack({.spacing = 8}, std::move(rows))})
      .padding(16)
      .frame({.width = 420, .growsWithText = true});
}

View contentOf(const std::shared_ptr<Workbench>& bench) {
  const auto document = bench->document();
  const auto close = [bench] { bench->sheet.set(Sheet::none); };
  switch (bench->sheet.get()) {
    case Sheet::none:
      return EmptyView();
    case Sheet::about:
      return sheet("Configurator",
                   "Edits the settings of running applications. They follow at once, wherever "
                   "they listen. Part of ZQSwiftUI, under the MIT licence.",
                   {{"Close", close, Key::enter}});
    case Sheet::failure:
      return sheet("That did not work", bench->failure, {{"Close", close, Key::enter}});
    case Sheet::notSaved:
      return sheet("The project could not be saved",
                   document ? document->saveFailure() : std::string(),
                   {{"Close without saving", bench->window().closeWindow},
                    {"Save elsewhere…", [bench] { bench->saveElsewhere(); }},
                    {"Try again",
                     [bench, close] {
                       close();
                       bench->close();
                     }},
                    {"Keep it open", close, Key::enter}});
    case Sheet::changedByOthers:
      return sheet("Another program changed the file",
                   document->saveFailure().empty()
                       ? "What you did since the last save is not in it. Which of the two is kept?"
                       : document->saveFailure(),
                   {{"Keep mine", [document] { document->overwriteOthers(); }},
                    {"Take the file", [document] { document->takeFromOthers(); }}});
  }
  return EmptyView();
}

}  // namespace

View SheetView::body(Context& context) const {
  const auto bench = bench_;
  context.observe(bench);
  const auto document = bench->document();
  if (document) context.observe(document);
  const Sheet shown = bench->sheet.get();
  const Binding<bool> isShown([shown] { return shown != Sheet::none; },
                              [bench](const bool& on) {
                                // Whose content holds must be answered.
                                if (!on && bench->sheet.get() != Sheet::changedByOthers) {
                                  bench->sheet.set(Sheet::none);
                                }
                              });
  return View(Color::clear()).frame({.height = 0}).popover(isShown, contentOf(bench));
}

}  // namespace zq::configurator
