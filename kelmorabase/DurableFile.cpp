// SPDX-License-Identifier: MIT
#include "DurableFile.h"

#include "KMException.h"

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <cerrno>
#include <climits>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace KELMORA {
namespace DurableFile {

namespace {

QString Reason(int error) {
    return QString::fromLocal8Bit(std::strerror(error));
}

[[noreturn]] void CannotOpen(const QString& fileName, const QString& reason) {
    throw KMException(QStringLiteral("Cannot open '%1' for writing: %2").arg(fileName, reason));
}

[[noreturn]] void CannotWrite(const QString& fileName, const QString& reason) {
    throw KMException(QStringLiteral("Cannot write '%1': %2").arg(fileName, reason));
}

QString KindOf(mode_t mode) {
    if (S_ISDIR(mode))
        return QStringLiteral("a directory");
    if (S_ISFIFO(mode))
        return QStringLiteral("a FIFO");
    if (S_ISSOCK(mode))
        return QStringLiteral("a socket");
    if (S_ISCHR(mode) || S_ISBLK(mode))
        return QStringLiteral("a device");
    return QStringLiteral("not a regular file");
}

// The file a name stands for: symbolic links followed, as many as the
// system follows, also when the last one points to a file not there yet.
QByteArray FinalTarget(const QString& fileName) {
    QByteArray path = QFile::encodeName(fileName);
    for (int hops = 0; hops < 40; ++hops) {
        char target[PATH_MAX];
        const ssize_t length = ::readlink(path.constData(), target, sizeof target - 1);
        if (length < 0)
            return path;
        QByteArray next(target, static_cast<int>(length));
        if (!next.startsWith('/')) {
            const int slash = path.lastIndexOf('/');
            next.prepend(slash >= 0 ? path.left(slash + 1) : QByteArray());
        }
        path = next;
    }
    return path; // a loop: the open reports it
}

QByteArray DirectoryOf(const QByteArray& path) {
    const int slash = path.lastIndexOf('/');
    if (slash < 0)
        return QByteArrayLiteral(".");
    return slash == 0 ? QByteArrayLiteral("/") : path.left(slash);
}

// The mode a new file gets: 0666 less the process's umask, read without
// changing it (umask() can only be read by setting it, which would race
// with other threads).
mode_t NewFileMode() {
    QFile status(QStringLiteral("/proc/self/status"));
    if (status.open(QIODevice::ReadOnly)) {
        for (const QByteArray& line : status.readAll().split('\n')) {
            if (line.startsWith("Umask:"))
                return 0666 & ~static_cast<mode_t>(line.mid(6).trimmed().toUInt(nullptr, 8));
        }
    }
    return 0644;
}

// The temporary file while it is written; removes whatever is left of it
// unless it was renamed over the target.
class TemporaryFile {
public:
    TemporaryFile(const QString& fileName, const QByteArray& target)
        : m_fileName(fileName), m_target(target) {
        // Unnamed until it is complete, so that nothing half-written ever
        // has a name; file systems without that get a named one.
        m_fd = ::open(DirectoryOf(target).constData(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600);
        if (m_fd < 0 && (errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL)) {
            m_name = TemporaryName();
            m_fd = ::open(m_name.constData(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0600);
        }
        if (m_fd < 0)
            CannotOpen(m_fileName, Reason(errno));
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        if (m_fd >= 0)
            ::close(m_fd);
        if (!m_name.isEmpty() && !m_renamed)
            ::unlink(m_name.constData());
    }

    void Write(const QByteArray& piece) {
        const char* data = piece.constData();
        size_t left = static_cast<size_t>(piece.size());
        while (left > 0) {
            const ssize_t written = ::write(m_fd, data, left);
            if (written < 0 && errno == EINTR)
                continue;
            if (written <= 0)
                CannotWrite(m_fileName, Reason(written < 0 ? errno : ENOSPC));
            data += written;
            left -= static_cast<size_t>(written);
        }
    }

    // Mode and owner of the file replaced, or those of a new file.
    void TakeOver(const struct stat* previous) {
        const mode_t mode = previous ? previous->st_mode & 07777 : NewFileMode();
        if (::fchmod(m_fd, mode) != 0)
            CannotWrite(m_fileName, Reason(errno));
        if (previous && (previous->st_uid != ::geteuid() || previous->st_gid != ::getegid()) &&
            ::fchown(m_fd, previous->st_uid, previous->st_gid) != 0 &&
            !(errno == EPERM && ::geteuid() != 0))
            CannotWrite(m_fileName, Reason(errno));
    }

    // Synced, closed (both checked: a close can report a write that failed
    // late) and renamed over the target.
    void Commit() {
        if (::fsync(m_fd) != 0)
            CannotWrite(m_fileName, Reason(errno));
        if (m_name.isEmpty()) {
            m_name = TemporaryName();
            const QByteArray self = "/proc/self/fd/" + QByteArray::number(m_fd);
            if (::linkat(AT_FDCWD, self.constData(), AT_FDCWD, m_name.constData(),
                         AT_SYMLINK_FOLLOW) != 0) {
                const int error = errno;
                m_name.clear();
                CannotWrite(m_fileName, Reason(error));
            }
        }
        const int fd = m_fd;
        m_fd = -1;
        if (::close(fd) != 0)
            CannotWrite(m_fileName, Reason(errno));
        if (::rename(m_name.constData(), m_target.constData()) != 0)
            CannotWrite(m_fileName, Reason(errno));
        m_renamed = true;
        // The rename itself reaches the disk with its directory.
        const int directory = ::open(DirectoryOf(m_target).constData(), O_RDONLY | O_CLOEXEC);
        if (directory >= 0) {
            ::fsync(directory);
            ::close(directory);
        }
    }

private:
    QByteArray TemporaryName() const {
        return m_target + '.' +
               QByteArray::number(QRandomGenerator::global()->generate64(), 36).left(8);
    }

    QString m_fileName;
    QByteArray m_target;
    QByteArray m_name; // empty while the file has none
    int m_fd = -1;
    bool m_renamed = false;
};

} // namespace

void Replace(const QString& fileName, const std::function<bool(QByteArray&)>& next) {
    const QByteArray target = FinalTarget(fileName);
    struct stat previous {};
    const bool exists = ::stat(target.constData(), &previous) == 0;
    if (exists && !S_ISREG(previous.st_mode))
        CannotOpen(fileName, QStringLiteral("it is %1, not a regular file, and is left alone")
                                 .arg(KindOf(previous.st_mode)));
    TemporaryFile file(fileName, target);
    QByteArray piece;
    while (next(piece))
        file.Write(piece);
    file.TakeOver(exists ? &previous : nullptr);
    file.Commit();
}

} // namespace DurableFile
} // namespace KELMORA
