// SPDX-License-Identifier: MIT
#ifndef KELMORA_OBJECTTYPES_H
#define KELMORA_OBJECTTYPES_H

#include <KelmoraBaseExport.h>

#include <QString>
#include <QtGlobal>

// The classes of ExciterSettings and of its base library KelmoraBase.
namespace KELMORA {

// Object types known to the base library. A record constructed with a type
// takes its element name from GetObjectTypeName().
enum ObjectTypes : qint32 {
    // No type: the record names itself with SetObjectName.
    OBJECT_TYPE_NONE = 0,
    // Exciter_Settings, element name "Exciter_Settings".
    OBJECT_TYPE_EXCITER_SETTINGS = 69,
};

// The element name of a type; empty for a type without a name.
KELMORABASE_EXPORT QString GetObjectTypeName(ObjectTypes type);

} // namespace KELMORA

#endif
