// SPDX-License-Identifier: MIT
#ifndef KELMORA_INFLATE_H
#define KELMORA_INFLATE_H

#include <QtGlobal>

namespace KELMORA {

// Inflates a zlib stream (the body of a qCompress'ed frame) into exactly
// `outSize` bytes at `out`. True only when the stream is well formed, ends
// after exactly `outSize` bytes and its Adler-32 checksum matches; bytes
// after the stream's end are ignored, as zlib does. Never writes past
// `outSize` nor reads past `inSize`, so the caller's bound on `outSize`
// bounds the whole cost. Our own decoder, so that building the library
// needs nothing beyond Qt.
bool InflateExactly(const uchar* in, qsizetype inSize, uchar* out, qsizetype outSize);

} // namespace KELMORA

#endif
