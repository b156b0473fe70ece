# SPDX-License-Identifier: MIT
# Fails when an enumerator of the API reference has no documentation, which
# Doxygen does not warn about. Reads Doxygen's XML output in XML_DIR.
file(GLOB pages ${XML_DIR}/*.xml)
set(undocumented)
foreach(page ${pages})
  file(READ ${page} text)
  string(REGEX MATCHALL
    "<name>[A-Za-z0-9_]+</name>[ \n]*(<initializer>[^<]*</initializer>[ \n]*)?<briefdescription>[ \n]*</briefdescription>[ \n]*<detaileddescription>[ \n]*</detaileddescription>[ \n]*</enumvalue>"
    found "${text}")
  foreach(entry ${found})
    string(REGEX REPLACE "^<name>([A-Za-z0-9_]+)</name>.*" "\\1" name "${entry}")
    get_filename_component(compound ${page} NAME_WE)
    list(APPEND undocumented "${compound}: ${name}")
  endforeach()
endforeach()
list(REMOVE_DUPLICATES undocumented)
if(undocumented)
  list(JOIN undocumented "\n  " list)
  message(FATAL_ERROR "Enumerators without documentation:\n  ${list}")
endif()
