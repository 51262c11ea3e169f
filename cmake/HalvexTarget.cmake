# halvex_target(<target>): what every target of ours is built with; nothing of it reaches consumers.

function(halvex_target target)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual
    -Wold-style-cast -Wcast-qual -Wformat=2
    # Optimising, g++ sees null pointers in what it has inlined of Qt's containers, and without that it sees none.
    $<$<NOT:$<CXX_COMPILER_ID:GNU>>:-Wnull-dereference>
    $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique> # a library with one unique symbol is never unloaded
    $<$<BOOL:${HALVEX_WERROR}>:-Werror>)
  target_compile_definitions(${target} PRIVATE
    QT_NO_KEYWORDS QT_NO_FOREACH QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
    QT_DISABLE_DEPRECATED_BEFORE=0x050c00
    $<$<CONFIG:Debug>:QT_FORCE_ASSERTS>)
endfunction()
