// SPDX-License-Identifier: MIT
// The decoder of compressed binary frames, against what qCompress writes.
#include "Inflate.h"

#include <QByteArray>
#include <QRandomGenerator>
#include <gtest/gtest.h>

using KELMORA::InflateExactly;

namespace {

bool Inflates(const QByteArray& body, qsizetype size, QByteArray* out = nullptr) {
    QByteArray result(static_cast<int>(size), Qt::Uninitialized);
    const bool ok = InflateExactly(reinterpret_cast<const uchar*>(body.constData()), body.size(),
                                   reinterpret_cast<uchar*>(result.data()), size);
    if (out)
        *out = result;
    return ok;
}

QByteArray Body(const QByteArray& data, int level = -1) {
    return qCompress(data, level).mid(4);
}

QByteArray SampleText() {
    QByteArray text;
    for (int i = 0; i < 2000; ++i)
        text += "<Level>" + QByteArray::number(i * 0.37) + "</Level>\n";
    return text;
}

} // namespace

// Stored blocks (level 0), fixed and dynamic codes, long and overlapping
// matches, incompressible data.
TEST(Inflate, ReadsWhatQCompressWrites) {
    QByteArray noise(300000, Qt::Uninitialized);
    QRandomGenerator random(7);
    for (char& byte : noise)
        byte = static_cast<char>(random.generate());
    const QByteArray samples[] = {"x", QByteArray(100000, 'a'), SampleText(), noise,
                                  SampleText() + noise + SampleText()};
    for (const QByteArray& data : samples) {
        for (int level : {0, 1, 6, 9}) {
            QByteArray out;
            EXPECT_TRUE(Inflates(Body(data, level), data.size(), &out))
                << data.size() << "/" << level;
            EXPECT_EQ(out, data) << data.size() << "/" << level;
        }
    }
}

TEST(Inflate, RefusesDamagedStreamsAndOtherSizes) {
    const QByteArray data = SampleText();
    const QByteArray body = Body(data);
    auto changed = [&](int index, char value) {
        QByteArray damaged = body;
        damaged[index < 0 ? damaged.size() + index : index] = value;
        return damaged;
    };
    EXPECT_TRUE(Inflates(body + "trailing", data.size()));
    const struct {
        QByteArray body;
        qsizetype size;
    } refused[] = {
        {body, data.size() - 1},
        {body, data.size() + 1},
        {body.left(body.size() - 1), data.size()},
        {body.left(body.size() / 2), data.size()},
        {body.left(1), data.size()},
        {changed(-1, static_cast<char>(body.at(body.size() - 1) ^ 1)), data.size()},
        {changed(0, 0x77), data.size()},                                 // not deflate
        {changed(1, static_cast<char>(body.at(1) | 0x20)), data.size()}, // preset dictionary
        {changed(2, static_cast<char>(0x07)), data.size()},              // reserved block type
        {changed(body.size() / 2, static_cast<char>(body.at(body.size() / 2) ^ 0x10)), data.size()},
    };
    for (const auto& stream : refused)
        EXPECT_FALSE(Inflates(stream.body, stream.size)) << &stream - refused;
}
