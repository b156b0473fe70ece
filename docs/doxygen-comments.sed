# SPDX-License-Identifier: MIT
# Doxygen input filter for the installed headers. Their documentation is
# written as plain // comment lines directly above each declaration; Doxygen
# reads those lines as /// lines. XML elements quoted in a comment
# (<Name Minimum="...">value</Name>) are escaped so that they are not taken
# for HTML; placeholders such as '<child>' stand in double quotes, where
# Doxygen takes them literally.
/^[[:space:]]*\/\/\( \|$\)/{
  s#</\([A-Za-z_]*\)>#\\</\1\\>#g
  s#<\([A-Za-z_]*\) \([A-Za-z_]*=\)#\\<\1 \2#g
  s#^\([[:space:]]*\)//#\1///#
}
