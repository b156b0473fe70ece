#ifndef KELMORA_OBJECTTYPES_H
#define KELMORA_OBJECTTYPES_H

#include <KelmoraBaseExport.h>

#include <QString>
#include <QtGlobal>

namespace KELMORA {

// Object types known to the base library. A record constructed with a type
// takes its element name from GetObjectTypeName().
enum ObjectTypes : qint32 {
    OBJECT_TYPE_NONE = 0,
    OBJECT_TYPE_EXCITER_SETTINGS = 69,
};

// The element name of a type; empty for a type without a name.
KELMORABASE_EXPORT QString GetObjectTypeName(ObjectTypes type);

} // namespace KELMORA

#endif
