# Turns the table INPUT, tab-separated with one heading line, into the rows of an array of texts, OUTPUT:
# {"CHAR", "ansi", "CHARACTER({length})"},
# A last column whose heading is in parentheses is for readers of the table alone.
file(READ ${INPUT} TABLE)
string(FIND "${TABLE}" "\n" HEADING_END)
string(SUBSTRING "${TABLE}" 0 ${HEADING_END} HEADING)
string(SUBSTRING "${TABLE}" ${HEADING_END} -1 TABLE)
if(HEADING MATCHES "\t\\([^\t]*\\)$")
  string(REGEX REPLACE "\t[^\t\n]*\n" "\n" TABLE "${TABLE}")
endif()
string(REPLACE "\t" "\", \"" TABLE "${TABLE}")
string(REGEX REPLACE "\n([^\n]+)" "\n{\"\\1\"}," ROWS "${TABLE}")
file(WRITE ${OUTPUT} "${ROWS}")
