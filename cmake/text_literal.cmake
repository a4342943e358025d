# Turns the text file INPUT into a C++ literal, OUTPUT.
file(READ ${INPUT} TEXT)
file(WRITE ${OUTPUT} "R\"text(${TEXT})text\"")
