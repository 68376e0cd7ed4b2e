// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <filesystem>
#include <random>
#include <tests/configurator/open_project.hpp>

namespace zq::configurator {
namespace {

using Documents = OpenProject;

std::string textOf(const Document& document) {
  return encodeProject(document.content()->project(), JsonStyle::pretty).value();
}

TEST_F(Documents, anEditIsOnDiskAQuarterOfASecondAfterTheFirstOfItsBurst) {
  const auto document = open();
  rename(*document, "one");
  platform.advance(0.24);
  rename(*document, "two");
  EXPECT_EQ(onDisk().name, "Sample");
  EXPECT_EQ(document->saveState(), SaveState::waiting);
  platform.advance(0.011);
  EXPECT_EQ(onDisk().name, "two");
  EXPECT_EQ(document->saveState(), SaveState::saved);
}

TEST_F(Documents, allButTheLastQuarterOfASecondIsSafeAtAnyTime) {
  const auto document = open();
  std::minstd_rand random(3);
  std::vector<double> madeAt;
  for (int step = 0; step < 300; ++step) {
    if (random() % 2 == 0) {
      rename(*document, std::to_string(madeAt.size()));
      madeAt.push_back(platform.clock().now());
    }
    platform.advance(static_cast<double>(random() % 200) / 1000);
    const double now = platform.clock().now();
    const auto due =
        std::count_if(madeAt.begin(), madeAt.end(), [&](double at) { return at + 0.2501 < now; });
    const std::string name = onDisk().name;
    if (due == 0) continue;
    ASSERT_GE(std::stoll(name), due - 1) << "at " << now;
  }
}

TEST_F(Documents, everySaveIsAnnouncedWithTheWholeProject) {
  const auto document = open();
  rename(*document, "one");
  rename(*document, "two");
  platform.advance(1);
  rename(*document, "three");
  platform.advance(1);
  const auto posted = platform.notifications().posted();
  ASSERT_EQ(posted.size(), 2U);
  EXPECT_EQ(document->broadcasts(), 2U);
  EXPECT_EQ(posted[1].name, ZQUICProject::broadcastName("org.example.sample"));
  const auto heard = decodeProject(posted[1].payload);
  ASSERT_TRUE(heard.ok());
  EXPECT_EQ(heard.value().name, "three");
  EXPECT_EQ(heard.value().groupList(), onDisk().groupList());
}

TEST_F(Documents, everyKindOfEditIsUndoneAndDoneAgain) {
  const auto document = open();
  std::string copy;
  const std::vector<std::pair<std::string, std::function<void(ProjectContent&)>>> edits{
      {"Add group", [](auto& c) { addGroup(c, "canvas"); }},
      {"Add value", [](auto& c) { addItem(c, "canvas", ZQUICRecordType::bool_, "zoom"); }},
      {"Duplicate group", [&](auto& c) { copy = duplicateGroup(c, "canvas"); }},
      {"Duplicate value", [](auto& c) { duplicateItem(c, "canvas", "title"); }},
      {"Rename group", [](auto& c) { editGroup(c, "paper", [](auto& g) { g.name = "Ink"; }); }},
      {"Change value",
       [](auto& c) { editItem(c, "canvas", "zoom", [](auto& i) { i.doubleValue = 9; }); }},
      {"Move group", [](auto& c) { moveGroup(c, 0, 2); }},
      {"Move value", [](auto& c) { moveItem(c, "canvas", 0, 1); }},
      {"Delete value", [](auto& c) { flagItem(c, "canvas", "zoom"); }},
      {"Delete group", [&](auto& c) { flagGroup(c, copy); }},
      {"Rename project", [](auto& c) { c.head.name = "Other"; }},
      {"Change default", [](auto& c) { c.head.defaultIntValue = 8; }}};
  std::vector<std::string> states{textOf(*document)};
  for (const auto& [title, change] : edits) {
    document->edit(title, change);
    states.push_back(textOf(*document));
    ASSERT_NE(states.back(), states[states.size() - 2]) << title;
    EXPECT_EQ(document->undoTitle(), title);
    platform.advance(0.1);
  }
  std::minstd_rand random(5);
  std::size_t at = edits.size();
  const auto check = [&] {
    ASSERT_EQ(textOf(*document), states[at]);
    EXPECT_EQ(document->undoTitle().value_or(""), at == 0 ? "" : edits[at - 1].first);
    EXPECT_EQ(document->redoTitle().value_or(""), at == edits.size() ? "" : edits[at].first);
  };
  for (int i = 0; i < 200; ++i) {
    const bool back = i < 20 || (i > 40 && random() % 2 == 0);  // to both ends and about
    if (back) document->undo();
    if (!back) document->redo();
    if (back && at > 0)
      --at;
    else if (!back && at < edits.size())
      ++at;
    check();
  }
  platform.advance(1);
  EXPECT_EQ(onDisk().name, document->content()->head.name);
  EXPECT_EQ(onDisk().groupCount(), document->content()->shownProject().groupList().size());
}

TEST_F(Documents, editsOfOneKeyThatFollowEachOtherAtOnceAreOneStep) {
  const auto document = open();
  rename(*document, "a", "name");
  platform.advance(1.9);
  rename(*document, "ab", "name");
  platform.advance(1.9);
  rename(*document, "abc", "name");
  platform.advance(2.1);  // later it is another
  rename(*document, "abcd", "name");
  rename(*document, "abcde", "other key");
  rename(*document, "abcde", "nothing changes");
  for (const char* const name : {"abcd", "abc", "Sample"}) {
    document->undo();
    EXPECT_EQ(document->content()->head.name, name);
  }
  EXPECT_FALSE(document->undoTitle());
  document->redo();
  rename(*document, "abX", "name");  // what was undone is no place to go on from
  document->undo();
  EXPECT_EQ(document->content()->head.name, "abc");
}

TEST_F(Documents, whatIsEditedBackAtOnceIsNoStep) {
  const auto document = open();
  for (const char* const name : {"Ink", "Paper"}) {
    document->edit(
        "Rename group",
        [&](ProjectContent& c) { editGroup(c, "paper", [&](auto& g) { g.name = name; }); }, "name");
  }
  EXPECT_FALSE(document->undoTitle());
  platform.advance(1);
  EXPECT_EQ(onDisk().groupList()[1].name, "Paper");
}

TEST_F(Documents, whatOthersWroteIsTakenOverAsOneStepWhereNothingWaits) {
  const auto document = open();
  rename(*document, "ours");
  platform.advance(1);
  renameAsOthers("theirs");
  const unsigned revision = document->revision();
  platform.advance(1);
  EXPECT_EQ(document->content()->head.name, "theirs");
  EXPECT_NE(document->revision(), revision);
  EXPECT_EQ(document->saveState(), SaveState::saved);
  document->undo();
  platform.advance(1);
  EXPECT_EQ(onDisk().name, "ours");
  EXPECT_EQ(document->saveState(), SaveState::saved);
}

TEST_F(Documents, whatOthersWroteIsNeverOverwrittenUnasked) {
  const auto document = open();
  for (const bool mine : {true, false}) {
    rename(*document, "ours");
    renameAsOthers("theirs");
    platform.advance(1);
    EXPECT_EQ(document->saveState(), SaveState::changedByOthers);
    rename(*document, "ours, later");
    document->saveNow();
    platform.advance(1);
    EXPECT_EQ(onDisk().name, "theirs");
    EXPECT_EQ(document->content()->head.name, "ours, later");
    if (mine) document->overwriteOthers();
    if (!mine) document->takeFromOthers();
    platform.advance(1);
    EXPECT_EQ(document->saveState(), SaveState::saved);
    EXPECT_EQ(onDisk().name, mine ? "ours, later" : "theirs");
    EXPECT_EQ(document->content()->head.name, onDisk().name);
  }
  document->undo();
  EXPECT_EQ(document->content()->head.name, "ours, later");
}

TEST_F(Documents, aFileThatOthersDamagedIsKeptUntilTheUserDecides) {
  const auto document = open();
  writeAsOthers("{ \"groupList\": [");
  platform.advance(1);
  EXPECT_EQ(document->saveState(), SaveState::changedByOthers);
  EXPECT_NE(document->saveFailure(), "");
  EXPECT_EQ(document->content()->head.name, "Sample");
  for (int i = 0; i < 2; ++i) {
    if (i == 0) document->saveNow();
    if (i == 1) document->takeFromOthers();
    platform.advance(1);
    EXPECT_EQ(document->saveState(), SaveState::changedByOthers);
    EXPECT_EQ(text(), "{ \"groupList\": [");
  }
  document->overwriteOthers();
  platform.advance(1);
  EXPECT_EQ(onDisk().name, "Sample");
}

TEST_F(Documents, aFileThatCannotBeReadIsOthersToo) {
  const auto document = open();
  std::filesystem::resize_file(url.path(), std::uintmax_t{1} << 40);  // all of it a hole
  rename(*document, "ours");
  platform.advance(1);
  EXPECT_EQ(document->saveState(), SaveState::changedByOthers);
  EXPECT_EQ(std::filesystem::file_size(url.path()), std::uintmax_t{1} << 40);
}

TEST_F(Documents, aFileThatIsGoneIsWrittenAgain) {
  const auto document = open();
  std::filesystem::remove(url.path());
  platform.advance(1);
  EXPECT_EQ(document->saveState(), SaveState::saved);
  rename(*document, "again");
  platform.advance(1);
  EXPECT_EQ(onDisk().name, "again");
}

TEST_F(Documents, aSaveThatFailsIsToldAndIsTriedAgain) {
  const auto document = open();
  std::filesystem::remove_all(folder.path());
  std::ofstream(folder.path().substr(0, folder.path().size() - 1)) << "no folder";
  rename(*document, "kept");
  std::optional<SaveState> answer;
  document->saveNow([&](SaveState state) { answer = state; });
  platform.advance(1);
  EXPECT_EQ(answer, SaveState::failed);
  EXPECT_NE(document->saveFailure(), "");
  EXPECT_EQ(document->content()->head.name, "kept");
  EXPECT_EQ(document->broadcasts(), 0U);
  std::filesystem::remove(folder.path().substr(0, folder.path().size() - 1));
  document->saveNow();
  platform.advance(1);
  EXPECT_EQ(document->saveState(), SaveState::saved);
  EXPECT_EQ(onDisk().name, "kept");
}

TEST_F(Documents, aSourceThatCannotBeWrittenKeepsNothingElseBack) {
  const auto document = open();
  const std::string place = folder.path("place");
  std::ofstream(place) << "no folder";
  const auto sourceAt = [](const Url& file) {
    return [file](ProjectContent& content) { content.head.configSwiftFileUrl = file; };
  };
  document->edit("Source", sourceAt(Url::file(place + "/config.swift")));
  platform.advance(1);
  EXPECT_EQ(document->saveState(), SaveState::saved);
  EXPECT_EQ(document->broadcasts(), 1U) << "who follows the project has it";
  EXPECT_NE(document->sourceFailure().find(place), std::string::npos);
  EXPECT_FALSE(document->cannotSave());
  std::filesystem::remove(place);
  document->saveNow();
  platform.advance(1);
  EXPECT_EQ(document->sourceFailure(), "");
  EXPECT_TRUE(std::filesystem::exists(place + "/config.swift"));
}

TEST_F(Documents, whatIsDeletedStaysInTheFileUntilItIsReadAgain) {
  auto document = open();
  document->edit("Delete group", [](ProjectContent& content) { flagGroup(content, "paper"); });
  document->edit("Delete value",
                 [](ProjectContent& content) { flagItem(content, "canvas", "title"); });
  platform.advance(1);
  ProjectPlaces places;
  const ZQUICProject everything = decodeEverything(text(), places).value();
  EXPECT_EQ(everything.groupList().size(), 2U);
  EXPECT_EQ(everything.groupList()[0].itemList.size(), 2U);
  document.reset();
  document = open();
  ASSERT_EQ(document->content()->groups.size(), 1U);
  EXPECT_EQ(document->content()->groups[0]->itemList.size(), 1U);
}

TEST_F(Documents, whatWaitsIsSavedThoughTheDocumentGoes) {
  auto document = open();
  rename(*document, "the last");
  document.reset();
  platform.runUntilIdle();
  EXPECT_EQ(onDisk().name, "the last");
}

TEST_F(Documents, everyFileIsOneDocument) {
  const auto all = std::make_shared<OpenDocuments>();
  std::vector<std::shared_ptr<Document>> opened;
  std::string failure;
  const Document::Opened keep = [&](const auto& result) {
    if (result.ok()) opened.push_back(result.value());
    if (!result.ok()) failure = result.error().sentence;
  };
  all->open(url, keep);
  all->open(url, keep);  // before the first is there
  platform.runUntilIdle();
  all->open(url, keep);
  platform.runUntilIdle();
  ASSERT_EQ(opened.size(), 3U);
  EXPECT_EQ(opened[0], opened[1]);
  EXPECT_EQ(opened[0], opened[2]);
  all->create(url, keep);
  platform.runUntilIdle();
  EXPECT_NE(failure, "");
  EXPECT_EQ(onDisk().name, "Sample");

  opened.clear();
  all->create(url, keep);
  platform.runUntilIdle();
  ASSERT_EQ(opened.size(), 1U);
  EXPECT_EQ(onDisk().name, "sample");
  all->open(Url::file(folder.path("no such file.zquic")), keep);
  failure.clear();
  platform.runUntilIdle();
  EXPECT_NE(failure, "");
}

TEST_F(Documents, aFileThatIsReachedByLinksIsOneDocumentToo) {
  const Url link = Url::file(folder.path("link.zquic"));
  std::filesystem::create_symlink(url.path(), link.path());
  std::filesystem::create_directory_symlink(folder.path(""), folder.path("again"));
  const Url around = Url::file(folder.path("again/link.zquic"));
  const auto all = std::make_shared<OpenDocuments>();
  const auto shelf = std::make_shared<Shelf>();
  std::vector<std::shared_ptr<Workbench>> benches;
  for (const Url& each : {link, url, around}) {
    benches.push_back(std::make_shared<Workbench>(shelf, all, WindowActions{}));
    benches.back()->openProject(each);
  }
  platform.runUntilIdle();
  rename(*benches[0]->document(), "ours");
  for (const auto& bench : benches) EXPECT_EQ(bench->document(), benches[0]->document());
  EXPECT_EQ(shelf->entries().size(), 1U);
  platform.advance(1);
  EXPECT_EQ(onDisk().name, "ours");
  EXPECT_TRUE(std::filesystem::is_symlink(link.path()));

  std::string failure;
  all->create(around, [&](const auto& made) { failure = made.ok() ? "" : made.error().sentence; });
  platform.runUntilIdle();
  EXPECT_NE(failure, "");
}

TEST_F(Documents, oneThatWasSavedElsewhereIsFoundThereAndNotWhereItWas) {
  const auto all = std::make_shared<OpenDocuments>();
  const Url there = Url::file(folder.path("there.zquic")), open = Url::file(folder.path("o.zquic"));
  std::filesystem::copy_file(url.path(), open.path());
  const auto at = [&](const Url& file) {
    std::shared_ptr<Document> document;
    all->open(file, [&](const auto& opened) { document = opened.value(); });
    platform.runUntilIdle();
    return document;
  };
  const auto moved = at(url), other = at(open);
  const auto move = [&](const Url& file) {
    std::optional<bool> saved;
    all->saveElsewhere(moved, file, [&](const auto& result) { saved = result.ok(); });
    platform.runUntilIdle();
    return saved;
  };
  EXPECT_EQ(move(open), false);
  rename(*moved, "meanwhile");
  moved->saveNow();
  EXPECT_EQ(move(there), true);
  EXPECT_EQ(at(there), moved);
  EXPECT_NE(at(url), moved);
  renameAsOthers("theirs");
  platform.advance(1);
  EXPECT_EQ(moved->content()->head.name, "meanwhile");
}

TEST_F(Documents, aWindowThatShowsAnotherProjectLosesNothingOfTheLast) {
  const auto bench = std::make_shared<Workbench>(
      std::make_shared<Shelf>(), std::make_shared<OpenDocuments>(), WindowActions{});
  const Url other = Url::file(folder.path("other.zquic"));
  std::filesystem::copy_file(url.path(), other.path());
  bench->openProject(url);
  platform.runUntilIdle();
  rename(*bench->document(), "the last");
  bench->openProject(other);
  platform.runUntilIdle();
  EXPECT_EQ(onDisk().name, "the last");
  EXPECT_EQ(bench->document()->file(), other);

  bench->openProject(url);
  platform.runUntilIdle();
  renameAsOthers("theirs");
  rename(*bench->document(), "ours");
  bench->openProject(other);
  platform.runUntilIdle();
  EXPECT_EQ(bench->sheet.get(), Sheet::changedByOthers);
  EXPECT_EQ(bench->document()->content()->head.name, "ours");
}

}  // namespace
}  // namespace zq::configurator
