// The tree printer that the per-record printers of `show` are built from.
#include "RecordRegistry.h"
#include "TreePrinter.h"

#include <ATTANTPath.h>

#include <QString>
#include <QTextStream>
#include <QVector>

#include <gtest/gtest.h>

QT_BEGIN_NAMESPACE
inline void PrintTo(const QString& text, std::ostream* os) {
    *os << '"' << text.toStdString() << '"';
}
QT_END_NAMESPACE

namespace {

using KELMORA::ATTANTPath;
using KELMORA::IKMObject;

TEST(TreePrinter, ValuesShowTheirUnsetMarkersAsUnset) {
    QString text;
    QTextStream stream(&text);
    tool::TreePrinter out(stream);
    out.Double(QStringLiteral("Power"), IKMObject::InvalidDouble);
    out.Double(QStringLiteral("Frequency"), 2.4e9);
    out.Double(QStringLiteral("Tone"), 0.1);
    out.Double(QStringLiteral("Tiny"), 1.25e-7);
    out.Unsigned(QStringLiteral("ExciterSet"), IKMObject::InvalidUnsignedInt);
    out.Unsigned(QStringLiteral("ChannelCount"), 0);
    out.Integer(QStringLiteral("Index"), 3, true);
    out.Integer(QStringLiteral("AMDepth"), -111111, false);
    out.Enum(QStringLiteral("Mode"), -1, QString());
    out.Enum(QStringLiteral("SignalType"), 2, QStringLiteral("MSK"));
    out.Enum(QStringLiteral("Type"), 7, QString());
    out.Text(QStringLiteral("Reference"), QString());
    out.Range(QStringLiteral("Bandwidth"), 25000, IKMObject::InvalidDouble, 1e6);
    out.Numbers(QStringLiteral("FrequencyList"), {});
    out.Numbers(QStringLiteral("RelativeFrequencyList"), {-12.5, 0, 3e6});
    stream.flush();
    EXPECT_EQ(text, QStringLiteral("Power: unset\n"
                                   "Frequency: 2400000000\n"
                                   "Tone: 0.1\n"
                                   "Tiny: 1.25e-07\n"
                                   "ExciterSet: unset\n"
                                   "ChannelCount: 0\n"
                                   "Index: 3\n"
                                   "AMDepth: unset\n"
                                   "Mode: unset\n"
                                   "SignalType: MSK\n"
                                   "Type: 7 (no text)\n"
                                   "Reference: unset\n"
                                   "Bandwidth\n"
                                   "  Value: 25000\n"
                                   "  Minimum: unset\n"
                                   "  Maximum: 1000000\n"
                                   "FrequencyList: empty\n"
                                   "RelativeFrequencyList: -12.5, 0, 3000000\n"));
}

TEST(TreePrinter, NestedRecordsAndListsIndentOneLevelPerSection) {
    ATTANTPath on;
    for (auto set : {&ATTANTPath::SetATT1, &ATTANTPath::SetATT2, &ATTANTPath::SetATT3,
                     &ATTANTPath::SetATT4, &ATTANTPath::SetATT5, &ATTANTPath::SetATT6})
        (on.*set)(true);
    ATTANTPath partial;
    partial.SetATT6(false);

    QString text;
    QTextStream stream(&text);
    tool::TreePrinter out(stream);
    out.Section(QStringLiteral("SCU"), [&] {
        out.Text(QStringLiteral("Version"), QStringLiteral("1.0"));
        out.Record(partial);
        out.List(QStringLiteral("PathList"), QVector<ATTANTPath>{on, partial});
        out.List(QStringLiteral("EmptyList"), QVector<ATTANTPath>{});
    });
    stream.flush();
    EXPECT_EQ(text, QStringLiteral("SCU\n"
                                   "  Version: 1.0\n"
                                   "  ATTANTPath\n"
                                   "    ATT1: unset\n"
                                   "    ATT2: unset\n"
                                   "    ATT3: unset\n"
                                   "    ATT4: unset\n"
                                   "    ATT5: unset\n"
                                   "    ATT6: false\n"
                                   "  PathList: 2 items\n"
                                   "    [0] ATTANTPath\n"
                                   "      ATT1: true\n"
                                   "      ATT2: true\n"
                                   "      ATT3: true\n"
                                   "      ATT4: true\n"
                                   "      ATT5: true\n"
                                   "      ATT6: true\n"
                                   "    [1] ATTANTPath\n"
                                   "      ATT1: unset\n"
                                   "      ATT2: unset\n"
                                   "      ATT3: unset\n"
                                   "      ATT4: unset\n"
                                   "      ATT5: unset\n"
                                   "      ATT6: false\n"
                                   "  EmptyList: empty\n"));
}

TEST(TreePrinter, RegistryKnowsEachRecordByItsRootElement) {
    const tool::RecordRegistry& registry = tool::RecordRegistry::Instance();
    EXPECT_EQ(registry.RootNames(),
              QStringList({QStringLiteral("ATTANTPath"), QStringLiteral("Exciter_Settings"),
                           QStringLiteral("SCU"), QStringLiteral("TGN"), QStringLiteral("WDE"),
                           QStringLiteral("WDE_Exciter"), QStringLiteral("WDE_Rasterdetector"),
                           QStringLiteral("WDE_Simulation"),
                           QStringLiteral("WDE_Singlechanneldetector")}));
    EXPECT_EQ(registry.Find(QStringLiteral("attantpath")), nullptr);
    const tool::RecordType* type = registry.Find(QStringLiteral("ATTANTPath"));
    ASSERT_NE(type, nullptr);
    EXPECT_EQ(type->create()->GetObjectName(), QStringLiteral("ATTANTPath"));
    // A second registration under a taken name is a programming error.
    EXPECT_THROW(tool::RegisterRecord<ATTANTPath>([](const ATTANTPath&, tool::TreePrinter&) {}),
                 std::logic_error);
}

} // namespace
