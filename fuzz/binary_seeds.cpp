// SPDX-License-Identifier: MIT
// Writes seeds for the binary target: the plain and the compressed binary
// representation of every settings document given, plus the frames of a
// nested record (a frame that holds another record is a seed too).
//
//   fuzz_binary_seeds <output folder> <settings.xml>...
#include <Exciter_Settings.h>
#include <KMException.h>

#include <QByteArray>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>

#include <cstdio>

namespace {

bool WriteSeed(const QDir& folder, const QString& name, const QByteArray& frame) {
    QFile file(folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(frame) != frame.size()) {
        std::fprintf(stderr, "fuzz_binary_seeds: cannot write %s\n", qPrintable(file.fileName()));
        return false;
    }
    return true;
}

bool WriteFrames(const QDir& folder, const QString& stem, const KELMORA::IKMObject& record) {
    return WriteSeed(folder, stem + QStringLiteral(".bin"),
                     record.GetBinaryRepresentationAsQByteArray()) &&
           WriteSeed(folder, stem + QStringLiteral(".binz"),
                     record.GetCompressedBinaryRepresentationAsQByteArray());
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage: fuzz_binary_seeds <output folder> <settings.xml>...\n");
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    if (!folder.mkpath(QStringLiteral("."))) {
        std::fprintf(stderr, "fuzz_binary_seeds: cannot create %s\n", argv[1]);
        return 1;
    }
    int written = 0;
    for (int i = 2; i < argc; ++i) {
        const QString path = QString::fromLocal8Bit(argv[i]);
        const QString stem = QFileInfo(path).completeBaseName();
        KELMORA::Exciter_Settings settings;
        try {
            settings.LoadXml(path);
        } catch (const KELMORA::KMException&) {
            continue; // not a settings document
        }
        if (!WriteFrames(folder, stem, settings) ||
            !WriteFrames(folder, stem + QStringLiteral("-wde"), settings.GetWDE()))
            return 1;
        ++written;
    }
    // A compressed frame ("KMOZ") whose size field lies: it declares a few
    // bytes and inflates to megabytes, the shape of a decompression bomb.
    QByteArray inflating = qCompress(QByteArray(8 << 20, '<'));
    inflating[0] = inflating[1] = inflating[2] = 0;
    QByteArray bomb;
    QDataStream out(&bomb, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_5_15);
    out << quint32(0x4B4D4F5A) << inflating;
    if (!WriteSeed(folder, QStringLiteral("bomb.binz"), bomb))
        return 1;
    std::printf("fuzz_binary_seeds: frames of %d documents in %s\n", written, argv[1]);
    return written > 0 ? 0 : 1;
}
