# SPDX-License-Identifier: MIT
# Writes the manual page of the tool from its own --help text, so that the
# page cannot drift from the program, and compresses it as Debian installs
# manual pages (gzip -9n: no name, no time stamp).
#
#   cmake -DTOOL=<built tool> -DNAME=<installed name> -DVERSION=<version>
#         -DSCHEMA=<installed schema path> -DGZIP=<gzip> -DOUTPUT=<page.1.gz> -P ManPage.cmake
execute_process(COMMAND ${TOOL} --help OUTPUT_VARIABLE help RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "${TOOL} --help failed (${result})")
endif()

# The help without its first line (the usage line names the built program's
# path); roff escapes: backslashes, minus signs, and a leading dot or quote.
# (string(REGEX REPLACE) would take "^" for the start of every match.)
string(FIND "${help}" "\n" first_line_end)
math(EXPR description_start "${first_line_end} + 1")
string(SUBSTRING "${help}" ${description_start} -1 help)
string(REPLACE "\\" "\\e" help "${help}")
string(REPLACE "-" "\\-" help "${help}")
string(REGEX REPLACE "\n([.'])" "\n\\\\&\\1" help "\n${help}")
string(SUBSTRING "${help}" 1 -1 help)
string(REPLACE "-" "\\-" roff_name "${NAME}")
string(TOUPPER "${roff_name}" title)

file(WRITE ${OUTPUT}.tmp ".TH ${title} 1 \"\" \"${roff_name} ${VERSION}\" \"User Commands\"
.SH NAME
${roff_name} \\- check, show, lint, format, change and compare ExciterSettings XML files
.SH SYNOPSIS
.B ${roff_name}
[\\fIoptions\\fR] \\fIcommand\\fR [\\fIargs\\fR]
.SH DESCRIPTION
.nf
${help}.fi
.SH FILES
.TP
.I ${SCHEMA}
The XML Schema of the settings files (installed with the development package).
.SH SEE ALSO
.BR xmllint (1)
")
execute_process(COMMAND ${GZIP} -9nc ${OUTPUT}.tmp OUTPUT_FILE ${OUTPUT} RESULT_VARIABLE result)
file(REMOVE ${OUTPUT}.tmp)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "${GZIP} failed (${result})")
endif()
