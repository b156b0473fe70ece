// SPDX-License-Identifier: MIT
// A fuzz target without libFuzzer: runs each file named on the command line,
// or each file in a folder named there, through LLVMFuzzerTestOneInput once.
// Built so with compilers other than clang; a finding aborts as under
// libFuzzer, so a replay of the seeds is a test.

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstddef>
#include <cstdint>
#include <cstdio>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

// The custom mutator calls it; a replay mutates nothing.
extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* /*data*/, std::size_t size,
                                        std::size_t /*maxSize*/) {
    return size;
}

namespace {

bool Replay(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "cannot read %s\n", qPrintable(path));
        return false;
    }
    const QByteArray data = file.readAll();
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(data.constData()),
                           static_cast<std::size_t>(data.size()));
    return true;
}

} // namespace

int main(int argc, char** argv) {
    int replayed = 0;
    for (int i = 1; i < argc; ++i) {
        const QString argument = QString::fromLocal8Bit(argv[i]);
        QStringList paths{argument};
        if (QFileInfo(argument).isDir()) {
            paths.clear();
            const QDir folder(argument);
            for (const QString& name : folder.entryList(QDir::Files, QDir::Name))
                paths.append(folder.filePath(name));
        }
        for (const QString& path : paths) {
            if (!Replay(path))
                return 1;
            ++replayed;
        }
    }
    std::printf("%d inputs replayed, no finding\n", replayed);
    return replayed > 0 ? 0 : 1;
}
