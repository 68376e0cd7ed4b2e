// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <filesystem>
#include <random>
#include <tests/qt/support.hpp>
#include <zqswiftui/platform/qt/desktop_documents.hpp>
#include <zqswiftui/platform/qt/mounted_shares.hpp>
#include <zqswiftui/platform/qt/recent_list.hpp>

namespace zq::qt {
namespace {

const QString kUs = QStringLiteral("Ours");

// As GLib writes it, and with what it would never write.
const QByteArray kForeign = R"(<?xml version="1.0" encoding="UTF-8"?>
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

OpenedDocument opened(const char* href, int minute = 0) {
  return {QString::fromLatin1(href), QStringLiteral("text/plain"), kUs,
          QStringLiteral("'/usr/bin/ours' %u"),
          QDateTime::fromString(QStringLiteral("2026-01-01T12:00:00Z"), Qt::ISODate)
              .addSecs(60 * minute)};
}

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
      EXPECT_TRUE(twice->contains(kept)) << href << ": " << kept << "\n" << twice->toStdString();
    }
    EXPECT_EQ(twice->count("<bookmark "), href == std::string("file:///new.txt") ? 3 : 2);
    EXPECT_EQ(twice->count("name=\"Ours\""), 1);
    EXPECT_TRUE(twice->contains("count=\"2\""));
    EXPECT_EQ(documentsOf(*twice, {kUs}), QStringList{QString::fromLatin1(href)});
    EXPECT_EQ(documentsOf(*twice, {QStringLiteral("Editor")}),
              QStringList{QString::fromLatin1(known)});
  }
}

TEST(QtRecentList, theLastOpenedComesFirst) {
  QByteArray list;
  for (int i = 0; i < 5; ++i) {
    list = *withDocument(list, opened(("file:///" + std::to_string(i)).c_str(), (i * 3) % 5));
  }
  EXPECT_EQ(documentsOf(list, {kUs}).join(u' '),
            QStringLiteral("file:///3 file:///1 file:///4 file:///2 file:///0"));
  list = *withDocument(list, opened("file:///0", 9));
  EXPECT_EQ(documentsOf(list, {kUs}).first(), QStringLiteral("file:///0"));
  EXPECT_TRUE(documentsOf(list, {QStringLiteral("Somebody")}).isEmpty());
}

TEST(QtRecentList, ofADamagedListWhatStandsBeforeTheDamageIsRead) {
  QByteArray whole;
  for (int i = 0; i < 20; ++i) {
    whole = *withDocument(whole, opened(("file:///" + std::to_string(i)).c_str(), 20 - i));
  }
  for (qsizetype cut = 0; cut < whole.size(); cut += 37) {
    const QByteArray part = whole.first(cut);
    const auto before = documentsOf(part, {kUs});
    const QByteArray mended = undamaged(part);
    EXPECT_EQ(documentsOf(mended, {kUs}), before) << cut;
    const auto next = withDocument(mended, opened("file:///next", 30));
    ASSERT_TRUE(next) << cut;
    EXPECT_EQ(documentsOf(*next, {kUs}).size(), before.size() + 1) << cut;
    if (!part.trimmed().isEmpty() && !part.contains("</xbel>")) {
      EXPECT_FALSE(withDocument(part, opened("file:///next"))) << cut;
    }
  }
  EXPECT_FALSE(withDocument("<html/>", opened("file:///next"))) << "no list of ours";
  for (const char* nonsense : {"no xml", "<html/>", "<xbel", "\xff\xfe", "<xbel></other>"}) {
    EXPECT_TRUE(withDocument(undamaged(nonsense), opened("file:///next"))) << nonsense;
  }
}

// Bytes changed, cut, doubled and brought in, always the same way.
QByteArray mutated(std::mt19937& random, QByteArray list) {
  static const QByteArray pieces[] = {
      "<",       ">",          "/>", "&amp;",          "&",   "]]>", "<!--", "<bookmark ",
      "</info>", "href=\"x\"", "\"", QByteArray(1, 0), "\xc3"};
  for (unsigned i = random() % 4 + 1; i > 0 && !list.isEmpty(); --i) {
    const auto at = static_cast<qsizetype>(random() % static_cast<unsigned>(list.size()));
    const auto length = static_cast<qsizetype>(random() % 120);
    switch (random() % 4) {
      case 0:
        list[at] = static_cast<char>(random());
        break;
      case 1:
        list.remove(at, length);
        break;
      case 2:
        list.insert(at, list.mid(static_cast<qsizetype>(random() % 900), length));
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
    const QByteArray list = mutated(random, kForeign);
    auto written = withDocument(list, next);
    if (!written) written = withDocument(undamaged(list), next);
    ASSERT_TRUE(written) << list.toStdString();
    EXPECT_TRUE(documentsOf(*written, {kUs}).contains(next.href)) << list.toStdString();
  }
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
  void write(const QByteArray& content) const {
    QFile out(file());
    ASSERT_TRUE(out.open(QIODevice::WriteOnly));
    out.write(content);
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

using Urls = std::vector<std::string>;

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
  const QByteArray cut = read().chopped(20);
  write(cut);
  DesktopDocuments documents(file().toStdString());
  testing::internal::CaptureStderr();
  documents.add("file:///c");
  documents.finish();
  EXPECT_NE(testing::internal::GetCapturedStderr().find("damaged"), std::string::npos);
  EXPECT_EQ(entries(), before + 1) << "the damaged list is kept";
  EXPECT_EQ(list(documents).front(), "file:///c");
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
  QByteArray list_(kForeign.first(kForeign.indexOf("  <bookmark")));
  for (int i = 0; i < 20'000; ++i) {
    list_ += "<bookmark href=\"file:///d/" + QByteArray::number(i) +
             "\" added=\"2025-01-01T10:00:00Z\" modified=\"2025-01-01T10:00:00Z\" "
             "visited=\"2025-01-01T10:00:00Z\"><info><metadata owner=\"http://freedesktop.org\">"
             "<bookmark:applications><bookmark:application name=\"" +
             (i % 2 == 0 ? QCoreApplication::applicationName().toUtf8() : QByteArray("Other")) +
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
