# Read by find_package(halvex), in small letters, and by nobody else.
set(halvex_FOUND FALSE)
set(halvex_NOT_FOUND_MESSAGE "the package is called Halvex, with a capital H: find_package(Halvex)")
