// SPDX-License-Identifier: MIT
#include "Inflate.h"

#include <array>
#include <cstring>
#include <vector>

namespace KELMORA {
namespace {

constexpr int kMaxCodeBits = 15;
constexpr int kLiteralLengthSymbols = 288;
constexpr int kDistanceSymbols = 30;
constexpr int kEndOfBlock = 256;

// The stream's bits, least significant first. Bits past the input's end
// read as zeros but are not available, so a truncated stream fails where a
// missing bit is consumed.
class BitReader {
public:
    BitReader(const uchar* data, qsizetype size) : m_data(data), m_size(size) {}

    // The next `count` (at most 32) bits, not consumed.
    quint32 Peek(int count) {
        while (m_available < count && m_position < m_size) {
            m_bits |= quint64(m_data[m_position++]) << m_available;
            m_available += 8;
        }
        return static_cast<quint32>(m_bits & ((quint64(1) << count) - 1));
    }
    bool Skip(int count) {
        if (count > m_available)
            return false;
        m_bits >>= count;
        m_available -= count;
        return true;
    }
    bool Read(int count, quint32& value) {
        value = Peek(count);
        return Skip(count);
    }
    // Whole bytes are loaded, so the bits left of the current byte are the
    // available ones beyond a multiple of eight.
    void AlignToByte() { Skip(m_available % 8); }
    // After AlignToByte: `count` bytes as they stand in the input.
    bool CopyBytes(uchar* to, qsizetype count) {
        for (; count > 0 && m_available >= 8; --count) {
            *to++ = static_cast<uchar>(m_bits);
            Skip(8);
        }
        if (count > m_size - m_position)
            return false;
        std::memcpy(to, m_data + m_position, static_cast<size_t>(count));
        m_position += count;
        return true;
    }

private:
    const uchar* m_data;
    qsizetype m_size;
    qsizetype m_position = 0;
    quint64 m_bits = 0;
    int m_available = 0;
};

// A canonical Huffman code as one lookup table indexed by the next `bits`
// input bits: each entry holds symbol << 4 | code length, 0 where no code
// starts with those bits.
class HuffmanTable {
public:
    // False for a set of lengths that is over-subscribed, or incomplete
    // beyond the single one-bit code that the format allows.
    bool Build(const quint8* lengths, int count) {
        std::array<int, kMaxCodeBits + 1> perLength{};
        for (int symbol = 0; symbol < count; ++symbol)
            ++perLength[lengths[symbol]];
        perLength[0] = 0;
        int left = 1;
        m_bits = 1;
        for (int length = 1; length <= kMaxCodeBits; ++length) {
            left = 2 * left - perLength[length];
            if (left < 0)
                return false;
            if (perLength[length] != 0)
                m_bits = length;
        }
        if (left > 0 && m_bits > 1)
            return false;
        std::array<int, kMaxCodeBits + 1> nextCode{};
        for (int length = 1, code = 0; length <= kMaxCodeBits; ++length) {
            code = (code + perLength[length - 1]) << 1;
            nextCode[length] = code;
        }
        m_entries.assign(size_t(1) << m_bits, 0);
        for (int symbol = 0; symbol < count; ++symbol) {
            const int length = lengths[symbol];
            if (length == 0)
                continue;
            const int code = nextCode[length]++;
            int reversed = 0;
            for (int bit = 0; bit < length; ++bit)
                reversed |= ((code >> bit) & 1) << (length - 1 - bit);
            for (size_t index = size_t(reversed); index < m_entries.size();
                 index += size_t(1) << length)
                m_entries[index] = static_cast<quint16>(symbol << 4 | length);
        }
        return true;
    }

    // The next symbol, or -1 when the bits start no code or run out.
    int Decode(BitReader& in) const {
        const quint16 entry = m_entries[in.Peek(m_bits)];
        const int length = entry & 15;
        if (length == 0 || !in.Skip(length))
            return -1;
        return entry >> 4;
    }

private:
    int m_bits = 1;
    std::vector<quint16> m_entries;
};

quint32 Adler32(const uchar* data, qsizetype size) {
    constexpr quint32 kModulus = 65521;
    constexpr qsizetype kLongestRunWithoutOverflow = 5552;
    quint32 a = 1, b = 0;
    for (qsizetype start = 0; start < size; start += kLongestRunWithoutOverflow) {
        const qsizetype end = qMin(size, start + kLongestRunWithoutOverflow);
        for (qsizetype i = start; i < end; ++i) {
            a += data[i];
            b += a;
        }
        a %= kModulus;
        b %= kModulus;
    }
    return b << 16 | a;
}

class Inflater {
public:
    Inflater(const uchar* in, qsizetype inSize, uchar* out, qsizetype outSize)
        : m_in(in, inSize), m_out(out), m_size(outSize) {}

    bool Run() {
        quint32 last = 0;
        do {
            quint32 type = 0;
            if (!m_in.Read(1, last) || !m_in.Read(2, type) || !Block(type))
                return false;
        } while (last == 0);
        m_in.AlignToByte();
        quint32 checksum = 0;
        for (int i = 0; i < 4; ++i) {
            quint32 byte = 0;
            if (!m_in.Read(8, byte))
                return false;
            checksum = checksum << 8 | byte;
        }
        return m_position == m_size && checksum == Adler32(m_out, m_size);
    }

private:
    bool Block(quint32 type) {
        switch (type) {
        case 0:
            return StoredBlock();
        case 1:
            return FixedBlock();
        case 2:
            return DynamicBlock();
        default:
            return false;
        }
    }

    bool StoredBlock() {
        m_in.AlignToByte();
        quint32 length = 0, complement = 0;
        if (!m_in.Read(16, length) || !m_in.Read(16, complement) || (length ^ 0xFFFF) != complement)
            return false;
        if (length > m_size - m_position || !m_in.CopyBytes(m_out + m_position, length))
            return false;
        m_position += length;
        return true;
    }

    bool FixedBlock() {
        // The fixed distance code has 32 five-bit codes; the last two are
        // never valid, which Symbols() checks.
        static const auto codes = [] {
            std::array<quint8, kLiteralLengthSymbols> literals{};
            for (int symbol = 0; symbol < kLiteralLengthSymbols; ++symbol)
                literals[symbol] = symbol < 144 ? 8 : symbol < 256 ? 9 : symbol < 280 ? 7 : 8;
            std::array<quint8, 32> distances{};
            distances.fill(5);
            std::array<HuffmanTable, 2> tables;
            tables[0].Build(literals.data(), kLiteralLengthSymbols);
            tables[1].Build(distances.data(), 32);
            return tables;
        }();
        return Symbols(codes[0], codes[1]);
    }

    bool DynamicBlock() {
        quint32 literalCount = 0, distanceCount = 0, codeLengthCount = 0;
        if (!m_in.Read(5, literalCount) || !m_in.Read(5, distanceCount) ||
            !m_in.Read(4, codeLengthCount))
            return false;
        literalCount += 257;
        distanceCount += 1;
        codeLengthCount += 4;
        if (literalCount > 286 || distanceCount > kDistanceSymbols)
            return false;
        static const quint8 kCodeLengthOrder[19] = {16, 17, 18, 0, 8,  7, 9,  6, 10, 5,
                                                    11, 4,  12, 3, 13, 2, 14, 1, 15};
        std::array<quint8, 19> codeLengthLengths{};
        for (quint32 i = 0; i < codeLengthCount; ++i) {
            quint32 length = 0;
            if (!m_in.Read(3, length))
                return false;
            codeLengthLengths[kCodeLengthOrder[i]] = static_cast<quint8>(length);
        }
        HuffmanTable codeLengths;
        if (!codeLengths.Build(codeLengthLengths.data(), 19))
            return false;
        std::array<quint8, kLiteralLengthSymbols + kDistanceSymbols> lengths{};
        if (!ReadCodeLengths(codeLengths, lengths.data(), int(literalCount + distanceCount)) ||
            lengths[kEndOfBlock] == 0)
            return false;
        HuffmanTable literals, distances;
        return literals.Build(lengths.data(), int(literalCount)) &&
               distances.Build(lengths.data() + literalCount, int(distanceCount)) &&
               Symbols(literals, distances);
    }

    // Code lengths 0-15 as they stand, 16 repeats the previous one 3-6
    // times, 17 and 18 give runs of 3-10 and 11-138 zeros.
    bool ReadCodeLengths(const HuffmanTable& code, quint8* lengths, int count) {
        for (int index = 0; index < count;) {
            const int symbol = code.Decode(m_in);
            if (symbol < 0)
                return false;
            if (symbol < 16) {
                lengths[index++] = static_cast<quint8>(symbol);
                continue;
            }
            quint8 value = 0;
            quint32 repeat = 0;
            if (symbol == 16) {
                if (index == 0 || !m_in.Read(2, repeat))
                    return false;
                value = lengths[index - 1];
                repeat += 3;
            } else if (!m_in.Read(symbol == 17 ? 3 : 7, repeat)) {
                return false;
            } else {
                repeat += symbol == 17 ? 3 : 11;
            }
            if (index + int(repeat) > count)
                return false;
            for (; repeat > 0; --repeat)
                lengths[index++] = value;
        }
        return true;
    }

    bool Symbols(const HuffmanTable& literals, const HuffmanTable& distances) {
        static const quint16 kLengthBase[29] = {3,  4,  5,  6,   7,   8,   9,   10,  11, 13,
                                                15, 17, 19, 23,  27,  31,  35,  43,  51, 59,
                                                67, 83, 99, 115, 131, 163, 195, 227, 258};
        static const quint8 kLengthExtra[29] = {0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2,
                                                2, 3, 3, 3, 3, 4, 4, 4, 4, 5, 5, 5, 5, 0};
        static const quint16 kDistanceBase[kDistanceSymbols] = {
            1,   2,   3,   4,   5,   7,    9,    13,   17,   25,   33,   49,   65,    97,    129,
            193, 257, 385, 513, 769, 1025, 1537, 2049, 3073, 4097, 6145, 8193, 12289, 16385, 24577};
        static const quint8 kDistanceExtra[kDistanceSymbols] = {
            0, 0, 0, 0, 1, 1, 2, 2,  3,  3,  4,  4,  5,  5,  6,
            6, 7, 7, 8, 8, 9, 9, 10, 10, 11, 11, 12, 12, 13, 13};
        for (;;) {
            int symbol = literals.Decode(m_in);
            if (symbol < 0)
                return false;
            if (symbol < kEndOfBlock) {
                if (m_position == m_size)
                    return false;
                m_out[m_position++] = static_cast<uchar>(symbol);
                continue;
            }
            if (symbol == kEndOfBlock)
                return true;
            symbol -= kEndOfBlock + 1;
            quint32 extra = 0;
            if (symbol >= 29 || !m_in.Read(kLengthExtra[symbol], extra))
                return false;
            const qsizetype length = kLengthBase[symbol] + extra;
            const int distanceSymbol = distances.Decode(m_in);
            if (distanceSymbol < 0 || distanceSymbol >= kDistanceSymbols ||
                !m_in.Read(kDistanceExtra[distanceSymbol], extra))
                return false;
            const qsizetype distance = kDistanceBase[distanceSymbol] + extra;
            if (distance > m_position || length > m_size - m_position)
                return false;
            // Byte by byte: a copy may overlap what it writes.
            for (qsizetype i = 0; i < length; ++i, ++m_position)
                m_out[m_position] = m_out[m_position - distance];
        }
    }

    BitReader m_in;
    uchar* m_out;
    qsizetype m_size;
    qsizetype m_position = 0;
};

} // namespace

bool InflateExactly(const uchar* in, qsizetype inSize, uchar* out, qsizetype outSize) {
    if (inSize < 2)
        return false;
    const int method = in[0], flags = in[1];
    const bool deflate = (method & 15) == 8 && (method >> 4) <= 7;
    const bool presetDictionary = (flags & 0x20) != 0;
    if (!deflate || presetDictionary || (method * 256 + flags) % 31 != 0)
        return false;
    return Inflater(in + 2, inSize - 2, out, outSize).Run();
}

} // namespace KELMORA
