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

Exciter_Settings LookThrough() {
    Exciter_Settings settings;
    settings.LoadXml(QStringLiteral(EXAMPLES_DIR "/look_through.xml"));
    return settings;
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
    const QString previous = dir.filePath(QStringLiteral("settings.xml"));
    const QByteArray previousBytes = "<Exciter_Settings>the previous file</Exciter_Settings>\n";
    WriteFile(previous, previousBytes);
    const QString directory = dir.filePath(QStringLiteral("settings.d"));
    ASSERT_TRUE(QDir(dir.path()).mkdir(QStringLiteral("settings.d")));
    WriteFile(QDir(directory).filePath(QStringLiteral("inside.xml")), "inside");
    // A name as long as the file system allows: the file exists, but the
    // temporary name beside it would be too long.
    const QString longName = dir.filePath(QString(255, QLatin1Char('n')));
    WriteFile(longName, previousBytes);
    const QStringList before = Entries(dir.path());
    // The file size limit cuts a write off as a full disk does: for the small
    // document in the final flush, for the large one, far larger than the
    // file's write buffer, in write() itself.
    const Exciter_Settings small = LookThrough();
    WDE large = testfixtures::CompleteWDE();
    large.GetExciterList().fill(WDE_Exciter(0), 500);

    const QString cannotOpen = QStringLiteral("Cannot open '%1' for writing: ");
    const QString cannotWrite = QStringLiteral("Cannot write '%1': ");
    const struct {
        const char* what;
        const IKMObject& record;
        QString target;
        int resource;
        rlim_t limit;
        QString message;
    } failures[] = {
        {"in a missing directory", small, dir.filePath(QStringLiteral("missing/settings.xml")),
         RLIMIT_NOFILE, RLIM_INFINITY, cannotOpen},
        {"a directory", small, directory, RLIMIT_NOFILE, RLIM_INFINITY, cannotOpen},
        {"below a regular file", small, previous + QStringLiteral("/settings.xml"), RLIMIT_NOFILE,
         RLIM_INFINITY, cannotOpen},
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
        EXPECT_EQ(Entries(directory), QStringList{QStringLiteral("inside.xml")});
        EXPECT_EQ(Entries(dir.path()), before); // no temporary file left behind
    }

    // Without the limits the same saves go through, past the size limit.
    const IKMObject* const saves[] = {&small, &large};
    for (const IKMObject* record : saves) {
        record->SaveXml(previous);
        EXPECT_GT(FileContents(previous).size(), 1000);
        EXPECT_EQ(QString::fromUtf8(FileContents(previous)), record->GetXmlString());
    }
}
