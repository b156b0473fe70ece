#ifndef KELMORA_KMEXCEPTION_H
#define KELMORA_KMEXCEPTION_H

#include <KelmoraBaseExport.h>
#include <KelmoraException.h>

namespace KELMORA {

// The exception of every failure of a record: validation, reading, files.
// Thrown by value; the text is available through GetMessage().
class KELMORABASE_EXPORT KMException : public KelmoraException {
public:
    explicit KMException(const QString& message);
    KMException(const KMException&) = default;
    KMException& operator=(const KMException&) = default;
    ~KMException() override;
};

} // namespace KELMORA

#endif
