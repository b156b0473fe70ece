// SPDX-License-Identifier: MIT
#ifndef KELMORA_XMLREADERERROR_H
#define KELMORA_XMLREADERERROR_H

#include <KMException.h>
#include <KelmoraBaseExport.h>

#include <QXmlStreamReader>

namespace KELMORA {

// The exception for a reader that failed: "XML error: <reason> (line L,
// column C)", the form of every XML error a load reports.
KELMORABASE_EXPORT KMException XmlReaderError(const QXmlStreamReader& reader);

} // namespace KELMORA

#endif
