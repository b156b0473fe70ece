// Feeds arbitrary bytes to the XML readers of the root records. Any input
// must end in a normal return or a KMException: no crash, hang or leak. What
// loads must also write and read back without an error.
#include <Exciter_Settings.h>
#include <KMException.h>
#include <WDE.h>

#include <cstddef>
#include <cstdint>

namespace {

template <typename Record> void LoadAndRewrite(const QString& xml) {
    Record record;
    try {
        record.SetXmlString(xml);
    } catch (const KELMORA::KMException&) {
        return;
    }
    const QString written = record.GetXmlString();
    Record again;
    try {
        again.SetXmlString(written);
    } catch (const KELMORA::KMException&) {
        // An incomplete guarded record writes no element at all.
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QString xml =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<int>(size));
    LoadAndRewrite<KELMORA::Exciter_Settings>(xml);
    LoadAndRewrite<KELMORA::WDE>(xml);
    return 0;
}
