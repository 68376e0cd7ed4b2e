// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <random>
#include <tests/qt/support.hpp>
#include <zqswiftui/platform/qt/desktop_documents.hpp>
#include <zqswiftui/platform/qt/mounted_shares.hpp>
#include <zqswiftui/platform/qt/recent_list.hpp>

namespace zq::qt {
namespace {

const std::string kUs = "Ours";

// As GLib writes it, and with what it would never write.
const std::string kForeign = R"(<?xml version="1.0" encoding="UTF-8"?>
<!-- kept -->
<xbel version="1.0"
      xmlns:bookmark="http://www.freedesktop.org/standards/desktop-bookmarks"
      xmlns:mime="http://www.freedesktop.org/standards/shared-mime-info"
      xmlns:own="urn:own">
  <bookmark href="file:///a%20b/caf%C3%A9.txt" added="2025-01-01T10:00:00.123456Z" modified="2025-01-02T10:00:00Z" visited="2025-01-02T10:00:00Z">
    <title>A &amp; B</title>
    <info>
      <metadata owner="http://freedesktop.org">
        <mime:mime-type type="text/plain"/>
        <bookmark:groups><bookmark:group>Office</bookmark:group></bookmark:groups>
        <bookmark:applications>
          <bookmark:application name="Editor" exec="&apos;editor %u&apos;" modified="2025-01-02T10:00:00Z" count="7"/>
        </bookmark:applications>
        <bookmark:private/>
      </metadata>
      <metadata owner="urn:own"><own:thing own:deep="1"><![CDATA[<raw>]]></own:thing></metadata>
    </info>
  </bookmark>
  <folder><title>Not a document</title></folder>
  <bookmark href="http://example.org/?a=1&amp;b=2" added="2025-02-01T10:00:00Z" modified="2025-02-01T10:00:00Z" visited="2025-02-01T10:00:00Z"/>
</xbel>
)";

OpenedDocument opened(const std::string& href, int minute = 0) {
  constexpr std::chrono::sys_days kDay{std::chrono::year(2026) / 1 / 1};
  return {href, "text/plain", kUs, "'/usr/bin/ours' %u",
          kDay + std::chrono::hours(12) + std::chrono::minutes(minute)};
}

int count(std::string_view text, std::string_view part) {
  int found = 0;
  for (auto at = text.find(part); at != text.npos; at = text.find(part, at + 1)) ++found;
  return found;
}

using Urls = std::vector<std::string>;

TEST(QtRecentList, aDocumentComesInAndNothingElseGoes) {
  const char* known = "file:///a%20b/caf%C3%A9.txt";
  for (const char* href : {known, "http://example.org/?a=1&b=2", "file:///new.txt"}) {
    const auto once = withDocument(kForeign, opened(href));
    ASSERT_TRUE(once) << href;
    const auto twice = withDocument(*once, opened(href, 1));
    ASSERT_TRUE(twice) << href;
    for (const char* kept :
         {"<!-- kept -->", "A &amp; B", "count=\"7\"", "added=\"2025-01-01T10:00:00.123456Z\"",
          "<bookmark:group>Office</bookmark:group>", "<bookmark:private", "own:deep=\"1\"",
          "<![CDATA[<raw>]]>", "Not a document", "http://example.org/?a=1&amp;b=2"}) {
      EXPECT_NE(twice->find(kept), twice->npos) << href << ": " << kept << "\n" << *twice;
    }
    EXPECT_EQ(count(*twice, "<bookmark "), href == std::string("file:///new.txt") ? 3 : 2);
    EXPECT_EQ(count(*twice, "name=\"Ours\""), 1);
    EXPECT_EQ(count(*twice, "count=\"2\""), 1);
    EXPECT_EQ(documentsOf(*twice, {kUs}), Urls{href});
    EXPECT_EQ(documentsOf(*twice, {"Editor"}), Urls{known});
  }
}

TEST(QtRecentList, theLastOpenedComesFirst) {
  std::string list;
  for (int i = 0; i < 5; ++i) {
    list = *withDocument(list, opened("file:///" + std::to_string(i), (i * 3) % 5));
  }
  EXPECT_EQ(documentsOf(list, {kUs}),
            (Urls{"file:///3", "file:///1", "file:///4", "file:///2", "file:///0"}));
  list = *withDocument(list, opened("file:///0", 9));
  EXPECT_EQ(documentsOf(list, {kUs}).front(), "file:///0");
  EXPECT_TRUE(documentsOf(list, {"Somebody"}).empty());
}

TEST(QtRecentList, ofADamagedListWhatStandsBeforeTheDamageIsRead) {
  std::string whole;
  for (int i = 0; i < 20; ++i) {
    whole = *withDocument(whole, opened("file:///" + std::to_string(i), 20 - i));
  }
  for (std::size_t cut = 0; cut < whole.size(); cut += 37) {
    const std::string part = whole.substr(0, cut);
    const auto before = documentsOf(part, {kUs});
    const std::string mended = undamaged(part);
    EXPECT_EQ(documentsOf(mended, {kUs}), before) << cut;
    const auto next = withDocument(mended, opened("file:///next", 30));
    ASSERT_TRUE(next) << cut;
    EXPECT_EQ(documentsOf(*next, {kUs}).size(), before.size() + 1) << cut;
    if (!part.empty() && count(part, "</xbel>") == 0) {
      EXPECT_FALSE(withDocument(part, opened("file:///next"))) << cut;
    }
  }
  EXPECT_FALSE(withDocument("<html/>", opened("file:///next"))) << "no list of ours";
  for (const char* nonsense : {"no xml", "<html/>", "<xbel", "\xff\xfe", "<xbel></other>"}) {
    EXPECT_TRUE(withDocument(undamaged(nonsense), opened("file:///next"))) << nonsense;
  }
}

// Bytes changed, cut, doubled and brought in, always the same way.
std::string mutated(std::mt19937& random, std::string list) {
  static const std::string pieces[] = {
      "<",       ">",          "/>", "&amp;",           "&",   "]]>", "<!--", "<bookmark ",
      "</info>", "href=\"x\"", "\"", std::string(1, 0), "\xc3"};
  for (unsigned i = random() % 4 + 1; i > 0 && !list.empty(); --i) {
    const std::size_t at = random() % list.size(), length = random() % 120;
    switch (random() % 4) {
      case 0:
        list[at] = static_cast<char>(random());
        break;
      case 1:
        list.erase(at, length);
        break;
      case 2:
        list.insert(at, list.substr(std::min<std::size_t>(random() % 900, list.size()), length));
        break;
      default:
        list.insert(at, pieces[random() % std::size(pieces)]);
    }
  }
  return list;
}

TEST(QtRecentList, whateverStandsInItTheNextDocumentComesIn) {
  const OpenedDocument next = opened("file:///next");
  std::mt19937 random(1);  // NOLINT: the same each time
  for (int i = 0; i < 3000; ++i) {
    const std::string list = mutated(random, kForeign);
    auto written = withDocument(list, next);
    if (!written) written = withDocument(undamaged(list), next);
    ASSERT_TRUE(written) << list;
    const Urls documents = documentsOf(*written, {kUs});
    EXPECT_EQ(std::count(documents.begin(), documents.end(), next.href), 1) << list;
  }
}

TEST(QtRecentList, whatIsHostileIsDamageAndStaysBounded) {
  const auto ours = [](const std::string& href, const std::string& modified) {
    return "<bookmark href=\"" + href + "\"><x><application name=\"Ours\" modified=\"" + modified +
           "\"/></x></bookmark>";
  };
  const std::string good = ours("file:///good", "2025-01-01T10:00:00Z");
  std::string laughs = "<!DOCTYPE xbel [<!ENTITY a0 \"ha\">";
  for (int i = 1; i < 40; ++i) {
    const std::string before = "&a" + std::to_string(i - 1) + ';';
    laughs += "<!ENTITY a" + std::to_string(i) + " \"" + before + before + "\">";
  }
  std::string deep;
  for (int i = 0; i < 200'000; ++i) deep += "<a>";
  const std::string plainDoctype = "<!DOCTYPE xbel PUBLIC \"a\" \"file:///no/such.dtd\">";
  struct Case {
    const char* what;
    std::string list;
    bool isRead, isDamaged;
  };
  for (const Case& row : std::vector<Case>{
           {"entities", laughs + "]><xbel>" + good + "<title>&a39;</title></xbel>", false, true},
           {"a file", "<!DOCTYPE x [<!ENTITY a SYSTEM \"/etc/passwd\">]><xbel>" + good + "</xbel>",
            false, true},
           {"a plain type", plainDoctype + "<xbel>" + good + "</xbel>", true, false},
           {"nesting", "<xbel>" + good + deep, true, true},
           {"a zero byte", "<xbel>" + good + std::string(1, 0) + "</xbel>", true, true},
           {"another encoding",
            "<?xml version='1.0' encoding='ISO-8859-1'?><xbel><title>\xe9</title>" + good +
                "</xbel>",
            true, false},
           {"an unknown one", "<?xml version='1.0' encoding='none'?><xbel>" + good + "</xbel>",
            false, true},
           {"no UTF-8", "<xbel>" + good + "<title>\xe9</title></xbel>", true, true},
       }) {
    EXPECT_EQ(documentsOf(row.list, {kUs}), row.isRead ? Urls{"file:///good"} : Urls{}) << row.what;
    OpenedDocument next = opened("file:///next");
    next.exec = "'caf\xc3\xa9' <\x01>";
    auto written = withDocument(row.list, next);
    EXPECT_EQ(!written, row.isDamaged) << row.what;
    if (!written) written = withDocument(undamaged(row.list), next);
    ASSERT_TRUE(written) << row.what;
    EXPECT_EQ(documentsOf(*written, {kUs}).size(), row.isRead ? 2U : 1U) << row.what;
  }
}

TEST(QtRecentList, theTimesOfOtherProgramsAreCompared) {
  std::string list = "<xbel>";
  for (const char* when :
       {"2025-01-01T10:00:00Z", "2025-01-01T10:00:00.5+02:00", "2025-01-01T10:00:00.25Z",
        "2025-01-01T09:30:00-01:00", "2025-13-41T10:00:00Z", "soon", "2025-01-01T10:00:00+1"}) {
    list += "<bookmark href=\"" + std::string(when) + "\"><application name=\"Ours\" modified=\"" +
            when + "\"/></bookmark>";
  }
  EXPECT_EQ(documentsOf(list, {kUs}),
            (Urls{"2025-01-01T09:30:00-01:00", "2025-01-01T10:00:00.25Z", "2025-01-01T10:00:00Z",
                  "2025-01-01T10:00:00.5+02:00", "2025-13-41T10:00:00Z", "soon",
                  "2025-01-01T10:00:00+1"}));
}

TEST(QtMountedShares, theInnermostMountDecides) {
  const MountedShares shares(
      "22 1 8:1 / / rw,relatime shared:1 - ext4 /dev/sda1 rw\n"
      "no line\n\n"
      "30 22 0:40 / /mnt/office rw - nfs4 office:/all rw\n"
      "31 30 8:2 / /mnt/office/local rw master:2 - ext4 /dev/sdb1 rw\n"
      "32 22 0:41 / /run/user/1000/gvfs rw - fuse.gvfsd-fuse gvfsd-fuse rw\n"
      "33 22 0:42 / /mnt/two\\040words rw - cifs //nas/x rw\n");
  for (const auto& [path, share] : std::vector<std::pair<const char*, const char*>>{
           {"/home/a", ""},
           {"/mnt/office", "/mnt/office"},
           {"/mnt/office/a/b", "/mnt/office"},
           {"/mnt/officer", ""},
           {"/mnt/office/local/c", "/mnt/office"},  // the way leads through it
           {"/run/user/1000/gvfs/smb-share:server=x/y", "/run/user/1000/gvfs"},
           {"/mnt/two words/d", "/mnt/two words"},
           {"", ""}}) {
    EXPECT_EQ(shares.shareOf(path), share) << path;
  }

  const QTemporaryDir folder;
  const std::string home = folder.path().toStdString();
  const auto link = [&](const char* to, const std::string& name) {
    std::filesystem::create_symlink(to, home + "/" + name);
    return home + "/" + name;
  };
  const std::string nas = link("/mnt/office/x", "nas"), round = link("round", "round");
  link("nas/deep", "way");
  EXPECT_EQ(shares.shareOf(nas + "/a.txt"), "/mnt/office");
  EXPECT_EQ(shares.shareOf(home + "/way/a.txt"), "/mnt/office");
  EXPECT_EQ(shares.shareOf(link("/etc", "here") + "/passwd"), "");
  EXPECT_EQ(shares.shareOf(round + "/a"), "");
}

// The service, on a data folder of its own.
class QtDesktopDocuments : public testing::Test {
 protected:
  QString file() const { return folder.filePath(QStringLiteral("recently-used.xbel")); }
  void write(const std::string& content) const {
    QFile out(file());
    ASSERT_TRUE(out.open(QIODevice::WriteOnly));
    out.write(QByteArray::fromStdString(content));
  }
  QByteArray read() const {
    QFile in(file());
    return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
  }
  static std::vector<std::string> list(DesktopDocuments& documents) {
    std::optional<std::vector<std::string>> urls;
    documents.list([&](const std::vector<RecentDocument>& found) {
      urls.emplace();
      for (const RecentDocument& document : found) urls->push_back(document.url);
    });
    EXPECT_TRUE(waitFor([&] { return urls.has_value(); }));
    return *urls;
  }
  int entries() const {
    return static_cast<int>(QDir(folder.path()).entryList(QDir::Files).size());
  }

  QTemporaryDir folder;
};

TEST_F(QtDesktopDocuments, addsToTheListOfTheDesktopAndReadsItsOwn) {
  write(kForeign);
  DesktopDocuments documents(file().toStdString());
  EXPECT_EQ(list(documents), Urls{});
  documents.add("file:///one.txt");
  documents.add("no address");
  documents.add("file:///two.txt");
  documents.add("file:///one.txt");
  EXPECT_EQ(list(documents).size(), 2U) << "also what is not written yet";
  documents.finish();
  EXPECT_EQ(list(documents), (Urls{"file:///one.txt", "file:///two.txt"}));
  EXPECT_TRUE(read().contains("Editor"));
  DesktopDocuments other(file().toStdString());
  EXPECT_EQ(list(other), (Urls{"file:///one.txt", "file:///two.txt"}));
}

TEST_F(QtDesktopDocuments, aListThatIsMissingEmptyOrDamagedIsMadeAndTheDamagedOneKept) {
  {
    DesktopDocuments documents(file().toStdString());
    EXPECT_EQ(list(documents), Urls{});
    documents.add("file:///a");
    documents.finish();
    EXPECT_EQ(QFile::permissions(file()) & (QFile::ReadOther | QFile::ReadGroup),
              QFile::Permissions());
  }
  write("");
  {
    DesktopDocuments documents(file().toStdString());
    documents.add("file:///b");
    documents.finish();
    EXPECT_EQ(list(documents), Urls{"file:///b"});
  }
  const int before = entries();
  const std::string cut = read().chopped(20).toStdString();
  write(cut);
  DesktopDocuments documents(file().toStdString());
  testing::internal::CaptureStderr();
  documents.add("file:///c");
  documents.finish();
  EXPECT_NE(testing::internal::GetCapturedStderr().find("damaged"), std::string::npos);
  EXPECT_EQ(entries(), before + 1) << "the damaged list is kept";
  EXPECT_EQ(list(documents).front(), "file:///c");
}

TEST_F(QtDesktopDocuments, ofALongListEachIsFoundOnceWithItsOwnFacts) {
  constexpr int kDocuments = 3000, kFiles = 20;
  const QByteArray name = QCoreApplication::applicationName().toUtf8();
  const auto address = [&](int i) {
    const QString path = folder.filePath(QString::number(i % kFiles));
    return "file://" + path.toStdString() + '?' + std::to_string(i / kFiles);  // a file has many
  };
  for (int i = 0; i < kFiles; ++i) {
    QFile made(folder.filePath(QString::number(i)));
    ASSERT_TRUE(made.open(QIODevice::WriteOnly) && made.resize(i));
  }
  std::string xml = "<xbel>";
  const auto list = [&](const std::string& href) {
    xml += "<bookmark href=\"" + href + "\"><application name=\"" + name.toStdString() +
           "\" modified=\"2025-01-01T10:00:00Z\"/></bookmark>";
  };
  for (int i = 0; i < kDocuments; ++i) {
    list(address(i));
    if (i % 7 == 0) list("no address " + std::to_string(i));
    if (i % 5 == 0) list(address(i / 2));
    if (i % 3 == 0) list("FILE" + address(i).substr(4));
  }
  write(xml + "</xbel>");
  DesktopDocuments documents(file().toStdString());
  std::optional<std::vector<RecentDocument>> found;
  documents.list([&](std::vector<RecentDocument> all) { found = std::move(all); });
  ASSERT_TRUE(waitFor([&] { return found.has_value(); }));
  ASSERT_EQ(found->size(), static_cast<std::size_t>(kDocuments));
  for (int i = 0; i < kDocuments; ++i) {
    const RecentDocument& document = (*found)[static_cast<std::size_t>(i)];
    ASSERT_EQ(document.url, address(i));
    ASSERT_TRUE(document.facts) << document.url;
    ASSERT_EQ(document.facts->size, i % kFiles);
  }
}

TEST_F(QtDesktopDocuments, whatIsNoRegularFileIsLeftAlone) {
  ASSERT_EQ(::mkfifo(file().toUtf8().constData(), 0600), 0);
  DesktopDocuments documents(file().toStdString());
  testing::internal::CaptureStderr();
  documents.add("file:///a");
  documents.finish();
  EXPECT_FALSE(testing::internal::GetCapturedStderr().empty());
  EXPECT_EQ(list(documents), Urls{});
  struct stat info {};
  ASSERT_EQ(::lstat(file().toUtf8().constData(), &info), 0);
  EXPECT_TRUE(S_ISFIFO(info.st_mode));
}

TEST_F(QtDesktopDocuments, twentyThousandEntriesAreOneList) {
  std::string list_ = kForeign.substr(0, kForeign.find("  <bookmark"));
  for (int i = 0; i < 20'000; ++i) {
    list_ += "<bookmark href=\"file:///d/" + std::to_string(i) +
             "\" added=\"2025-01-01T10:00:00Z\" modified=\"2025-01-01T10:00:00Z\" "
             "visited=\"2025-01-01T10:00:00Z\"><info><metadata owner=\"http://freedesktop.org\">"
             "<bookmark:applications><bookmark:application name=\"" +
             (i % 2 == 0 ? QCoreApplication::applicationName().toStdString() : "Other") +
             "\" exec=\"x\" modified=\"2025-01-01T10:00:00Z\" count=\"1\"/>"
             "</bookmark:applications></metadata></info></bookmark>\n";
  }
  write(list_ + "</xbel>\n");
  DesktopDocuments documents(file().toStdString());
  documents.add("file:///new");
  documents.finish();
  EXPECT_EQ(list(documents).size(), 10'001U);
  EXPECT_EQ(read().count("<bookmark "), 20'001);
}

}  // namespace
}  // namespace zq::qt
