// SPDX-License-Identifier: MIT
#include "TreePrinter.h"

#include "RecordRegistry.h"

#include <QLocale>
#include <QStringList>

#include <cmath>
#include <stdexcept>

namespace tool {

TreePrinter::TreePrinter(QTextStream& out) : m_out(out) {}

QString TreePrinter::UnsetText() {
    return QStringLiteral("unset");
}

QString TreePrinter::NumberText(double value) {
    const double magnitude = std::fabs(value);
    const bool plain = value == 0 || (magnitude >= 1e-4 && magnitude < 1e15);
    return QString::number(value, plain ? 'f' : 'g', QLocale::FloatingPointShortest);
}

void TreePrinter::Line(const QString& name, const QString& value) {
    Write(QStringLiteral("%1: %2").arg(name, value));
}

void TreePrinter::Unset(const QString& name) {
    Line(name, UnsetText());
}

void TreePrinter::Text(const QString& name, const QString& text) {
    Line(name, text.isEmpty() ? UnsetText() : text);
}

void TreePrinter::Flag(const QString& name, bool on) {
    Line(name, on ? QStringLiteral("true") : QStringLiteral("false"));
}

void TreePrinter::Double(const QString& name, double value) {
    Line(name, value == KELMORA::IKMObject::InvalidDouble ? UnsetText() : NumberText(value));
}

void TreePrinter::Unsigned(const QString& name, unsigned int value) {
    Line(name,
         value == KELMORA::IKMObject::InvalidUnsignedInt ? UnsetText() : QString::number(value));
}

void TreePrinter::Integer(const QString& name, int value, bool isSet) {
    Line(name, isSet ? QString::number(value) : UnsetText());
}

void TreePrinter::Enum(const QString& name, int value, const QString& displayText) {
    if (value == -1)
        Unset(name);
    else if (displayText.isEmpty())
        Line(name, QStringLiteral("%1 (no text)").arg(value));
    else
        Line(name, displayText);
}

void TreePrinter::Range(const QString& name, double value, double minimum, double maximum) {
    Section(name, [&] {
        Double(QStringLiteral("Value"), value);
        Double(QStringLiteral("Minimum"), minimum);
        Double(QStringLiteral("Maximum"), maximum);
    });
}

void TreePrinter::Numbers(const QString& name, const QVector<double>& values) {
    if (values.isEmpty()) {
        Line(name, QStringLiteral("empty"));
        return;
    }
    QStringList texts;
    texts.reserve(values.size());
    for (double value : values)
        texts.append(NumberText(value));
    Line(name, texts.join(QStringLiteral(", ")));
}

void TreePrinter::Version(const KELMORA::IKMObject& record) {
    Text(QStringLiteral("Version"), record.GetVersion());
}

void TreePrinter::ItemAttributes(const KELMORA::IKMObject& item, int index,
                                 const QString& itemName) {
    Version(item);
    Integer(QStringLiteral("Index"), index, item.IsValid(index));
    Text(QStringLiteral("Name"), itemName);
}

void TreePrinter::Section(const QString& title, const std::function<void()>& body) {
    Write(title);
    ++m_depth;
    body();
    --m_depth;
}

void TreePrinter::Record(const KELMORA::IKMObject& record) {
    Section(record.GetObjectName(), [&] { Body(record); });
}

void TreePrinter::ListHeader(const QString& name, int count) {
    Line(name, count == 0   ? QStringLiteral("empty")
               : count == 1 ? QStringLiteral("1 item")
                            : QStringLiteral("%1 items").arg(count));
}

void TreePrinter::ListItem(int position, const KELMORA::IKMObject& item) {
    Section(QStringLiteral("[%1] %2").arg(position).arg(item.GetObjectName()), [&] { Body(item); });
}

void TreePrinter::Body(const KELMORA::IKMObject& record) {
    const RecordType* type = RecordRegistry::Instance().Find(record.GetObjectName());
    if (!type)
        throw std::logic_error("no printer registered for a nested record");
    type->print(record, *this);
}

void TreePrinter::Write(const QString& text) {
    m_out << QString(2 * m_depth, QLatin1Char(' ')) << text << '\n';
}

} // namespace tool
