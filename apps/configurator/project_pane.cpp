// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <apps/configurator/project_pane.hpp>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/platform/base/zq_file_dialogs.hpp>
#include <zqswiftui/platform/base/zq_pasteboard.hpp>

namespace zq::configurator {
namespace {

template <class T>
Binding<T> ofHead(const std::shared_ptr<Document>& document, const std::string& title,
                  T ZQUICProject::*field) {
  return Binding<T>([document, field] { return document->content()->head.*field; },
                    [document, title, field](const T& value) {
                      document->edit(
                          title, [&](ProjectContent& content) { content.head.*field = value; },
                          title);
                    });
}

View defaults(const std::shared_ptr<Document>& document) {
  const auto integer =
      ofHead(document, "Change default", &ZQUICProject::defaultIntValue)
          .map<double>([](const std::int64_t& n) { return static_cast<double>(n); },
                       [](const double& n) { return static_cast<std::int64_t>(n); });
  return VStack(
      {.alignment = HorizontalAlignment::leading, .spacing = 14},
      {heading("New values begin with"),
       DeferredNumberField("Number",
                           ofHead(document, "Change default", &ZQUICProject::defaultDoubleValue)),
       DeferredNumberField("Integer", integer),
       Switch("Flag", ofHead(document, "Change default", &ZQUICProject::defaultBoolValue))});
}

// The file may be there already, to be dropped, or is to be made.
View swiftFile(const std::shared_ptr<Document>& document) {
  const auto file = ofHead(document, "Change Swift file", &ZQUICProject::configSwiftFileUrl);
  const auto choose = [file] {
    ZQFileDialogs::save("Swift source", "", {"swift"}, std::nullopt,
                        [file](const Url& url) { file.set(url); });
  };
  return VStack({.alignment = HorizontalAlignment::leading, .spacing = 6},
                {ZQFileDragAreaWithLabel({.label = "Swift source",
                                          .url = file,
                                          .acceptedExtensions = {"swift"},
                                          .promptString = "Drop a Swift file"}),
                 PushButton("Choose a new file", {.action = choose})});
}

View problemsOf(const Findings& findings) {
  std::vector<View> rows;
  rows.reserve(findings.ofProject.size());
  for (const std::string& sentence : findings.ofProject) rows.push_back(Text(sentence));
  return VStack({.alignment = HorizontalAlignment::leading, .spacing = 6}, std::move(rows));
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::size_t begin = 0;
  while (begin <= text.size()) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    lines.push_back(searchAndReplace(text.substr(begin, end - begin), "\t", "    ", false));
    begin = end + 1;
  }
  return lines;
}

View codeLines(const std::string& text) {
  const auto lines = std::make_shared<const std::vector<std::string>>(linesOf(text));
  return ScrollView(RowList({.count = lines->size(),
                             .rowHeight = 17,
                             .key = [](std::size_t i) { return std::to_string(i); },
                             .row =
                                 [lines](std::size_t i) {
                                   return Text((*lines)[i])
                                       .font(Font::caption().monospaced())
                                       .flexFrame({.maxWidth = kInfinity,
                                                   .alignment = Alignment::leading()});
                                 }})
                        .padding(12),
                    ScrollAxes::vertical)
      .environment<LayoutDirectionKey>(LayoutDirection::leftToRight);
}

View codePart(const std::string& title, const std::string& text) {
  return VStack({.alignment = HorizontalAlignment::leading, .spacing = 4},
                {HStack({heading(title), Spacer(),
                         toolButton("doc.on.doc", "Copy " + title,
                                    [text] { ZQPasteboard::setString(text); })})
                     .padding({.top = 8, .leading = 16, .bottom = 0, .trailing = 12}),
                 codeLines(text)});
}

}  // namespace

View ProjectPane::body(Context& context) const {
  const auto document = bench_->document();
  context.observe(document);
  context.observe(bench_->insight());
  const std::string editors = document->file().text() + " " + std::to_string(document->revision());
  const auto text = [&](const std::string& name, const std::string& title,
                        std::string ZQUICProject::*member) {
    return field(name, DeferredTextField(name, ofHead(document, title, member)));
  };
  const View form = VStack(
      {.alignment = HorizontalAlignment::leading, .spacing = 14},
      {text("Name", "Rename project", &ZQUICProject::name),
       text("Bundle identifier", "Change bundle identifier", &ZQUICProject::appBundleId),
       text("Environment variable", "Change environment variable",
            &ZQUICProject::environmentObjectVarName),
       field("Project file", Text(document->file().path()).foregroundColor(Color::secondary())),
       swiftFile(document), defaults(document), problemsOf(*bench_->insight()->findings())});
  return ScrollView(form.id(editors).padding(16).flexFrame(
      {.maxWidth = kInfinity, .alignment = Alignment::topLeading()}));
}

View CodePane::body(Context& context) const {
  context.observe(bench_->insight());
  const auto code = bench_->insight()->code();
  if (code->swift.empty()) return nothingHere("doc.text", "No group is selected.");
  return VStack({.spacing = 0}, {codePart("Swift", code->swift).flexFrame(kFill), hairline(false),
                                 codePart("C++", code->cpp).flexFrame(kFill)});
}

}  // namespace zq::configurator
