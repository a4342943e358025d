# Turns the table INPUT of native type names, which has one heading line, into the rows of an array, OUTPUT:
# {"ORACLE", "DATE", "7", "", "DATETIME"},
file(READ ${INPUT} TABLE)
string(FIND "${TABLE}" "\n" HEADING_END)
string(SUBSTRING "${TABLE}" ${HEADING_END} -1 TABLE)
string(REGEX REPLACE "\n([^\t]+)\t([^\t]+)\t([^\t]*)\t([^\t]*)\t([^\t]+)\t[^\n]*"
                     "\n{\"\\1\", \"\\2\", \"\\3\", \"\\4\", \"\\5\"}," ROWS "${TABLE}")
file(WRITE ${OUTPUT} "${ROWS}")
