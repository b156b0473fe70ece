// SPDX-License-Identifier: MIT
#include "InputLimits.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

namespace KELMORA {

namespace {

bool IsSpace(char16_t c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

} // namespace

MarkupScanner::MarkupScanner(const InputLimits& limits) : m_limits(limits) {}

bool MarkupScanner::Scan(const char* data, qint64 size) {
    return ScanUnits(data, size);
}

bool MarkupScanner::Scan(const char16_t* data, qint64 size) {
    return ScanUnits(data, size);
}

namespace {

// The first of `units` from `from` on that is `c`, or `size`.
template <typename Unit> qint64 Find(const Unit* units, qint64 from, qint64 size, Unit c) {
    if constexpr (sizeof(Unit) == 1) {
        const void* found = std::memchr(units + from, c, static_cast<size_t>(size - from));
        return found ? static_cast<const Unit*>(found) - units : size;
    } else {
        while (from < size && units[from] != c)
            ++from;
        return from;
    }
}

// The characters that end a name, as a table: names are a third of a
// settings document.
struct NameEnds {
    bool table[128] = {};
    constexpr NameEnds() {
        for (const char c : {' ', '>', '/', '=', '\n', '\t', '\r', '"', '\''})
            table[static_cast<unsigned char>(c)] = true;
    }
};
constexpr NameEnds kNameEnds;

template <typename Unit> bool EndsName(Unit c) {
    const auto code = static_cast<std::make_unsigned_t<Unit>>(c);
    return code < 128 && kNameEnds.table[code];
}

} // namespace

template <typename Unit> bool MarkupScanner::ScanUnits(const Unit* data, qint64 size) {
    if (!m_failure.isEmpty())
        return false;
    for (qint64 i = 0; i < size;) {
        // The bulk of a document, texts, names and values, is passed in
        // strides; the characters between them go through Step one by one.
        qint64 end = i;
        qint64 limit = m_limits.maxTextLength;
        const char* what = "a text";
        switch (m_state) {
        case State::Text:
            end = Find(data, i, size, Unit('<'));
            break;
        case State::AttributeValue:
            end = Find(data, i, size, static_cast<Unit>(m_quote));
            what = "an attribute value";
            break;
        case State::Comment:
        case State::Instruction:
        case State::CData:
            // Up to two characters before the next '>' (or the piece's end):
            // those and the '>' go through Step, which sees "-->", "?>" or
            // "]]>" in them.
            end = std::max(i, Find(data, i, size, Unit('>')) - 2);
            if (end > i)
                m_matched = 0;
            what = m_state == State::Comment       ? "a comment"
                   : m_state == State::Instruction ? "a processing instruction"
                                                   : "a CDATA section";
            break;
        case State::StartName:
        case State::EndName:
        case State::AttributeName:
            while (end < size && !EndsName(data[end]))
                ++end;
            limit = m_limits.maxNameLength;
            what = "a name";
            break;
        default:
            break;
        }
        if (end > i) {
            if (m_state == State::AttributeName)
                MatchDeclaration(data + i, end - i);
            // Where the limit is passed, if it is: the first unit beyond it.
            const qint64 beyond = limit - m_length < end - i ? i + (limit - m_length) + 1 : 0;
            CountLines(data, i, beyond > 0 ? beyond : end);
            m_length += end - i;
            if (beyond > 0)
                return Fail(
                    QStringLiteral("%1 longer than %2 characters (%3)")
                        .arg(QLatin1String(what))
                        .arg(limit)
                        .arg(QLatin1String(limit == m_limits.maxNameLength ? "maxNameLength"
                                                                           : "maxTextLength")));
            i = end;
            continue;
        }
        const Unit unit = data[i++];
        ++m_offset;
        if (unit == '\n') {
            ++m_line;
            m_lineStart = m_offset;
        }
        if (!Step(static_cast<char16_t>(static_cast<std::make_unsigned_t<Unit>>(unit))))
            return false;
    }
    return true;
}

template <typename Unit> void MarkupScanner::MatchDeclaration(const Unit* units, qint64 count) {
    static const char kXmlns[] = "xmlns";
    for (qint64 k = 0; k < count && m_declaration > 0 && m_declaration < 5; ++k)
        m_declaration = units[k] == Unit(kXmlns[m_declaration]) ? m_declaration + 1 : -1;
}

template <typename Unit> void MarkupScanner::CountLines(const Unit* data, qint64 from, qint64 end) {
    for (qint64 at = Find(data, from, end, Unit('\n')); at < end;
         at = Find(data, at + 1, end, Unit('\n'))) {
        ++m_line;
        m_lineStart = m_offset + (at - from) + 1;
    }
    m_offset += end - from;
}

void MarkupScanner::Enter(State state) {
    m_state = state;
    m_length = 0;
    m_matched = 0;
    m_quote = 0;
}

bool MarkupScanner::Fail(const QString& what) {
    m_failure =
        QStringLiteral("%1 (line %2, column %3)").arg(what).arg(m_line).arg(m_offset - m_lineStart);
    return false;
}

bool MarkupScanner::Grow(qint64& length, qint64 limit, const char* what) {
    if (++length <= limit)
        return true;
    return Fail(QStringLiteral("%1 longer than %2 characters (%3)")
                    .arg(QLatin1String(what))
                    .arg(limit)
                    .arg(QLatin1String(limit == m_limits.maxNameLength ? "maxNameLength"
                                                                       : "maxTextLength")));
}

// One character outside text: the state machine of tags, comments and the
// like, just enough to measure them.
bool MarkupScanner::Step(char16_t c) {
    switch (m_state) {
    case State::Text: // the '<' that ends it
        Enter(State::Open);
        break;
    case State::Open:
        if (c == '/') {
            Enter(State::EndName);
        } else if (c == '!') {
            Enter(State::Bang);
        } else if (c == '?') {
            Enter(State::Instruction);
        } else {
            if (++m_depth > m_limits.maxDepth)
                return Fail(QStringLiteral("elements nested deeper than %1 levels (maxDepth)")
                                .arg(m_limits.maxDepth));
            Enter(State::StartName);
            m_attributes = 0;
            m_selfClosing = false;
            m_tagSpace = 0;
            m_declarations = 0;
            return Grow(m_length, m_limits.maxNameLength, "a name");
        }
        break;
    case State::Bang: {
        // "--" opens a comment, "[CDATA[" a CDATA section, anything else a
        // declaration such as <!DOCTYPE ...>.
        static const char16_t kComment[] = u"--";
        static const char16_t kCData[] = u"[CDATA[";
        const bool comment = m_matched < 2 && c == kComment[m_matched];
        const bool cdata = m_matched < 7 && c == kCData[m_matched];
        ++m_matched;
        if (comment && m_matched == 2)
            Enter(State::Comment);
        else if (cdata && m_matched == 7)
            Enter(State::CData);
        else if (!comment && !cdata)
            Enter(State::Declaration);
        break;
    }
    case State::StartName:
        if (IsSpace(c)) {
            Enter(State::Tag);
        } else if (c == '/') {
            Enter(State::Tag);
            m_selfClosing = true;
        } else if (c == '>') {
            Enter(State::Text);
            return StartTagEnded();
        } else {
            return Grow(m_length, m_limits.maxNameLength, "a name");
        }
        break;
    case State::EndName:
        if (c == '>') {
            if (m_depth > 0)
                --m_depth;
            if (!m_declared.empty()) {
                m_inScope -= m_declared.back();
                m_declared.pop_back();
            }
            Enter(State::Text);
        } else {
            return Grow(m_length, m_limits.maxNameLength, "a name");
        }
        break;
    case State::Tag:
        if (c == '>') {
            if (m_selfClosing && m_depth > 0)
                --m_depth;
            Enter(State::Text);
            return StartTagEnded();
        } else if (c == '/') {
            m_selfClosing = true;
        } else if (c == '"' || c == '\'') {
            Enter(State::AttributeValue); // a value without a name: the reader reports it
            m_quote = c;
        } else if (!IsSpace(c) && c != '=') {
            if (++m_attributes > m_limits.maxAttributes)
                return Fail(QStringLiteral("an element with more than %1 attributes "
                                           "(maxAttributes)")
                                .arg(m_limits.maxAttributes));
            Enter(State::AttributeName);
            m_declaration = c == 'x' ? 1 : -1;
            return Grow(m_length, m_limits.maxNameLength, "a name");
        } else {
            return Grow(m_tagSpace, m_limits.maxTextLength, "the spaces of a start tag");
        }
        break;
    case State::AttributeName:
        if (c == '"' || c == '\'') {
            Enter(State::AttributeValue);
            m_quote = c;
            if (m_declaration == 5 &&
                m_inScope + ++m_declarations > m_limits.maxNamespaceDeclarations)
                return Fail(QStringLiteral("more than %1 namespace declarations in scope "
                                           "(maxNamespaceDeclarations)")
                                .arg(m_limits.maxNamespaceDeclarations));
        } else if (c == '>' || c == '/') {
            Enter(State::Tag);
            return Step(c);
        } else if (!IsSpace(c) && c != '=') {
            return Grow(m_length, m_limits.maxNameLength, "a name");
        } else {
            return Grow(m_tagSpace, m_limits.maxTextLength, "the spaces of a start tag");
        }
        break;
    case State::AttributeValue:
        if (c == m_quote)
            Enter(State::Tag);
        else
            return Grow(m_length, m_limits.maxTextLength, "an attribute value");
        break;
    case State::Comment:
        // Ends at "-->": m_matched counts the dashes just seen.
        if (c == '>' && m_matched >= 2) {
            Enter(State::Text);
            break;
        }
        m_matched = c == '-' ? m_matched + 1 : 0;
        return Grow(m_length, m_limits.maxTextLength, "a comment");
    case State::Instruction:
        if (c == '>' && m_matched == 1) {
            Enter(State::Text);
            break;
        }
        m_matched = c == '?' ? 1 : 0;
        return Grow(m_length, m_limits.maxTextLength, "a processing instruction");
    case State::CData:
        if (c == '>' && m_matched >= 2) {
            Enter(State::Text);
            break;
        }
        m_matched = c == ']' ? m_matched + 1 : 0;
        return Grow(m_length, m_limits.maxTextLength, "a CDATA section");
    case State::Declaration:
        // m_matched: the depth of '[' brackets; m_quote: an open quote.
        if (m_quote != 0) {
            if (c == m_quote)
                m_quote = 0;
        } else if (c == '"' || c == '\'') {
            m_quote = c;
        } else if (c == '[') {
            ++m_matched;
        } else if (c == ']' && m_matched > 0) {
            --m_matched;
        } else if (c == '>' && m_matched == 0) {
            Enter(State::Text);
            break;
        }
        return Grow(m_length, m_limits.maxTextLength, "a declaration");
    }
    return true;
}

// The declarations of an element that stays open remain in scope until
// its end tag.
bool MarkupScanner::StartTagEnded() {
    if (!m_selfClosing) {
        m_declared.push_back(m_declarations);
        m_inScope += m_declarations;
    }
    return true;
}

LimitedDevice::LimitedDevice(QIODevice& source, const InputLimits& limits)
    : m_source(source), m_scanner(limits) {
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

bool LimitedDevice::atEnd() const {
    return Failed() || m_source.atEnd();
}

qint64 LimitedDevice::readData(char* data, qint64 maxSize) {
    if (Failed())
        return -1;
    const qint64 size = m_source.read(data, maxSize);
    if (size > 0 && !ScanPiece(data, size))
        return -1;
    return size;
}

// The encoding is told by the first two bytes: a byte order mark, or the
// '<' of the declaration or root with a zero byte beside it, as the reader
// itself tells UTF-16.
bool LimitedDevice::ScanPiece(const char* data, qint64 size) {
    if (m_encoding == Encoding::Unknown) {
        m_pending.append(data, static_cast<int>(size));
        if (m_pending.size() < 2)
            return true;
        const auto first = static_cast<unsigned char>(m_pending[0]);
        const auto second = static_cast<unsigned char>(m_pending[1]);
        if ((first == 0xFF && second == 0xFE) || (first == '<' && second == 0))
            m_encoding = Encoding::Utf16LittleEndian;
        else if ((first == 0xFE && second == 0xFF) || (first == 0 && second == '<'))
            m_encoding = Encoding::Utf16BigEndian;
        else
            m_encoding = Encoding::Utf8;
        const QByteArray start = m_pending;
        m_pending.clear();
        return ScanPiece(start.constData(), start.size());
    }
    if (m_encoding == Encoding::Utf8)
        return m_scanner.Scan(data, size);
    // UTF-16: whole units, an odd byte kept for the next piece.
    QByteArray bytes = m_pending + QByteArray::fromRawData(data, static_cast<int>(size));
    const int units = bytes.size() / 2;
    m_pending = bytes.mid(2 * units);
    const int low = m_encoding == Encoding::Utf16LittleEndian ? 0 : 1;
    std::vector<char16_t> decoded(static_cast<size_t>(units));
    for (int u = 0; u < units; ++u)
        decoded[static_cast<size_t>(u)] =
            static_cast<char16_t>(static_cast<unsigned char>(bytes[2 * u + 1 - low]) << 8 |
                                  static_cast<unsigned char>(bytes[2 * u + low]));
    return m_scanner.Scan(decoded.data(), units);
}
} // namespace KELMORA
