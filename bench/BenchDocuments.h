// SPDX-License-Identifier: MIT
#ifndef EXCITERSETTINGS_BENCH_BENCHDOCUMENTS_H
#define EXCITERSETTINGS_BENCH_BENCHDOCUMENTS_H

// The documents the benchmarks measure, and the yardsticks the library is
// measured against: a bare QXmlStreamReader walk, a bare QXmlStreamWriter
// that writes the same elements with their texts already formatted, and the
// QDom way of a typical Qt application.

#include <Exciter_Settings.h>

#include <QDomDocument>
#include <QIODevice>
#include <QString>
#include <QVector>
#include <QXmlStreamAttributes>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace bench {

// Settings in the "Look Through" mode whose WDE holds `items` items, a
// quarter in each of its four lists: raster detectors with 64 frequencies,
// simulations with 16 relative frequencies. Everything is set through the
// records' own setters, so the tree is complete and its document checks.
KELMORA::Exciter_Settings MakeSettings(int items);

// One step of writing a document: what a writer is told, in order.
struct WriteStep {
    enum Kind { StartElement, TextElement, Characters, EndElement };
    Kind kind;
    QString name;
    QXmlStreamAttributes attributes;
    QString text;
};

// The writing steps that reproduce `document` exactly through a
// QXmlStreamWriter with auto-formatting.
QVector<WriteStep> StepsOf(const QString& document);

// The bare reader walk: visits every token and takes the text of every leaf
// element as a QString. Returns a checksum so the work cannot be dropped.
qint64 WalkReader(QXmlStreamReader& reader);

// The bare writer: the steps, nothing else, inside a document with
// auto-formatting, as the library writes.
void WriteSteps(QXmlStreamWriter& writer, const QVector<WriteStep>& steps);

// The QDom way of loading: setContent into `dom`, then a walk over every
// element that takes the text of every leaf element. Returns a checksum;
// throws std::runtime_error when the text does not parse.
qint64 LoadWithDom(QDomDocument& dom, const QString& document);
qint64 LoadWithDom(QDomDocument& dom, QIODevice& device);

// The QDom way of saving: build the document from the steps, then serialise
// it indented by four, as the library writes.
QString SaveWithDom(const QVector<WriteStep>& steps);
void SaveWithDom(const QVector<WriteStep>& steps, QIODevice& device);

} // namespace bench

#endif
