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

#include <csignal>
#include <sys/resource.h>

using namespace KELMORA;
using testsupport::FileContents;
using testsupport::ThrownMessage;

namespace {

// Everything in the directory, hidden entries included, so that a
// temporary file left behind shows up.
QStringList Entries(const QString& directory) {
    return QDir(directory).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

void WriteFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

Exciter_Settings LookThrough() {
    Exciter_Settings settings;
    settings.LoadXml(
        QDir(QStringLiteral(EXAMPLES_DIR)).filePath(QStringLiteral("look_through.xml")));
    return settings;
}

// A WDE whose document is far larger than the file's write buffer, so that
// the failure comes from write() itself rather than from the final flush.
WDE LargeWDE() {
    WDE wde = testfixtures::CompleteWDE();
    for (int i = 0; i < 500; ++i) {
        WDE_Exciter exciter(i);
        exciter.SetLevel(-i);
        wde.GetExciterList().append(exciter);
    }
    return wde;
}

// Lowers a resource limit for its lifetime. While the file size limit is
// low, SIGXFSZ is ignored, so a write past it fails with EFBIG instead of
// ending the process.
class LoweredLimit {
public:
    LoweredLimit(int resource, rlim_t limit) : m_resource(resource) {
        getrlimit(m_resource, &m_previous);
        if (m_resource == RLIMIT_FSIZE)
            m_previousHandler = std::signal(SIGXFSZ, SIG_IGN);
        rlimit lowered = m_previous;
        lowered.rlim_cur = limit;
        m_lowered = setrlimit(m_resource, &lowered) == 0;
    }
    ~LoweredLimit() {
        setrlimit(m_resource, &m_previous);
        if (m_resource == RLIMIT_FSIZE)
            std::signal(SIGXFSZ, m_previousHandler);
    }
    LoweredLimit(const LoweredLimit&) = delete;
    LoweredLimit& operator=(const LoweredLimit&) = delete;
    bool Lowered() const { return m_lowered; }

private:
    int m_resource;
    rlimit m_previous{};
    void (*m_previousHandler)(int) = SIG_DFL;
    bool m_lowered = false;
};

} // namespace

TEST(FailedSaves, TargetsThatCannotBeWrittenKeepEverythingAsItWas) {
    QTemporaryDir dir;
    const Exciter_Settings settings = LookThrough();
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

    const struct {
        const char* what;
        QString target;
        const char* message;
    } failures[] = {
        {"in a missing directory", dir.filePath(QStringLiteral("missing/settings.xml")),
         "Cannot open '%1' for writing: "},
        {"a directory", directory, "Cannot open '%1' for writing: "},
        {"below a regular file", previous + QStringLiteral("/settings.xml"),
         "Cannot open '%1' for writing: "},
        {"a name too long for its temporary", longName, "Cannot write '%1': "},
    };
    for (const auto& failure : failures) {
        SCOPED_TRACE(failure.what);
        EXPECT_TRUE(ThrownMessage([&] {
                        settings.SaveXml(failure.target);
                    }).startsWith(QString::fromLatin1(failure.message).arg(failure.target)));
    }
    {
        // Every open fails while no file descriptor is left.
        LoweredLimit noFiles(RLIMIT_NOFILE, 0);
        ASSERT_TRUE(noFiles.Lowered());
        const QString message = ThrownMessage([&] { settings.SaveXml(previous); });
        EXPECT_TRUE(
            message.startsWith(QStringLiteral("Cannot open '%1' for writing: ").arg(previous)))
            << message.toStdString();
    }
    EXPECT_EQ(FileContents(previous), previousBytes);
    EXPECT_EQ(FileContents(longName), previousBytes);
    EXPECT_EQ(Entries(directory), QStringList{QStringLiteral("inside.xml")});
    EXPECT_EQ(Entries(dir.path()), before);

    // The same save to a proper target goes through.
    settings.SaveXml(previous);
    Exciter_Settings reloaded;
    reloaded.LoadXml(previous);
    EXPECT_EQ(reloaded.GetXmlString(), settings.GetXmlString());
}

TEST(FailedSaves, AWriteThatFailsHalfwayKeepsThePreviousFile) {
    // The file size limit cuts the write off after some bytes, as a full
    // disk does: in the final flush for a small document, in write() itself
    // for a large one.
    QTemporaryDir dir;
    const QString target = dir.filePath(QStringLiteral("settings.xml"));
    const QByteArray previousBytes = "the previous file, which must survive\n";
    const Exciter_Settings small = LookThrough();
    const WDE large = LargeWDE();
    const struct {
        const char* what;
        const IKMObject& record;
    } saves[] = {{"small", small}, {"large", large}};
    for (const auto& save : saves) {
        SCOPED_TRACE(save.what);
        WriteFile(target, previousBytes);
        const QStringList before = Entries(dir.path());
        QString message;
        {
            LoweredLimit fileSize(RLIMIT_FSIZE, 1000);
            ASSERT_TRUE(fileSize.Lowered());
            message = ThrownMessage([&] { save.record.SaveXml(target); });
        }
        EXPECT_TRUE(message.startsWith(QStringLiteral("Cannot write '%1': ").arg(target)))
            << message.toStdString();
        EXPECT_EQ(FileContents(target), previousBytes);
        EXPECT_EQ(Entries(dir.path()), before); // no temporary file left behind

        // Without the limit the same save goes through.
        save.record.SaveXml(target);
        EXPECT_GT(FileContents(target).size(), 1000);
        EXPECT_EQ(QString::fromUtf8(FileContents(target)), save.record.GetXmlString());
    }
}
