// SPDX-License-Identifier: MIT
#ifndef KELMORA_KELMORAEXCEPTION_H
#define KELMORA_KELMORAEXCEPTION_H

#include <KelmoraBaseExport.h>

#include <QString>

namespace KELMORA {

// Root of the exceptions of the Kelmora libraries. It deliberately does not
// derive from std::exception: callers catch it (or KMException) by type.
class KELMORABASE_EXPORT KelmoraException {
public:
    // An exception carrying the message, unchanged.
    explicit KelmoraException(const QString& message);
    // Copies the message.
    KelmoraException(const KelmoraException&) = default;
    // Assigns the message.
    KelmoraException& operator=(const KelmoraException&) = default;
    // Nothing to release beyond the message.
    virtual ~KelmoraException();

    // The complete message text, exactly as it was given.
    const QString& GetMessage() const;

private:
    QString m_message;
};

} // namespace KELMORA

#endif
