// SPDX-License-Identifier: MIT
#include "ValueChange.h"

#include "DoubleListCodec.h"
#include "RecordFormat.h"
#include "ValueNotes.h"

#include <cmath>
#include <cstring>

namespace KELMORA {
namespace ValueChange {

namespace {

const QString kTrue = QStringLiteral("true");
const QString kFalse = QStringLiteral("false");

bool SameNumber(double a, double b) {
    return a == b || (std::isnan(a) && std::isnan(b));
}

bool SameValue(const QString& given, const QString& written) {
    bool givenIsNumber = false;
    bool writtenIsNumber = false;
    const double givenValue = given.toDouble(&givenIsNumber);
    const double writtenValue = written.toDouble(&writtenIsNumber);
    return givenIsNumber && writtenIsNumber && SameNumber(givenValue, writtenValue);
}

bool LooksLikeWholeNumber(const QString& text) {
    bool ok = false;
    text.toLongLong(&ok);
    return ok;
}

QString IndefiniteArticle(const QString& word) {
    return QStringLiteral("AEIOU").contains(word.left(1)) ? QStringLiteral("an")
                                                          : QStringLiteral("a");
}

QString NotAChoice(const QString& name, const QString& given, const QString& written,
                   const ValueNotes::Note& note) {
    QString message = QStringLiteral("%1 is not %2 %3 (choices: %4)")
                          .arg(Quoted(given), IndefiniteArticle(name), name,
                               ValueNotes::Choices(note).join(QStringLiteral(", ")));
    if (!written.isEmpty())
        message += QStringLiteral(": reads as '%1'").arg(written);
    return message;
}

QString FlagChanged(const QString& name, const QString& given, const QString& written) {
    if (written == kFalse)
        return QStringLiteral("%1 reads as false: a flag is true only for 'true'")
            .arg(Quoted(given));
    return QStringLiteral("%1 reads as true: %2 is false only for 'false'")
        .arg(Quoted(given), name);
}

// Alphabet characters, and whether anything else is in the text besides
// the '=' padding at its end.
int Base64Digits(const QString& text, QChar& stray) {
    int digits = 0;
    int end = text.size();
    while (end > 0 && text.at(end - 1) == QLatin1Char('='))
        --end;
    for (int i = 0; i < end; ++i) {
        const QChar c = text.at(i);
        const ushort u = c.unicode();
        if ((u >= 'A' && u <= 'Z') || (u >= 'a' && u <= 'z') || (u >= '0' && u <= '9') ||
            u == '+' || u == '/')
            ++digits;
        else if (stray.isNull())
            stray = c;
    }
    return digits;
}

QString ListChanged(const QString& given) {
    QChar stray;
    const int bytes = Base64Digits(given, stray) * 6 / 8;
    const int count = DoubleListCodec::Decode(given).size();
    const QString reads =
        QStringLiteral("it reads as %1 %2")
            .arg(count)
            .arg(count == 1 ? QStringLiteral("number") : QStringLiteral("numbers"));
    if (!stray.isNull())
        return QStringLiteral("%1 holds characters that are not Base64 ('%2'): they are passed "
                              "over and %3")
            .arg(Quoted(given), Escaped(QString(stray)), reads);
    if (bytes % 8 != 0)
        return QStringLiteral("%1 holds %2 bytes, not whole numbers of 8: the last %3 are "
                              "dropped and %4")
            .arg(Quoted(given))
            .arg(bytes)
            .arg(bytes % 8)
            .arg(reads);
    return QString();
}

QString NumberChanged(const QString& name, const QString& given, const QString& written) {
    bool givenIsNumber = false;
    bool writtenIsNumber = false;
    const double givenValue = given.toDouble(&givenIsNumber);
    const double writtenValue = written.toDouble(&writtenIsNumber);
    if (!writtenIsNumber)
        return QString();
    if (!givenIsNumber)
        return QStringLiteral("%1 reads as 0: it is not a number").arg(Quoted(given));
    if (writtenValue == 0 && LooksLikeWholeNumber(written)) {
        if (!LooksLikeWholeNumber(given))
            return QStringLiteral("%1 reads as 0: %2 takes whole numbers only")
                .arg(Quoted(given), name);
        if (givenValue < 0)
            return QStringLiteral("%1 reads as 0: %2 takes no negative numbers")
                .arg(Quoted(given), name);
        return QStringLiteral("%1 reads as 0: it is too large for %2").arg(Quoted(given), name);
    }
    const bool twoDecimals = written == RecordFormat::FixedTwo(givenValue);
    const bool sixDigits = written == RecordFormat::GeneralSix(givenValue);
    if (twoDecimals && sixDigits) // either format gives this text
        return QStringLiteral("%1 is saved as '%2': %3 keeps no more digits than that")
            .arg(Quoted(given), written, name);
    if (twoDecimals)
        return QStringLiteral("%1 is saved as '%2': %3 keeps two decimals")
            .arg(Quoted(given), written, name);
    if (sixDigits)
        return QStringLiteral("%1 is saved as '%2': %3 keeps six significant digits")
            .arg(Quoted(given), written, name);
    return QString();
}

} // namespace

bool IsUnsetMarker(const QString& text) {
    bool ok = false;
    const double number = text.toDouble(&ok);
    return ok && (number == Unset::Double || number == Unset::Int ||
                  (text.trimmed() == QString::number(Unset::UnsignedInt)));
}

QString Quoted(const QString& text) {
    constexpr int kLongest = 40;
    if (text.size() <= kLongest)
        return QStringLiteral("'%1'").arg(Escaped(text));
    return QStringLiteral("'%1...'").arg(Escaped(text.left(kLongest - 3)));
}

QString Escaped(const QString& text) {
    QString escaped;
    for (const QChar c : text) {
        if (c == QLatin1Char('\n'))
            escaped += QStringLiteral("\\n");
        else if (c == QLatin1Char('\r'))
            escaped += QStringLiteral("\\r");
        else if (c == QLatin1Char('\t'))
            escaped += QStringLiteral("\\t");
        else if (c.category() == QChar::Other_Control)
            escaped += QStringLiteral("\\x%1").arg(c.unicode(), 2, 16, QLatin1Char('0'));
        else
            escaped += c;
    }
    return escaped;
}

QString Describe(const QString& record, const QString& name, const QString& given,
                 const QString& written) {
    const ValueNotes::Note* note = ValueNotes::Find(record, name);
    if (written.isNull()) { // the record writes nothing for it
        if (given.trimmed().isEmpty())
            return QString();
        if (note && note->kind == ValueNotes::Kind::Enumeration)
            return NotAChoice(name, given, written, *note);
        if (IsUnsetMarker(given))
            return QStringLiteral("%1 is the unset marker: %2 reads as unset and is left out on "
                                  "save")
                .arg(Quoted(given), name);
        return QStringLiteral("%1 reads as unset: %2 is left out on save").arg(Quoted(given), name);
    }
    if (given == written) {
        if (note && note->kind == ValueNotes::Kind::TextFlag && given != kTrue && given != kFalse)
            return QStringLiteral("%1 reads as false: a flag is true only for 'true'")
                .arg(Quoted(given));
        return QString();
    }
    if (note && note->kind == ValueNotes::Kind::Enumeration)
        return NotAChoice(name, given, written, *note);
    if (note && note->kind == ValueNotes::Kind::DoubleList)
        return ListChanged(given);
    if (written == kTrue || written == kFalse)
        return FlagChanged(name, given, written);
    if (SameValue(given, written)) // the same number in another form
        return QString();
    QString number = NumberChanged(name, given, written);
    if (!number.isEmpty())
        return number;
    return QStringLiteral("%1 is saved as %2").arg(Quoted(given), Quoted(written));
}

QString Overwritten(const QString& name, const QString& given, qint64 laterLine) {
    return QStringLiteral("%1 %2 is lost: a later %1 on line %3 overwrites it")
        .arg(name, Quoted(given))
        .arg(laterLine);
}

QString OutOfRange(const QString& name, const QString& value, const QString& minimum,
                   const QString& maximum) {
    bool ok = false;
    const double number = value.toDouble(&ok);
    if (!ok)
        return QString();
    bool hasMinimum = false;
    bool hasMaximum = false;
    const double low = minimum.toDouble(&hasMinimum);
    const double high = maximum.toDouble(&hasMaximum);
    if ((hasMinimum && number < low) || (hasMaximum && number > high))
        return QStringLiteral("%1 lies outside the range of %2 (Minimum %3, Maximum %4)")
            .arg(Quoted(value), name, hasMinimum ? minimum : QStringLiteral("none"),
                 hasMaximum ? maximum : QStringLiteral("none"));
    return QString();
}

} // namespace ValueChange
} // namespace KELMORA
