option(LUMBRIX_WERROR "Take every warning for an error" OFF)
add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor)
if(LUMBRIX_WERROR)
  add_compile_options(-Werror)
endif()
add_compile_definitions(QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII
  QT_NO_FOREACH QT_STRICT_ITERATORS)
if(LUMBRIX_SANITIZE)
  add_compile_options(-fsanitize=${LUMBRIX_SANITIZE} -fno-omit-frame-pointer
    -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${LUMBRIX_SANITIZE})
  # g++ 12 sees null dereferences and uninitialised reads in instrumented Qt and library headers.
  add_compile_options(-Wno-null-dereference -Wno-maybe-uninitialized -Wno-tsan)
endif()
find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()
