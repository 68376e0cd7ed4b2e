// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/files/recent_files.hpp>
#include <zqswiftui/files/zq_recent_file_view.hpp>
#include <zqswiftui/platform/base/dates.hpp>
#include <zqswiftui/platform/base/files.hpp>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/toolkit/animation.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>
#include <zqswiftui/platform/toolkit/shapes.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>
#include <zqswiftui/platform/toolkit/text.hpp>

namespace zq {
namespace {

constexpr double kSizeWidth = 84;
constexpr double kDateWidth = 116;  // of any month, so that sizes stand below each other
constexpr double kFontSize = 12;
constexpr double kPadding = 4;
constexpr const char* kDatePattern = "dd MMM yy [HH:mm]";

// Absent before the first answer. A state's cell may go while the disk is asked.
using Facts = State<std::optional<FileFacts>>;

void ask(const Url& url, const Facts& facts) {
  Queue::execute(true, [url, facts] {
    const auto found = fu_getFileFacts(url).value_or(FileFacts{});
    XMain::executeWhileThere([facts, found] { facts.set(found); });
  });
}

}  // namespace

ZQRecentFileView::ZQRecentFileView(const Parameters& parameters)
    : ZQRecentFileView(std::make_shared<const detail::RecentFile>(*parameters.url, std::nullopt),
                       std::make_shared<const Tapped>(*parameters.tapped)) {}

ZQRecentFileView::ZQRecentFileView(Shared<const detail::RecentFile> file,
                                   Shared<const Tapped> tapped)
    : file_(std::move(file)), tapped_(std::move(tapped)) {}

View ZQRecentFileView::body(Context& context) const {
  const auto isOver = context.state(false);
  const auto facts = context.state<std::optional<FileFacts>>(file_->facts);
  const std::string name = file_->url.name();
  const std::string size = *facts ? fu_getReadableFileSizeBySize((*facts)->size) : "";
  const std::string date =
      *facts && (*facts)->modified ? du_formatDate(*(*facts)->modified, kDatePattern) : "";

  const View row =
      HStack(
          {View(Text(name).truncationInTheMiddle())
               .flexFrame({.maxWidth = kInfinity, .alignment = Alignment::leading()}),
           View(Text(size))
               .frame(
                   {.width = kSizeWidth, .alignment = Alignment::trailing(), .growsWithText = true})
               .foregroundColor(Color::secondary()),
           View(Text(date).lineLimit(1))
               .flexFrame({.minWidth = kDateWidth, .alignment = Alignment::trailing()})
               .foregroundColor(Color::secondary())})
          .font(Font::system(kFontSize))
          .padding({.leading = kPadding, .trailing = kPadding})
          .frame({.height = detail::kRecentFileHeight, .growsWithText = true});
  const View shown = row.background(
      RoundedRectangle(kPadding).fill(Color::gray().opacity(0.25)).opacity(*isOver ? 1 : 0));
  const auto hover = [isOver](bool inside) {
    withAnimation(Animation::standard(), [&] { isOver.set(inside); });
  };
  const auto tap = [tapped = tapped_, url = file_->url] {
    if (*tapped) (*tapped)(url);
  };
  View pressed = shown.onTap(tap).onHover(hover).accessibility(
      {.role = Role::button, .label = name, .value = size + (date.empty() ? "" : ", " + date)});
  if (*facts) return pressed;
  return pressed.onAppear([url = file_->url, facts] { ask(url, facts); });
}

}  // namespace zq
