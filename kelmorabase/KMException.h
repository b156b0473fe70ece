// SPDX-License-Identifier: MIT
#ifndef KELMORA_KMEXCEPTION_H
#define KELMORA_KMEXCEPTION_H

#include <KelmoraBaseExport.h>
#include <KelmoraException.h>

namespace KELMORA {

// The exception of every failure of a record: validation, reading, files.
// Thrown by value; the text is available through GetMessage().
class KELMORABASE_EXPORT KMException : public KelmoraException {
public:
    // An exception carrying the message, unchanged.
    explicit KMException(const QString& message);
    // Copies the message.
    KMException(const KMException&) = default;
    // Assigns the message.
    KMException& operator=(const KMException&) = default;
    // Nothing to release beyond the message.
    ~KMException() override;
};

} // namespace KELMORA

#endif
