# Writes the header OUTPUT, made of INPUT, with the time of this build. SOURCE_DATE_EPOCH stands in for it.
string(TIMESTAMP VORN_BUILD_TIME "%s" UTC)
configure_file(${INPUT} ${OUTPUT} @ONLY)
