// SPDX-License-Identifier: MIT
#include "ExciterSettingsVersion.h"

namespace KELMORA {

const char* ExciterSettingsVersion() {
    return EXCITERSETTINGS_VERSION_STRING;
}

} // namespace KELMORA
