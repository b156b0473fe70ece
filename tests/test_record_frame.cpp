// The shared frame: number formats and enumeration tables.
#include "TestSupport.h"

#include "EnumTable.h"
#include "RecordFormat.h"

using namespace KELMORA;

TEST(RecordFormatTexts, NumberFormats) {
    EXPECT_EQ(RecordFormat::FixedTwo(12.5), QStringLiteral("12.50"));
    EXPECT_EQ(RecordFormat::FixedTwo(-3.456), QStringLiteral("-3.46"));
    EXPECT_EQ(RecordFormat::FixedTwo(0.5), QStringLiteral("0.50"));
    EXPECT_EQ(RecordFormat::GeneralSix(1234567), QStringLiteral("1.23457e+06"));
    EXPECT_EQ(RecordFormat::GeneralSix(0.000125), QStringLiteral("0.000125"));
    EXPECT_EQ(RecordFormat::GeneralSix(-111111.11), QStringLiteral("-111111"));
    EXPECT_EQ(RecordFormat::Integer(-3), QStringLiteral("-3"));
    EXPECT_EQ(RecordFormat::Unsigned(4294967295u), QStringLiteral("4294967295"));
}

TEST(RecordFormatTexts, ConversionsGiveZeroForNonNumbersAndFlagsOnlyForTrue) {
    EXPECT_EQ(RecordFormat::ToDouble(QStringLiteral("abc")), 0.0);
    EXPECT_EQ(RecordFormat::ToInt(QStringLiteral("12x")), 0);
    EXPECT_EQ(RecordFormat::ToUnsigned(QStringLiteral("-3")), 0u);
    EXPECT_TRUE(RecordFormat::IsTrue(QStringLiteral("true")));
    EXPECT_FALSE(RecordFormat::IsTrue(QStringLiteral("True")));
    EXPECT_FALSE(RecordFormat::IsTrue(QStringLiteral("1")));
}

TEST(EnumTables, ExactLookupsBothWaysWithMisses) {
    const EnumTable table{{0, "NONE"}, {1, "SHORT", "SHORt"}, {2, "MIDDLE", "MIDDLe"}};
    EXPECT_EQ(table.ValueOfDisplay(QStringLiteral("SHORT")), 1);
    EXPECT_EQ(table.ValueOfSkpi(QStringLiteral("SHORT")), -1);
    EXPECT_EQ(table.ValueOfSkpi(QStringLiteral("SHORt")), 1);
    EXPECT_EQ(table.ValueOfSkpi(QStringLiteral("NONE")), 0); // SKPI falls back to the display text
    EXPECT_EQ(table.ValueOfDisplay(QStringLiteral(" NONE")), -1);
    EXPECT_EQ(table.SkpiText(2), QStringLiteral("MIDDLe"));
    EXPECT_TRUE(table.DisplayText(-1).isNull());
    EXPECT_TRUE(table.DisplayText(3).isNull());
}
