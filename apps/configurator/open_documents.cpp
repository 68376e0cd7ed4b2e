// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <apps/configurator/open_documents.hpp>
#include <filesystem>
#include <system_error>
#include <utility>
#include <zqswiftui/platform/base/saves.hpp>
#include <zqswiftui/platform/base/work.hpp>

namespace zq::configurator {
namespace {

Error isOpen(const Url& file) {
  return {file.path() + " is open; close it first, or choose another name."};
}

}  // namespace

void OpenDocuments::resolve(const Url& file, std::function<void(const std::string&)> goOn) {
  Saves::post([weak = weak_from_this(), file, goOn = std::move(goOn)] {
    std::error_code failed;  // what cannot be followed is taken as it is
    const std::string real = std::filesystem::weakly_canonical(file.path(), failed).string();
    XMain::post([weak, goOn, path = failed ? file.path() : real] {
      if (const auto self = weak.lock()) goOn(path);
    });
  });
}

std::shared_ptr<Document> OpenDocuments::find(const std::string& path) const {
  for (const Open& each : documents_) {
    auto document = each.path == path ? each.document.lock() : nullptr;
    if (document) return document;
  }
  return nullptr;
}

OpenDocuments::Opening* OpenDocuments::opening(const std::string& path) {
  const auto found = std::find_if(opening_.begin(), opening_.end(),
                                  [&](const Opening& each) { return each.path == path; });
  return found == opening_.end() ? nullptr : &*found;
}

Document::Opened OpenDocuments::keep(const std::string& path, const Document::Opened& answer) {
  opening_.push_back({path, {answer}});
  return [weak = weak_from_this(), path](const auto& opened) {
    const auto self = weak.lock();
    if (!self) return;
    std::erase_if(self->documents_, [](const Open& each) { return each.document.expired(); });
    if (opened.ok()) self->documents_.push_back({path, opened.value()});
    const std::vector<Document::Opened> answers = std::move(self->opening(path)->answers);
    std::erase_if(self->opening_, [&](const Opening& each) { return each.path == path; });
    for (const auto& each : answers) each(opened);
  };
}

void OpenDocuments::open(const Url& file, const Document::Opened& answer) {
  resolve(file, [this, file, answer](const std::string& path) {
    if (const auto document = find(path)) return answer(document);
    if (Opening* const same = opening(path)) return same->answers.push_back(answer);
    Document::open(file, keep(path, answer));
  });
}

void OpenDocuments::create(const Url& file, const Document::Opened& answer) {
  resolve(file, [this, file, answer](const std::string& path) {
    if (find(path) || opening(path)) return answer(isOpen(file));
    Document::create(file, keep(path, answer));
  });
}

void OpenDocuments::saveElsewhere(const std::shared_ptr<Document>& document, const Url& file,
                                  std::function<void(const Result<void>&)> answer) {
  resolve(file, [this, document, file, answer = std::move(answer)](const std::string& path) {
    const auto there = find(path);
    if ((there && there != document) || opening(path)) return answer(isOpen(file));
    document->saveElsewhere(
        file, [self = shared_from_this(), document, file, path, answer](SaveState state) {
          for (Open& each : self->documents_) {
            if (each.document.lock() == document && document->file() == file) each.path = path;
          }
          if (state != SaveState::saved) return answer(Error{document->saveFailure()});
          answer({});
        });
  });
}

}  // namespace zq::configurator
