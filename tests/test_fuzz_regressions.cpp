// SPDX-License-Identifier: MIT
// Inputs on which the fuzz targets (fuzz/fuzz_record.cpp) failed, kept so that
// the faults stay fixed: the inputs as the fuzzer wrote them, under data/fuzz,
// and each fault reduced to its essentials. The harness's main property: a
// document that loads is a fixed point after one round trip (written, read
// into a fresh record and written again, it gives the same text).
#include "TestSupport.h"

#include <Exciter_Settings.h>
#include <TGN.h>
#include <WDE.h>

#include <QDir>

using namespace KELMORA;

namespace {

// The record read from `xml`; fails the test unless its document is a fixed point.
template <class Record> Record FixedPoint(const QString& xml) {
    const auto record = testsupport::ReadFrom<Record>(xml);
    const QString written = record.GetXmlString();
    EXPECT_EQ(testsupport::ReadFrom<Record>(written).GetXmlString(), written);
    return record;
}

} // namespace

TEST(FuzzRegressions, KeptFuzzInputsAreFixedPoints) {
    // Each file is named after the target that found it.
    const QDir folder(QString(FUZZ_INPUTS_DIR));
    const QStringList files = folder.entryList({"*.xml"}, QDir::Files);
    ASSERT_GE(files.size(), 6);
    for (const QString& name : files) {
        SCOPED_TRACE(name.toStdString());
        const QString xml = QString::fromUtf8(testsupport::FileContents(folder.filePath(name)));
        if (name.startsWith("exciter_settings-"))
            FixedPoint<Exciter_Settings>(xml);
        else if (name.startsWith("tgn-"))
            FixedPoint<TGN>(xml);
        else if (name.startsWith("wde-"))
            FixedPoint<WDE>(xml);
        else
            ADD_FAILURE() << "no record for " << name.toStdString();
    }
}

TEST(FuzzRegressions, ReducedFaultsStayFixed) {
    // Each case: values read into a complete TGN, and what its save holds.
    const char* const cases[][2] = {
        // XML readers turn a literal carriage return into a line feed, so one
        // that is written as it stands comes back as another text.
        {"<SweepSpacing>L&#13;IN</SweepSpacing><FMCoupling>&#13;&#13;</FMCoupling>"
         "<FMInput>a&#13;&#10;b&#xD;</FMInput>",
         "<SweepSpacing>L&#13;IN</SweepSpacing><FMCoupling>&#13;&#13;</FMCoupling>"
         "<FMInput>a&#13;\nb&#13;</FMInput>"},
        // A set value whose two-decimal text is that of the unset marker
        // -111111.11 read back as unset (and a TGN without power was lost
        // whole): it is written as the neighbouring hundredth on its side.
        // The marker itself stays unset and is not written.
        {"<Tone>-111111.11</Tone><ToneStop>-111111.111</ToneStop>"
         "<ToneStart>-111111.109</ToneStart>",
         "<TGNModulation>CW</TGNModulation><ToneStop>-111111.12</ToneStop>"
         "<ToneStart>-111111.10</ToneStart>"},
        // Qt writes -0.004 with two decimals as "-0.00", which reads back as
        // negative zero, which it writes as "0.00".
        {"<Tone>-0.0049</Tone><ToneStop>-0</ToneStop><ToneStart>-0.005</ToneStart>",
         "<Tone>0.00</Tone><ToneStop>0.00</ToneStop><ToneStart>-0.01</ToneStart>"},
    };
    for (const auto& c : cases) {
        const auto tgn = FixedPoint<TGN>(
            QString("<TGN Version=\"1.0\"><Frequency>100</Frequency><Bandwidth>25</Bandwidth>"
                    "<Power>1</Power><LevelSettingsMode>auto</LevelSettingsMode>"
                    "<Reference>intern</Reference><TGNModulation>CW</TGNModulation>%1</TGN>")
                .arg(QLatin1String(c[0])));
        EXPECT_TRUE(testsupport::WrittenXml(tgn).contains(QLatin1String(c[1])))
            << testsupport::WrittenXml(tgn).toStdString();
    }
}

TEST(FuzzRegressions, AnItemIndexThatIsTheUnsetMarkerIsNotStored) {
    // "-2147483648" converts to the value that marks an index as unset: stored,
    // the item wrote no Index and took its list position when read back.
    auto wde = testsupport::ReadFrom<WDE>(
        "<WDE Version=\"0.1\"><ExciterList><WDE_Exciter Version=\"0.1\" Index=\"5\"/>"
        "<WDE_Exciter Version=\"0.1\" Index=\"-2147483648\"/></ExciterList></WDE>");
    ASSERT_EQ(wde.GetExciterList().size(), 2);
    EXPECT_EQ(wde.GetExciterList()[1].GetIndex(), 1); // the position, as without the attribute
}
