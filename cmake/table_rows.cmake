# Turns the table INPUT, tab-separated with one heading line, into the rows of an array of texts, OUTPUT:
# {"CHAR", "ansi", "CHARACTER({length})"},
file(READ ${INPUT} TABLE)
string(FIND "${TABLE}" "\n" HEADING_END)
string(SUBSTRING "${TABLE}" ${HEADING_END} -1 TABLE)
string(REPLACE "\t" "\", \"" TABLE "${TABLE}")
string(REGEX REPLACE "\n([^\n]+)" "\n{\"\\1\"}," ROWS "${TABLE}")
file(WRITE ${OUTPUT} "${ROWS}")
