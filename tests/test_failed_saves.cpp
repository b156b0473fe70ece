// SPDX-License-Identifier: MIT
// Saves that fail keep the previous file byte for byte, name the file in
// their message and leave nothing behind beside it. CI runs as root, whom
// permission bits do not stop, so the failures come from the shape of the
// file system and from resource limits, which bind root as well.
#include "RecordFixtures.h"
#include "TestSupport.h"

#include <Exciter_Settings.h>
#include <WDE_Exciter.h>

#include <QDir>
#include <QTemporaryDir>

#include <algorithm>
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

using namespace KELMORA;
using testsupport::FileContents;
using testsupport::ThrownMessage;
using testsupport::WriteFile;

namespace {

// Everything in the directory, hidden entries included, so that a
// temporary file left behind shows up.
QStringList Entries(const QString& directory) {
    return QDir(directory).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

// The message of the save, made while a resource limit is lowered to at
// most `limit`. SIGXFSZ is ignored meanwhile, so that a write past the file
// size limit fails with EFBIG instead of ending the process.
QString SaveFailure(const IKMObject& record, const QString& target, int resource, rlim_t limit) {
    rlimit previous{};
    getrlimit(resource, &previous);
    rlimit lowered = previous;
    lowered.rlim_cur = std::min(limit, previous.rlim_cur);
    const auto previousHandler = std::signal(SIGXFSZ, SIG_IGN);
    EXPECT_EQ(setrlimit(resource, &lowered), 0);
    QString message = ThrownMessage([&] { record.SaveXml(target); });
    setrlimit(resource, &previous);
    std::signal(SIGXFSZ, previousHandler);
    return message;
}

} // namespace

TEST(FailedSaves, SavesThatFailKeepEverythingAsItWas) {
    QTemporaryDir dir;
    const QString previous = dir.filePath("settings.xml");
    const QByteArray previousBytes = "<Exciter_Settings>the previous file</Exciter_Settings>\n";
    WriteFile(previous, previousBytes);
    const QString directory = dir.filePath("settings.d");
    ASSERT_TRUE(QDir(dir.path()).mkdir("settings.d"));
    WriteFile(QDir(directory).filePath("inside.xml"), "inside");
    // A name as long as the file system allows: the file exists, but the
    // temporary name beside it would be too long.
    const QString longName = dir.filePath(QString(255, QLatin1Char('n')));
    WriteFile(longName, previousBytes);
    const QStringList before = Entries(dir.path());
    // The file size limit cuts a write off as a full disk does: for the small
    // document in the final flush, for the large one, far larger than the
    // file's write buffer, in write() itself.
    const Exciter_Settings small = testfixtures::Example("look_through");
    WDE large = testfixtures::CompleteWDE();
    large.GetExciterList().fill(WDE_Exciter(0), 500);

    const QString cannotOpen = "Cannot open '%1' for writing: ";
    const QString cannotWrite = "Cannot write '%1': ";
    const struct {
        const char* what;
        const IKMObject& record;
        QString target;
        int resource;
        rlim_t limit;
        QString message;
    } failures[] = {
        {"in a missing directory", small, dir.filePath("missing/settings.xml"), RLIMIT_NOFILE,
         RLIM_INFINITY, cannotOpen},
        {"a directory", small, directory, RLIMIT_NOFILE, RLIM_INFINITY, cannotOpen},
        {"below a regular file", small, previous + "/settings.xml", RLIMIT_NOFILE, RLIM_INFINITY,
         cannotOpen},
        {"a name too long for its temporary", small, longName, RLIMIT_NOFILE, RLIM_INFINITY,
         cannotWrite},
        {"no file descriptor left", small, previous, RLIMIT_NOFILE, 0, cannotOpen},
        {"cut off in the final flush", small, previous, RLIMIT_FSIZE, 1000, cannotWrite},
        {"cut off in write()", large, previous, RLIMIT_FSIZE, 1000, cannotWrite},
    };
    for (const auto& failure : failures) {
        SCOPED_TRACE(failure.what);
        const QString message =
            SaveFailure(failure.record, failure.target, failure.resource, failure.limit);
        EXPECT_TRUE(message.startsWith(failure.message.arg(failure.target)))
            << message.toStdString();
        EXPECT_EQ(FileContents(previous), previousBytes);
        EXPECT_EQ(FileContents(longName), previousBytes);
        EXPECT_EQ(Entries(directory), QStringList{"inside.xml"});
        EXPECT_EQ(Entries(dir.path()), before); // no temporary file left behind
    }
}

// A save replaces a regular file only, keeps its mode and owner, and
// follows a symbolic link to the file it names.
TEST(FailedSaves, ASaveReplacesOnlyARegularFileAndKeepsItsModeAndOwner) {
    QTemporaryDir dir;
    const Exciter_Settings settings = testfixtures::Example("look_through");
    const auto path = [&](const char* name) { return dir.filePath(QLatin1String(name)); };
    const auto status = [](const QString& file) {
        struct stat info {};
        lstat(QFile::encodeName(file).constData(), &info);
        return info;
    };
    ASSERT_EQ(mkfifo(QFile::encodeName(path("fifo")).constData(), 0600), 0);
    QStringList specials = {path("fifo"), dir.path()};
    const bool root = geteuid() == 0;
    if (root &&
        mknod(QFile::encodeName(path("null")).constData(), S_IFCHR | 0666, makedev(1, 3)) == 0)
        specials << path("null");
    for (const QString& special : specials) {
        const mode_t before = status(special).st_mode;
        const QString message = ThrownMessage([&] { settings.SaveXml(special); });
        EXPECT_TRUE(
            message.startsWith(QString("Cannot open '%1' for writing: it is a ").arg(special)))
            << message.toStdString();
        EXPECT_EQ(status(special).st_mode, before);
    }

    const QString readOnly = path("read-only.xml");
    WriteFile(readOnly, "previous");
    ASSERT_EQ(chmod(QFile::encodeName(readOnly).constData(), 0444), 0);
    const uid_t nobody = 65534;
    if (root) {
        ASSERT_EQ(chown(QFile::encodeName(readOnly).constData(), nobody, nobody), 0);
    }
    const struct stat before = status(readOnly);
    QFile::link(readOnly, path("link.xml"));
    settings.SaveXml(path("link.xml"));
    EXPECT_TRUE(S_ISLNK(status(path("link.xml")).st_mode));
    const struct stat after = status(readOnly);
    EXPECT_EQ(after.st_mode, before.st_mode);
    EXPECT_EQ(after.st_uid, before.st_uid);
    EXPECT_EQ(after.st_gid, before.st_gid);
    EXPECT_EQ(QString::fromUtf8(FileContents(readOnly)), settings.GetXmlString());
    EXPECT_EQ(Entries(dir.path()).size(), specials.size() + 1); // no temporary file left
}
