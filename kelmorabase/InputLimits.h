// SPDX-License-Identifier: MIT
#ifndef KELMORA_INPUTLIMITS_H
#define KELMORA_INPUTLIMITS_H

#include <KelmoraBaseExport.h>

#include <QByteArray>
#include <QIODevice>
#include <QString>
#include <QtGlobal>

#include <vector>

namespace KELMORA {

// Bounds on what one document may ask of a load, so that any input ends in
// bounded memory and time. The defaults are far above what a settings file
// needs (a file of 100,000 list items has texts of a few hundred characters,
// names of 30, three attributes per element and 8 levels) and keep the
// worst XML input within a few hundred megabytes and seconds per gigabyte;
// a binary frame at maxBinaryFrameSize takes about three times that size. Exceeding one ends
// the load with a KMException that names the limit and where it was passed.
struct KELMORABASE_EXPORT InputLimits {
    // Characters of one text, attribute value, comment, processing
    // instruction or declaration (bytes, in a file of UTF-8).
    qint64 maxTextLength = qint64(64) << 20;
    // Characters of one element or attribute name.
    qint64 maxNameLength = 4096;
    // Attributes of one element (the XML reader's cost grows with their
    // square).
    qint64 maxAttributes = 256;
    // Elements open at once, the root included.
    qint64 maxDepth = 256;
    // Namespace declarations (xmlns attributes) in scope at once: the XML
    // reader looks up every prefixed name through all of them.
    qint64 maxNamespaceDeclarations = 64;
    // Bytes of a binary representation: the frame itself, what a compressed
    // frame inflates to, and a binary file.
    qint64 maxBinaryFrameSize = qint64(256) << 20;
};

// Watches a document go by, before the XML reader sees it, and stops at the
// first limit passed. It does not check the XML: it only measures texts,
// names, attributes and depth the way the reader will meet them (the reader
// reports what is not well-formed).
class KELMORABASE_EXPORT MarkupScanner {
public:
    explicit MarkupScanner(const InputLimits& limits);

    // The next piece of the document, in UTF-8 bytes or UTF-16 units (one
    // scanner sees one kind). False once a limit is passed.
    bool Scan(const char* data, qint64 size);
    bool Scan(const char16_t* data, qint64 size);

    // "<what> (line L, column C)" for the limit passed; empty before. The
    // column counts units: bytes in UTF-8.
    const QString& Failure() const { return m_failure; }
    qint64 Line() const { return m_line; }

private:
    enum class State {
        Text,
        Open,      // after '<'
        Bang,      // after "<!": a comment, CDATA or a declaration follows
        StartName, // the name of a start tag
        EndName,   // the name of an end tag, up to its '>'
        Tag,       // between the attributes of a start tag
        AttributeName,
        AttributeValue,
        Comment,     // up to "-->"
        Instruction, // up to "?>"
        CData,       // up to "]]>"
        Declaration, // up to the '>' outside brackets and quotes
    };

    template <typename Unit> bool ScanUnits(const Unit* data, qint64 size);
    template <typename Unit> void MatchDeclaration(const Unit* units, qint64 count);
    bool StartTagEnded();
    template <typename Unit> void CountLines(const Unit* data, qint64 from, qint64 end);
    bool Step(char16_t c);
    bool Grow(qint64& length, qint64 limit, const char* what);
    bool Fail(const QString& what);
    void Enter(State state);

    InputLimits m_limits;
    State m_state = State::Text;
    qint64 m_length = 0;     // of the current text, value, comment or name
    qint64 m_attributes = 0; // of the current start tag
    qint64 m_depth = 0;
    int m_matched = 0;    // characters of a delimiter seen so far
    char16_t m_quote = 0; // of the current attribute value, or 0
    bool m_selfClosing = false;
    qint64 m_tagSpace = 0;          // spaces and '=' between the attributes of a start tag
    int m_declaration = 0;          // characters of "xmlns" the attribute name began with; -1: not
    qint64 m_declarations = 0;      // namespace declarations of the current start tag
    qint64 m_inScope = 0;           // of the open elements
    std::vector<qint64> m_declared; // per open element
    qint64 m_line = 1;
    qint64 m_offset = 0;    // units seen so far
    qint64 m_lineStart = 0; // the offset where the current line starts
    QString m_failure;
};

// Hands a device to the XML reader through a MarkupScanner, which stops
// the reading at the first limit passed: the reader never holds more of a
// token than the limit allows.
class KELMORABASE_EXPORT LimitedDevice : public QIODevice {
public:
    LimitedDevice(QIODevice& source, const InputLimits& limits);
    bool isSequential() const override { return true; }
    bool atEnd() const override;
    bool Failed() const { return !m_scanner.Failure().isEmpty(); }
    const MarkupScanner& Scanner() const { return m_scanner; }

protected:
    qint64 readData(char* data, qint64 maxSize) override;
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    bool ScanPiece(const char* data, qint64 size);

    QIODevice& m_source;
    MarkupScanner m_scanner;
    // A document in UTF-16 (told by its first two bytes) is scanned in
    // units of two bytes; `m_pending` holds an odd byte until its pair comes.
    enum class Encoding { Unknown, Utf8, Utf16LittleEndian, Utf16BigEndian };
    Encoding m_encoding = Encoding::Unknown;
    QByteArray m_pending;
};

} // namespace KELMORA

#endif
